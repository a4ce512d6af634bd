// SPDX-License-Identifier: GPL-3.0-or-later
#include "Emblem.h"

#include <array>

namespace tovik::skinart {

QPainterPath emblemPath() {
    constexpr double kBar = 2;
    constexpr double kPitch = 3;
    constexpr double kTop = 2;
    constexpr std::array kLengths{4.0, 4.0, 12.0, 4.0, 4.0};
    QPainterPath path;
    double left = 8 - 2 * kPitch - kBar / 2;
    for (const double length : kLengths) {
        path.addRoundedRect(QRectF(left, kTop, kBar, length), kBar / 2, kBar / 2);
        left += kPitch;
    }
    return path;
}

} // namespace tovik::skinart
