// SPDX-License-Identifier: GPL-3.0-or-later
#include "MiniBody.h"

#include "base/RuntimeError.h"
#include "Body.h"
#include "Shapes.h"

#include <cmath>
#include <QPen>

namespace tovik::skinart {

namespace {

using N = window::MiniElement;

constexpr QRectF kWindow(0, 0, 160, 125);
constexpr double kFirst = 33; ///< where the body begins right of the ear
constexpr double kCorner = 9;
constexpr double kEarTop = 36;
constexpr double kEarBottom = 94;
constexpr double kEarLeft = 14;

QColor colourOf(QRgb value) {
    return QColor::fromRgba(value);
}

/// Two sheets in one: title and bar above, what belongs to the sound below them.
QPainterPath glassShape() {
    const QPainterPath upper = rounded({36, 8, 120, 50}, 6);
    const QPainterPath lower = rounded({36, 44, 75, 41.5}, 6);
    return upper.united(lower);
}

void paintSheet(QPainter& painter, const QPainterPath& shape) {
    painter.fillPath(shape.translated(0, 1), colourOf(0x50FFFFFF));
    painter.fillPath(shape, colourOf(kMiniGlass));
    painter.save();
    painter.setClipPath(shape);
    const QRectF upper(shape.boundingRect().left(), shape.boundingRect().top(),
                       shape.boundingRect().width(), 4);
    painter.fillRect(upper, downwards(upper, {0xB0000000, kNothing}));
    painter.restore();
    painter.strokePath(shape, QPen(colourOf(kGlassEdge), 1));
}

/// Where the spectrum is drawn it is black.
void paintSpectrumBed(QPainter& painter) {
    const QRectF bed = miniRectOf(N::Picture1);
    painter.fillRect(bed.adjusted(-1, -1, 1, 1), colourOf(kGlassLine));
    painter.fillRect(bed, Qt::black);
}

} // namespace

QRectF miniRectOf(window::MiniElement name, std::size_t index) {
    for (const auto& place : window::miniLayout()) {
        if (place.name == name && index >= place.first && index < place.first + place.count) {
            const ui::Box box = ui::elementAt(place, index - place.first).box();
            return {std::floor(box.left), std::floor(box.top), std::floor(box.width),
                    std::floor(box.height)};
        }
    }
    throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
}

QPainterPath miniOutline() {
    const double right = kWindow.right();
    const double bottom = kWindow.bottom();
    constexpr double kSlope = 10;
    QPainterPath path(QPointF(kFirst + kCorner, 0));
    path.lineTo(right - kCorner, 0);
    path.quadTo(right, 0, right, kCorner);
    path.lineTo(right, bottom - kCorner);
    path.quadTo(right, bottom, right - kCorner, bottom);
    path.lineTo(kFirst + kCorner, bottom);
    path.quadTo(kFirst, bottom, kFirst, bottom - kCorner);
    path.lineTo(kFirst, kEarBottom + kSlope);
    path.cubicTo(kFirst, kEarBottom + 2, kEarLeft, kEarBottom, kEarLeft, kEarBottom - kSlope);
    path.lineTo(kEarLeft, kEarTop + kSlope);
    path.cubicTo(kEarLeft, kEarTop, kFirst, kEarTop - 2, kFirst, kEarTop - kSlope);
    path.lineTo(kFirst, kCorner);
    path.quadTo(kFirst, 0, kFirst + kCorner, 0);
    path.closeSubpath();
    return path;
}

void paintMiniBody(QPainter& painter) {
    // The edge is cut without smoothing, so the shell goes on beyond it.
    painter.fillRect(kWindow.adjusted(-2, -2, 2, 2), downwards(kWindow, kShell));
    const QRectF top(0, 0, kWindow.width(), 20);
    painter.fillRect(top, downwards(top, {0x40FFFFFF, 0x00FFFFFF}));
    paintSheet(painter, glassShape());
    paintSpectrumBed(painter);
    paintSheet(painter, rounded({36.5, 99.5, 74, 23}, 4));
    paintRim(painter, miniOutline(), kWindow.height());
}

void paintMiniBodyUnder(QPainter& painter, const QRectF& box) {
    paintPart(painter, box, paintMiniBody);
}

} // namespace tovik::skinart
