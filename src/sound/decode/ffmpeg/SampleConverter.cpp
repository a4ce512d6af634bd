// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/ffmpeg/SampleConverter.h"

#include "sound/decode/Downmix.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>

namespace tovik::sound::ffmpeg {
namespace {

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
    float* const to = out.data();
    for (std::size_t c = 0; c < channels; ++c) {
        const T* const plane = samples<T>(frame, c) + first;
        for (std::size_t n = 0; n < count; ++n) {
            to[n * channels + c] = toFloat(plane[n]);
        }
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

// Whole frames of all the channels that `frame` has.
void convertAll(const AVFrame& frame, std::size_t first, std::size_t channels,
                std::span<float> out) {
    const auto* const kernel = std::ranges::find_if(
        kKernels, [&](const Kernel& candidate) { return candidate.format == frame.format; });
    if (kernel == kKernels.end()) {
        std::ranges::fill(out, 0.0F);
        return;
    }
    kernel->run(frame, first, channels, out);
}

// The library numbers speakers as the mask of WAVEFORMATEXTENSIBLE does.
std::vector<Speaker> speakersOf(const AVChannelLayout& layout) {
    const auto channels = static_cast<std::size_t>(layout.nb_channels);
    if (layout.order != AV_CHANNEL_ORDER_NATIVE) {
        return usualSpeakers(channels);
    }
    std::vector<Speaker> speakers;
    for (unsigned n = 0; n < channels; ++n) {
        const AVChannel channel = av_channel_layout_channel_from_index(&layout, n);
        speakers.push_back(channel >= 0 && channel < static_cast<int>(Speaker::unknown)
                               ? static_cast<Speaker>(channel)
                               : Speaker::unknown);
    }
    return speakers;
}

} // namespace

void SampleConverter::convert(const AVFrame& frame, std::size_t first, std::size_t channels,
                              std::span<float> out) {
    if (frame.ch_layout.nb_channels == static_cast<int>(channels)) {
        convertAll(frame, first, channels, out);
    } else {
        mix(frame, first, channels, out);
    }
}

void SampleConverter::mix(const AVFrame& frame, std::size_t first, std::size_t channels,
                          std::span<float> out) {
    const auto inputs = static_cast<std::size_t>(frame.ch_layout.nb_channels);
    all_.resize(out.size() / channels * inputs);
    convertAll(frame, first, inputs, all_);
    if (channels == 2) {
        Downmix(speakersOf(frame.ch_layout)).mix(all_, out);
        return;
    }
    // More channels than the stream began with, which was one: their mean.
    for (std::size_t n = 0; n < out.size(); ++n) {
        const std::span<const float> one = std::span(all_).subspan(n * inputs, inputs);
        out[n] = std::accumulate(one.begin(), one.end(), 0.0F) / static_cast<float>(inputs);
    }
}

} // namespace tovik::sound::ffmpeg
