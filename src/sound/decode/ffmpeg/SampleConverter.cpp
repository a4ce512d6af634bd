// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/ffmpeg/SampleConverter.h"

extern "C" {
#include <libavutil/opt.h>
}

#include <algorithm>
#include <array>
#include <cstdint>

namespace tovik::sound::ffmpeg {
namespace {

constexpr int kMostChannels = 64; // of swresample
constexpr float kScale8 = 1.0F / 128.0F;
constexpr float kScale16 = 1.0F / 32768.0F;
constexpr float kScale32 = 1.0F / 2147483648.0F;

constexpr float toFloat(std::uint8_t value) {
    return static_cast<float>(value - 128) * kScale8;
}

constexpr float toFloat(std::int16_t value) {
    return static_cast<float>(value) * kScale16;
}

constexpr float toFloat(std::int32_t value) {
    return static_cast<float>(value) * kScale32;
}

constexpr float toFloat(float value) {
    return value;
}

constexpr float toFloat(double value) {
    return static_cast<float>(value);
}

template <typename T>
const T* samples(const AVFrame& frame, std::size_t plane) {
    return static_cast<const T*>(static_cast<const void*>(frame.extended_data[plane]));
}

template <typename T>
void packed(const AVFrame& frame, std::size_t first, std::size_t channels, std::span<float> out) {
    const std::span in(samples<T>(frame, 0) + first * channels, out.size());
    std::ranges::transform(in, out.begin(), [](T value) { return toFloat(value); });
}

template <typename T>
void planar(const AVFrame& frame, std::size_t first, std::size_t channels, std::span<float> out) {
    const std::size_t count = out.size() / channels;
    const T* left = samples<T>(frame, 0) + first;
    if (channels == 1) {
        std::transform(left, left + count, out.begin(), [](T value) { return toFloat(value); });
        return;
    }
    const T* right = samples<T>(frame, 1) + first;
    float* to = out.data();
    for (std::size_t n = 0; n < count; ++n) {
        to[2 * n] = toFloat(left[n]);
        to[2 * n + 1] = toFloat(right[n]);
    }
}

struct Kernel {
    AVSampleFormat format;
    void (*run)(const AVFrame&, std::size_t, std::size_t, std::span<float>);
};

constexpr std::array kKernels = {
    Kernel{AV_SAMPLE_FMT_FLTP, &planar<float>},
    Kernel{AV_SAMPLE_FMT_S16, &packed<std::int16_t>},
    Kernel{AV_SAMPLE_FMT_S16P, &planar<std::int16_t>},
    Kernel{AV_SAMPLE_FMT_S32, &packed<std::int32_t>},
    Kernel{AV_SAMPLE_FMT_S32P, &planar<std::int32_t>},
    Kernel{AV_SAMPLE_FMT_FLT, &packed<float>},
    Kernel{AV_SAMPLE_FMT_U8, &packed<std::uint8_t>},
    Kernel{AV_SAMPLE_FMT_U8P, &planar<std::uint8_t>},
    Kernel{AV_SAMPLE_FMT_DBL, &packed<double>},
    Kernel{AV_SAMPLE_FMT_DBLP, &planar<double>},
};

} // namespace

void SampleConverter::convert(const AVFrame& frame, std::size_t first, std::size_t channels,
                              std::span<float> out) noexcept {
    if (frame.ch_layout.nb_channels != static_cast<int>(channels)) {
        if (!mix(frame, first, channels, out)) {
            std::ranges::fill(out, 0.0F);
        }
        return;
    }
    const auto* const kernel = std::ranges::find_if(
        kKernels, [&](const Kernel& candidate) { return candidate.format == frame.format; });
    if (kernel == kKernels.end()) {
        std::ranges::fill(out, 0.0F);
        return;
    }
    kernel->run(frame, first, channels, out);
}

bool SampleConverter::mix(const AVFrame& frame, std::size_t first, std::size_t channels,
                          std::span<float> out) noexcept {
    if (frame.ch_layout.nb_channels > kMostChannels || !prepareMixer(frame, channels)) {
        return false;
    }
    const auto format = static_cast<AVSampleFormat>(frame.format);
    const auto inputs = static_cast<std::size_t>(frame.ch_layout.nb_channels);
    const auto bytes = static_cast<std::size_t>(av_get_bytes_per_sample(format));
    const bool isPlanar = av_sample_fmt_is_planar(format) != 0;
    const std::size_t offset = first * bytes * (isPlanar ? 1 : inputs);
    std::array<const std::uint8_t*, kMostChannels> planes = {};
    const std::size_t planeCount = isPlanar ? inputs : 1;
    for (std::size_t n = 0; n < planeCount; ++n) {
        planes[n] = frame.extended_data[n] + offset;
    }
    auto* to = static_cast<std::uint8_t*>(static_cast<void*>(out.data()));
    const auto count = static_cast<int>(out.size() / channels);
    return swr_convert(mixer_.get(), &to, count, planes.data(), count) == count;
}

bool SampleConverter::prepareMixer(const AVFrame& frame, std::size_t channels) noexcept {
    const bool same = mixer_ && mixerFormat_ == frame.format && mixerChannels_ == channels &&
                      av_channel_layout_compare(&mixerLayout_, &frame.ch_layout) == 0;
    if (same) {
        return true;
    }
    mixer_.reset();
    AVChannelLayout in = {};
    AVChannelLayout out = {};
    const bool known = frame.ch_layout.order == AV_CHANNEL_ORDER_NATIVE;
    if (known) {
        in = frame.ch_layout; // a native layout owns no memory
    } else {
        av_channel_layout_default(&in, frame.ch_layout.nb_channels);
    }
    av_channel_layout_default(&out, static_cast<int>(channels));
    SwrContext* context = nullptr;
    const int result = swr_alloc_set_opts2(&context, &out, AV_SAMPLE_FMT_FLT, frame.sample_rate,
                                           &in, static_cast<AVSampleFormat>(frame.format),
                                           frame.sample_rate, 0, nullptr);
    mixer_.reset(context);
    if (result < 0) {
        return false;
    }
    av_opt_set_double(context, "rematrix_maxval", 1.0, 0);
    av_opt_set_sample_fmt(context, "internal_sample_fmt", AV_SAMPLE_FMT_FLTP, 0);
    if (swr_init(context) < 0) {
        mixer_.reset();
        return false;
    }
    mixerFormat_ = frame.format;
    mixerChannels_ = channels;
    mixerLayout_ = frame.ch_layout;
    return true;
}

} // namespace tovik::sound::ffmpeg
