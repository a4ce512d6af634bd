// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/Resampler.h"

#include "sound/decode/ffmpeg/Handles.h"

extern "C" {
#include <libavutil/opt.h>
#include <libswresample/swresample.h>
}

#include <algorithm>
#include <cassert>

namespace tovik::sound {
namespace {

// The distribution's swresample has the engine of libsoxr; where it is missing, swresample's own
// with a long filter comes near to it (its default lets 20 dB of aliases through).
void useSoxr(SwrContext* context) {
    av_opt_set_int(context, "resampler", SWR_ENGINE_SOXR, 0);
}

void useLongFilter(SwrContext* context) {
    av_opt_set_int(context, "resampler", SWR_ENGINE_SWR, 0);
    av_opt_set_int(context, "filter_size", 128, 0);
    av_opt_set_int(context, "filter_type", SWR_FILTER_TYPE_KAISER, 0);
    av_opt_set_double(context, "kaiser_beta", 12.0, 0);
    av_opt_set_double(context, "cutoff", 0.985, 0);
    av_opt_set_int(context, "exact_rational", 1, 0);
}

} // namespace

void doubleMono(std::span<const float> mono, std::span<float> stereo) noexcept {
    assert(stereo.size() == 2 * mono.size());
    for (std::size_t n = 0; n < mono.size(); ++n) {
        stereo[2 * n] = mono[n];
        stereo[2 * n + 1] = mono[n];
    }
}

void Resampler::Free::operator()(SwrContext* context) const noexcept {
    swr_free(&context);
}

std::unique_ptr<Resampler> Resampler::create(int rate, int channels) {
    if (rate < kLowestRate || rate > kHighestRate || channels < 1 || channels > 2) {
        return nullptr;
    }
    ffmpeg::silenceLog();
    std::unique_ptr<Resampler> resampler(new Resampler(rate, channels));
    return resampler->start() ? std::move(resampler) : nullptr;
}

Resampler::Resampler(int rate, int channels)
    : rate_(rate), channels_(static_cast<std::size_t>(channels)) {
    AVChannelLayout layout = {};
    av_channel_layout_default(&layout, channels);
    SwrContext* context = nullptr;
    swr_alloc_set_opts2(&context, &layout, AV_SAMPLE_FMT_FLT, kOutputRate, &layout,
                        AV_SAMPLE_FMT_FLT, rate, 0, nullptr);
    context_.reset(context);
}

Resampler::~Resampler() = default;

bool Resampler::start() noexcept {
    if (!context_) {
        return false;
    }
    useSoxr(context_.get());
    if (swr_init(context_.get()) >= 0) {
        return true;
    }
    useLongFilter(context_.get());
    return swr_init(context_.get()) >= 0;
}

std::size_t Resampler::mostOutput(std::size_t frames) const noexcept {
    if (!context_) {
        return 0;
    }
    const int most = swr_get_out_samples(context_.get(), static_cast<int>(frames));
    return static_cast<std::size_t>(std::max(most, 0));
}

// Mono is converted into the last half of `out` and spread from there to both sides.
std::size_t Resampler::convert(std::span<const float> in, std::span<float> out) noexcept {
    if (!context_) {
        return 0;
    }
    const std::size_t room = out.size() / 2;
    float* to = channels_ == 1 ? out.data() + room : out.data();
    auto* bytesTo = static_cast<std::uint8_t*>(static_cast<void*>(to));
    const auto* from = static_cast<const std::uint8_t*>(static_cast<const void*>(in.data()));
    const auto frames = static_cast<int>(in.size() / channels_);
    const int got = swr_convert(context_.get(), &bytesTo, static_cast<int>(room),
                                in.empty() ? nullptr : &from, frames);
    const auto count = static_cast<std::size_t>(std::max(got, 0));
    if (channels_ == 1) {
        for (std::size_t n = 0; n < count; ++n) {
            const float value = to[n];
            out[2 * n] = value;
            out[2 * n + 1] = value;
        }
    }
    return count;
}

std::size_t Resampler::process(std::span<const float> in, std::span<float> out) noexcept {
    if (in.empty()) {
        return 0; // to the library, no input means the end
    }
    const std::size_t count = convert(in, out);
    taken_ += static_cast<std::int64_t>(in.size() / channels_);
    given_ += static_cast<std::int64_t>(count);
    return count;
}

std::size_t Resampler::flush(std::span<float> out) noexcept {
    const std::int64_t owed = av_rescale(taken_, kOutputRate, rate_) - given_;
    const std::size_t room =
        std::min(out.size() / 2, static_cast<std::size_t>(std::max<std::int64_t>(owed, 0)));
    if (room == 0) {
        return 0;
    }
    const std::size_t count = convert({}, out.first(2 * room));
    const std::size_t given = count == 0 ? room : count;
    std::ranges::fill(out.subspan(2 * count, 2 * (given - count)), 0.0F);
    given_ += static_cast<std::int64_t>(given);
    return given;
}

void Resampler::reset() noexcept {
    taken_ = 0;
    given_ = 0;
    swr_close(context_.get());
    if (swr_init(context_.get()) < 0) {
        context_.reset(); // memory is short: silence from here on
    }
}

} // namespace tovik::sound
