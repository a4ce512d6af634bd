// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MiniPosition.h"

#include "base/Numbers.h"
#include "window/MiniDisplay.h"

#include <algorithm>

namespace tovik::window {

void MiniPosition::moveMark(double x) {
    showPlayed(elements_, filledBy(x));
}

double MiniPosition::filledBy(double x) const {
    return comfort_.aimsAtPointer ? std::clamp(x, 0.0, elements_.get(MiniElement::posbar).width)
                                  : playedAt(x);
}

double MiniPosition::percentAt(double x) const {
    constexpr double kAll = 100;
    const double onePercent = elements_.get(MiniElement::posbar).width / kAll;
    return std::clamp(base::divide(filledBy(x), onePercent), 0.0, kAll);
}

} // namespace tovik::window
