// SPDX-License-Identifier: GPL-3.0-or-later
#include "Metal.h"

#include "Shapes.h"

#include <cstdint>
#include <QLinearGradient>
#include <QPen>

namespace tovik::skinart {

namespace {

QColor colourOf(QRgb value) {
    return QColor::fromRgba(value);
}

/// Hairlines along the metal, the same each time: their strength comes from their number.
void paintBrush(QPainter& painter, const QRectF& window) {
    constexpr double kPitch = 0.5;
    constexpr std::uint32_t kStrength = 11;
    std::uint32_t state = 0x9E3779B9;
    for (double y = 0; y < window.height(); y += kPitch) {
        state = state * 1664525U + 1013904223U;
        const std::uint32_t alpha = (state >> 24) % kStrength;
        const bool light = (state >> 16 & 1) != 0;
        painter.fillRect(
            QRectF(0, y, window.width(), kPitch),
            QColor(light ? 255 : 0, light ? 255 : 0, light ? 255 : 20, static_cast<int>(alpha)));
    }
}

} // namespace

void paintMetal(QPainter& painter, const QRectF& window, double sheen) {
    painter.fillRect(window.adjusted(-2, -2, 2, 2), downwards(window, kShell));
    const QRectF lit(0, 0, window.width(), sheen);
    painter.fillRect(lit, downwards(lit, {0x40FFFFFF, 0x00FFFFFF}));
    paintBrush(painter, window);
}

void paintScrew(QPainter& painter, QPointF middle, double radius) {
    const double slot = radius * 3 / 7;
    const QRectF head(middle.x() - radius, middle.y() - radius, 2 * radius, 2 * radius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colourOf(0x50FFFFFF));
    painter.drawEllipse(head.translated(0, 0.8));
    painter.setBrush(colourOf(kShellFoot));
    painter.drawEllipse(head);
    painter.setBrush(downwards(head, {0xFFC3C9EE, 0xFF5A61A0}));
    painter.drawEllipse(head.adjusted(0.8, 0.8, -0.8, -0.8));
    painter.setPen(QPen(colourOf(kShellFoot), 1.1, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(middle - QPointF(slot, slot), middle + QPointF(slot, slot));
    painter.drawLine(middle - QPointF(slot, -slot), middle + QPointF(slot, -slot));
}

void paintBed(QPainter& painter, const QRectF& box, double radius) {
    painter.fillPath(rounded(box.translated(0, 1), radius), colourOf(0x30FFFFFF));
    painter.fillPath(rounded(box, radius), downwards(box, {0xB00C0D1E, 0x500C0D1E}));
}

} // namespace tovik::skinart
