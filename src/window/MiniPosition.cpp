// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MiniPosition.h"

#include "base/Numbers.h"
#include "window/MiniDisplay.h"

#include <algorithm>

namespace tovik::window {

void MiniPosition::moveMark(double x) {
    showPlayed(elements_, playedAt(x));
}

double MiniPosition::percentAt(double x) const {
    constexpr double kAll = 100;
    const double onePercent = elements_.get(MiniElement::posbar).width / kAll;
    return std::clamp(base::divide(playedAt(x), onePercent), 0.0, kAll);
}

} // namespace tovik::window
