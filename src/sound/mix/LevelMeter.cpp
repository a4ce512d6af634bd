// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/LevelMeter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>

namespace tovik::sound {

namespace {

constexpr float kFullLevel = 128.0F;
constexpr std::int32_t kSizeBits = 0x7FFFFFFF;
constexpr std::int32_t kInfinity = 0x7F800000;

/// Samples looked at together; an even number, so that a place always holds the same side.
constexpr std::size_t kTogether = 16;

/// The pattern of the absolute value, which grows with it; 0 for something that is no number.
/// Patterns are compared, not values: the mixer treats tiny numbers as 0, but they are no silence.
std::int32_t sizeOf(float sample) noexcept {
    const std::int32_t bits = std::bit_cast<std::int32_t>(sample) & kSizeBits;
    return bits > kInfinity ? 0 : bits;
}

std::uint32_t levelOf(float peak) noexcept {
    if (sizeOf(peak) == 0) {
        return 0;
    }
    return static_cast<std::uint32_t>(std::clamp(std::ceil(peak * kFullLevel), 1.0F, kFullLevel));
}

} // namespace

StereoPeak measureLevel(std::span<const float> interleaved) noexcept {
    std::array<std::int32_t, kTogether> peaks{};
    std::size_t at = 0;
    for (; at + kTogether <= interleaved.size(); at += kTogether) {
        for (std::size_t i = 0; i < kTogether; ++i) {
            peaks[i] = std::max(peaks[i], sizeOf(interleaved[at + i]));
        }
    }
    for (std::size_t i = 0; at + i < interleaved.size(); ++i) {
        peaks[i] = std::max(peaks[i], sizeOf(interleaved[at + i]));
    }
    for (std::size_t i = 2; i < kTogether; ++i) {
        peaks[i % 2] = std::max(peaks[i % 2], peaks[i]);
    }
    return {std::bit_cast<float>(peaks[0]), std::bit_cast<float>(peaks[1])};
}

std::uint32_t packLevel(StereoPeak peak) noexcept {
    return levelOf(peak.left) | levelOf(peak.right) << 16U;
}

} // namespace tovik::sound
