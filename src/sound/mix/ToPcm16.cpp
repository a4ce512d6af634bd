// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/ToPcm16.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace tovik::sound {

namespace {

constexpr float kScale = 32768.0F;
constexpr std::int32_t kSizeBits = 0x7FFFFFFF;
constexpr std::int32_t kInfinity = 0x7F800000;

/// Floats from 2^23 to 2^24 are whole numbers: adding 1.5 * 2^23 rounds, and the low bits of the
/// pattern are the result. Patterns of floats above 0 grow with them and those of floats below 0
/// are negative, so the pattern can be held to the range. Unlike the library's rounding, this has
/// no branch and is done for several samples at once.
constexpr float kRounder = 12582912.0F;
constexpr auto kZero = std::bit_cast<std::int32_t>(kRounder);

std::int16_t toInteger(float sample) noexcept {
    const auto pattern = std::bit_cast<std::int32_t>(sample * kScale + kRounder);
    const std::int32_t rounded = std::clamp(pattern, kZero - 32768, kZero + 32767) - kZero;
    const std::int32_t size = std::bit_cast<std::int32_t>(sample) & kSizeBits;
    const std::int32_t numberMask = -static_cast<std::int32_t>(size <= kInfinity);
    return static_cast<std::int16_t>(rounded & numberMask);
}

} // namespace

void toPcm16(std::span<const float> samples, std::span<std::int16_t> pcm) noexcept {
    const std::size_t count = std::min(samples.size(), pcm.size());
    for (std::size_t i = 0; i < count; ++i) {
        pcm[i] = toInteger(samples[i]);
    }
}

} // namespace tovik::sound
