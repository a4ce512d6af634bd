// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/ClipGuard.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace tovik::sound {

namespace {

constexpr std::int32_t kSizeBits = 0x7FFFFFFF;
constexpr std::int32_t kFullScale = std::bit_cast<std::int32_t>(1.0F);
constexpr double kReleaseFrames = 6615.0; ///< 150 ms
constexpr float kNoReduction = 1e-4F;     ///< less is none
const float kRelease = static_cast<float>(std::exp(-1.0 / kReleaseFrames));

/// Also false when a sample is no number: its pattern is larger than that of any number.
bool withinFullScale(std::span<const float> interleaved) noexcept {
    std::int32_t largest = 0;
    for (const float sample : interleaved) {
        largest = std::max(largest, std::bit_cast<std::int32_t>(sample) & kSizeBits);
    }
    return largest <= kFullScale;
}

float finite(float sample) noexcept {
    return std::isfinite(sample) ? sample : 0.0F;
}

} // namespace

void ClipGuard::process(std::span<float> interleaved) noexcept {
    if (reduction_ == 0.0F && withinFullScale(interleaved)) {
        return;
    }
    for (std::size_t i = 0; i + 1 < interleaved.size(); i += 2) {
        const float left = finite(interleaved[i]);
        const float right = finite(interleaved[i + 1]);
        const float peak = std::max(std::abs(left), std::abs(right));
        reduction_ *= kRelease;
        if (reduction_ < kNoReduction) {
            reduction_ = 0.0F;
        }
        if (peak > 1.0F) {
            reduction_ = std::max(reduction_, 1.0F - 1.0F / peak);
        }
        // The gain may be rounded up by a hair.
        interleaved[i] = std::clamp(left * gain(), -1.0F, 1.0F);
        interleaved[i + 1] = std::clamp(right * gain(), -1.0F, 1.0F);
    }
}

} // namespace tovik::sound
