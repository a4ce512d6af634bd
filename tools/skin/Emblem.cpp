// SPDX-License-Identifier: GPL-3.0-or-later
#include "Emblem.h"

#include <array>

namespace tovik::skinart {

QPainterPath emblemPath() {
    constexpr double kBar = 2;
    constexpr double kPitch = 2.75;
    constexpr double kTop = 2.5;
    constexpr std::array kLengths{3.2, 6.4, 11.4, 6.4, 3.2};
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    double left = 8 - 2 * kPitch - kBar / 2;
    path.addRoundedRect(QRectF(left, kTop, 4 * kPitch + kBar, kBar), kBar / 2, kBar / 2);
    for (const double length : kLengths) {
        path.addRoundedRect(QRectF(left, kTop, kBar, length), kBar / 2, kBar / 2);
        left += kPitch;
    }
    return path.simplified();
}

} // namespace tovik::skinart
