// SPDX-License-Identifier: GPL-3.0-or-later
// The mark on the position bar. Interface thread.
#pragma once

#include "window/MainElements.h"

#include <algorithm>

namespace tovik::window {

/// Puts the left edge of the mark `along` skin pixels from the left end of its bar, but no part of
/// it beyond either end: beside the bar nothing of it would be seen.
inline void placeMark(MainElements& elements, double along) {
    const ui::Element& bar = elements.get(MainElement::posbar);
    const double most = std::max(bar.width - elements.get(MainElement::track).width, 0.0);
    const double left = bar.left + std::clamp(along, 0.0, most);
    elements.touch(MainElement::track).left = left;
}

} // namespace tovik::window
