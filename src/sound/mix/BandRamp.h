// SPDX-License-Identifier: GPL-3.0-or-later
// Where one band of the equalizer stands and where it goes. Used on the thread that mixes.
#pragma once

#include "sound/mix/PeakingFilter.h"

#include <cstddef>

namespace tovik::sound {

/// A band in the terms of the cascade. For frozen values the filter is stable in a triangle of
/// (frequencySquared, feedback); a straight way between two points of it stays inside.
struct BandPoint {
    double gain = 0.0;             ///< b0 - 1
    double frequencySquared = 0.0; ///< 1 + a1 + a2
    double feedback = 0.0;         ///< -1 - a1
};

class BandRamp {
public:
    static constexpr std::size_t kGlideFrames = 224; ///< 5 ms

    /// A neutral target keeps the poles and only takes the gain away; from rest the poles stand at
    /// the target at once and only the gain grows.
    void goTo(const BandCoefficients& target) noexcept;

    /// Goes on by `frames`.
    void advance(std::size_t frames) noexcept;

    /// Stands at the target at once.
    void finish() noexcept { advance(remaining_); }

    /// The band has nothing to do any more. Only when it is `fadingOut`.
    void rest() noexcept { resting_ = true; }

    [[nodiscard]] bool resting() const noexcept { return resting_; }

    [[nodiscard]] bool ramping() const noexcept { return remaining_ > 0; }

    /// It has no gain any more, but may still ring.
    [[nodiscard]] bool fadingOut() const noexcept { return !ramping() && now_.gain == 0.0; }

    [[nodiscard]] const BandPoint& now() const noexcept { return now_; }

private:
    BandPoint now_;
    BandPoint target_;
    std::size_t remaining_ = 0;
    bool resting_ = true;
};

} // namespace tovik::sound
