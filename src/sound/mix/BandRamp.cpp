// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/BandRamp.h"

#include <algorithm>
#include <cmath>

namespace tovik::sound {

void BandRamp::goTo(const BandCoefficients& target) noexcept {
    if (target.neutral()) {
        if (resting_) {
            return;
        }
        target_ = {0.0, now_.frequencySquared, now_.feedback};
    } else {
        target_ = {target.b0 - 1.0, 1.0 + target.a1 + target.a2, -1.0 - target.a1};
        if (resting_) {
            now_ = {0.0, target_.frequencySquared, target_.feedback};
        }
        resting_ = false;
    }
    remaining_ = kGlideFrames;
}

void BandRamp::advance(std::size_t frames) noexcept {
    if (frames >= remaining_) {
        now_ = resting_ ? now_ : target_;
        remaining_ = 0;
        return;
    }
    const double part = static_cast<double>(frames) / static_cast<double>(remaining_);
    now_.gain = std::lerp(now_.gain, target_.gain, part);
    now_.frequencySquared = std::lerp(now_.frequencySquared, target_.frequencySquared, part);
    now_.feedback = std::lerp(now_.feedback, target_.feedback, part);
    remaining_ -= frames;
}

} // namespace tovik::sound
