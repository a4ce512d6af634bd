// SPDX-License-Identifier: GPL-3.0-or-later
#include "Emblem.h"

namespace tovik::skinart {

std::array<QRectF, 5> emblemBars() {
    constexpr double kBar = 2;
    constexpr double kPitch = 3;
    constexpr double kTop = 2;
    constexpr std::array kLengths{4.0, 4.0, 12.0, 4.0, 4.0};
    std::array<QRectF, 5> bars;
    double left = 8 - 2 * kPitch - kBar / 2;
    for (std::size_t i = 0; i < bars.size(); ++i) {
        bars.at(i) = QRectF(left, kTop, kBar, kLengths.at(i));
        left += kPitch;
    }
    return bars;
}

QPainterPath emblemPath() {
    QPainterPath path;
    for (const QRectF& bar : emblemBars()) {
        path.addRoundedRect(bar, bar.width() / 2, bar.width() / 2);
    }
    return path;
}

} // namespace tovik::skinart
