// SPDX-License-Identifier: GPL-3.0-or-later
// Turns of a wheel as whole steps; fine wheels report parts of a notch. Interface thread.
#pragma once

#include <cmath>

namespace tovik::ui {

class WheelNotches {
public:
    /// The whole notches that a turn completes, positive away from the user; the rest is kept.
    [[nodiscard]] double whole(double notches) noexcept {
        turned_ += notches;
        const double complete = std::trunc(turned_);
        turned_ -= complete;
        return complete;
    }

private:
    double turned_ = 0;
};

} // namespace tovik::ui
