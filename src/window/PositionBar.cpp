// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/PositionBar.h"

#include "base/Numbers.h"
#include "ui/Twips.h"
#include "window/PositionMark.h"

#include <algorithm>

namespace tovik::window {

namespace {

constexpr double kAll = 100;

} // namespace

void PositionBar::moveMark(double x) {
    const double width = elements_.get(MainElement::posbar).width;
    placeMark(elements_, std::clamp(x, 0.0, width - 1) + ui::kPointerWidth);
}

double PositionBar::percentAt(double x) const {
    const double width = elements_.get(MainElement::posbar).width;
    return std::clamp(base::divide(x * kAll, width - 1), 0.0, kAll);
}

} // namespace tovik::window
