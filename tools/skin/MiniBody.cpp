// SPDX-License-Identifier: GPL-3.0-or-later
#include "MiniBody.h"

#include "base/RuntimeError.h"
#include "Body.h"
#include "Metal.h"
#include "Shapes.h"

#include <cmath>

namespace tovik::skinart {

namespace {

using N = window::MiniElement;

constexpr QRectF kWindow(0, 0, 160, 125);
constexpr double kFirst = 33; ///< where the body begins right of the ear
constexpr double kCorner = 9;
constexpr double kEarTop = 36;
constexpr double kEarBottom = 94;
constexpr double kEarLeft = 14;

/// Two sheets in one: title and bar above, what belongs to the sound below them.
QPainterPath glassShape() {
    const QPainterPath upper = rounded({36.5, 7.5, 119, 50}, 6);
    const QPainterPath lower = rounded({36.5, 40.5, 75, 44.5}, 5);
    return upper.united(lower);
}

/// Where the spectrum is drawn it is black.
void paintSpectrumBed(QPainter& painter) {
    const QRectF bed = miniRectOf(N::Picture1);
    painter.fillRect(bed.adjusted(-1, -1, 1, 1), QColor::fromRgb(kGlassLine));
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
    paintMetal(painter, kWindow, 20);
    for (const QPointF screw :
         {QPointF(25.5, 40.5), QPointF(25.5, 89.5), QPointF(153.5, 65.5), QPointF(153.5, 113.5)}) {
        paintScrew(painter, screw, 2.5);
    }
    paintGlass(painter, glassShape());
    paintSpectrumBed(painter);
    paintBed(painter, {37, 85.5, 75, 13.5}, 5);
    paintGlass(painter, {36, 99, 76, 24}, 5);
    paintRim(painter, miniOutline(), kWindow.height());
}

void paintMiniBodyUnder(QPainter& painter, const QRectF& box) {
    paintPart(painter, box, paintMiniBody);
}

} // namespace tovik::skinart
