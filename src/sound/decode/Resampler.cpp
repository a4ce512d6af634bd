// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/Resampler.h"

#include <algorithm>
#include <cassert>
#include <soxr.h>

namespace tovik::sound {

namespace {

// Sizes of the library's transforms, as powers of two. Smaller ones than it would choose: what it
// holds back, and then gives at once, has to find room in a feed.
constexpr unsigned kSmallestTransform = 8;
constexpr unsigned kLargestTransform = 10;

// With them it never holds back more than so many frames of its input, or output if that is slower
// (measured: 485).
constexpr std::size_t kMostHeldFrames = 512;

soxr_t makeContext(int rate, int channels) {
    soxr_error_t error = nullptr;
    const soxr_io_spec_t form = soxr_io_spec(SOXR_FLOAT32_I, SOXR_FLOAT32_I);
    const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_HQ, 0);
    soxr_runtime_spec_t runtime = soxr_runtime_spec(1);
    runtime.log2_min_dft_size = kSmallestTransform;
    runtime.log2_large_dft_size = kLargestTransform;
    return soxr_create(rate, Resampler::kOutputRate, static_cast<unsigned>(channels), &error, &form,
                       &quality, &runtime);
}

} // namespace

void doubleMono(std::span<const float> mono, std::span<float> stereo) noexcept {
    assert(stereo.size() == 2 * mono.size());
    for (std::size_t n = 0; n < mono.size(); ++n) {
        stereo[2 * n] = mono[n];
        stereo[2 * n + 1] = mono[n];
    }
}

void Resampler::Free::operator()(soxr* context) const noexcept {
    soxr_delete(context);
}

std::unique_ptr<Resampler> Resampler::create(int rate, int channels) {
    if (rate < kLowestRate || rate > kHighestRate || channels < 1 || channels > 2) {
        return nullptr;
    }
    std::unique_ptr<Resampler> resampler(new Resampler(rate, channels));
    return resampler->context_ ? std::move(resampler) : nullptr;
}

Resampler::Resampler(int rate, int channels)
    : context_(makeContext(rate, channels)), rate_(rate),
      channels_(static_cast<std::size_t>(channels)) {}

Resampler::~Resampler() = default;

std::size_t Resampler::mostOutput(std::size_t frames) const noexcept {
    const auto scaled = [this](std::size_t count) {
        return count * kOutputRate / static_cast<std::size_t>(rate_) + 1;
    };
    return scaled(frames) + std::max(scaled(kMostHeldFrames), kMostHeldFrames);
}

// Mono is converted into the last half of `out` and spread from there to both sides.
std::size_t Resampler::convert(std::span<const float> in, std::span<float> out) noexcept {
    if (!context_) {
        return 0;
    }
    const std::size_t room = out.size() / 2;
    float* to = channels_ == 1 ? out.data() + room : out.data();
    std::size_t used = 0;
    std::size_t count = 0;
    if (soxr_process(context_.get(), in.empty() ? nullptr : in.data(), in.size() / channels_, &used,
                     to, room, &count) != nullptr) {
        return 0;
    }
    assert(used == in.size() / channels_); // there is room for what it gives
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
    const std::int64_t owed = (taken_ * kOutputRate + rate_ / 2) / rate_ - given_;
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
    if (context_ && soxr_clear(context_.get()) != nullptr) {
        context_.reset(); // memory is short: silence from here on
    }
}

} // namespace tovik::sound
