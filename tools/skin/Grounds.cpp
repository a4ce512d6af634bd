// SPDX-License-Identifier: GPL-3.0-or-later
#include "Grounds.h"

#include "Shapes.h"

namespace tovik::skinart {

namespace {

using N = window::MainElement;

/// Paints one element's box as seen from the corner of another.
void shifted(QPainter& painter, const QRectF& from, const QRectF& to,
             const std::function<void(const QRectF&)>& paint) {
    painter.save();
    painter.translate(from.topLeft() - to.topLeft());
    paint(QRectF(QPointF(0, 0), from.size()));
    painter.restore();
}

} // namespace

Ground paintScreenUnder(Spot spot) {
    return [spot](QPainter& painter) {
        shifted(painter, rectOf({N::ScreenIMG}), rectOf(spot),
                [&painter](const QRectF& box) { paintGlass(painter, box, kGlassRadius); });
    };
}

Ground paintCardUnder(N card, double head, Spot spot) {
    return [card, head, spot](QPainter& painter) {
        shifted(painter, rectOf({card}), rectOf(spot),
                [&painter, head](const QRectF& box) { paintCard(painter, box, head); });
    };
}

} // namespace tovik::skinart
