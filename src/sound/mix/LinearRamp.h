// SPDX-License-Identifier: GPL-3.0-or-later
// A value that goes to its target in equal steps, one a frame. One thread.
#pragma once

#include <cstdint>

namespace tovik::sound {

class LinearRamp {
public:
    LinearRamp() noexcept = default;

    explicit LinearRamp(float value) noexcept : value_(value), target_(value) {}

    /// Stands at `value` at once.
    void jumpTo(float value) noexcept {
        value_ = target_ = value;
        remaining_ = 0;
    }

    /// From where it stands to `target` within `frames` steps; 0 frames jump.
    void rampTo(float target, std::int64_t frames) noexcept {
        if (frames <= 0) {
            jumpTo(target);
            return;
        }
        target_ = target;
        remaining_ = frames;
        step_ = (static_cast<double>(target) - static_cast<double>(value_)) /
                static_cast<double>(frames);
    }

    /// Goes one step and returns the value there; the last step is exactly the target.
    float next() noexcept {
        advance(1);
        return value_;
    }

    /// Goes `frames` steps.
    void advance(std::int64_t frames) noexcept {
        if (remaining_ == 0) {
            return;
        }
        remaining_ = frames < remaining_ ? remaining_ - frames : 0;
        // Counted from the target, so that rounding does not add up over long ramps.
        value_ = remaining_ == 0 ? target_
                                 : static_cast<float>(static_cast<double>(target_) -
                                                      step_ * static_cast<double>(remaining_));
    }

    [[nodiscard]] bool settled() const noexcept { return remaining_ == 0; }

    /// Steps left to the target.
    [[nodiscard]] std::int64_t framesLeft() const noexcept { return remaining_; }

    [[nodiscard]] float value() const noexcept { return value_; }

    [[nodiscard]] float target() const noexcept { return target_; }

private:
    float value_ = 0.0F;
    float target_ = 0.0F;
    double step_ = 0.0;
    std::int64_t remaining_ = 0;
};

} // namespace tovik::sound
