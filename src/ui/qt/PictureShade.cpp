// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/PictureShade.h"

#include <algorithm>

namespace tovik::ui {

namespace {

constexpr int kWhole = 100;
constexpr int kLighterPercent = 130;
constexpr int kDarkerPercent = 62;

QRgb multiplied(QRgb pixel, int percent) {
    const int alpha = qAlpha(pixel);
    const auto channel = [&](int value) { return std::min(value * percent / kWhole, alpha); };
    return qRgba(channel(qRed(pixel)), channel(qGreen(pixel)), channel(qBlue(pixel)), alpha);
}

} // namespace

QImage shaded(const QImage& picture, Shade shade) {
    QImage result = picture.copy();
    if (shade == Shade::None) {
        return result;
    }
    const int percent = shade == Shade::Lighter ? kLighterPercent : kDarkerPercent;
    for (int y = 0; y < result.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(result.scanLine(y));
        std::transform(row, row + result.width(), row,
                       [percent](QRgb pixel) { return multiplied(pixel, percent); });
    }
    return result;
}

} // namespace tovik::ui
