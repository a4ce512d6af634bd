// SPDX-License-Identifier: GPL-3.0-or-later
#include "Families.h"
#include "Palette.h"
#include "Strokes.h"

#include <array>
#include <cmath>
#include <string>

namespace tovik::skinart {

namespace {

using N = window::MainElement;

// The digits fill a field of 9 by 13 inside a cell of 14 by 17; lines run through these places.
constexpr double kLeft = 2.6;
constexpr double kRight = 11.4;
constexpr double kTop = 2;
constexpr double kBottom = 15;
constexpr double kMiddle = 8.2;
constexpr double kCentre = (kLeft + kRight) / 2;
constexpr double kStroke = 2.3;

using Steps = void (*)(QPainterPath&);

void zero(QPainterPath& path) {
    path.addRoundedRect(QRectF(QPointF(kLeft, kTop), QPointF(kRight, kBottom)), 4.2, 4.2);
}

void one(QPainterPath& path) {
    path.moveTo(kCentre - 2.8, kTop + 2.6);
    path.lineTo(kCentre + 0.8, kTop);
    path.lineTo(kCentre + 0.8, kBottom);
}

void two(QPainterPath& path) {
    path.moveTo(kLeft, 5.6);
    path.cubicTo(kLeft, 0.8, kRight, 0.8, kRight, 5.6);
    path.cubicTo(kRight, 8.6, kLeft, 11, kLeft, kBottom);
    path.lineTo(kRight, kBottom);
}

void three(QPainterPath& path) {
    path.moveTo(kLeft, kTop);
    path.lineTo(kRight, kTop);
    path.lineTo(kCentre, kMiddle - 1.2);
    path.cubicTo(kRight + 1, kMiddle - 1.2, kRight + 1, kBottom, kCentre - 0.4, kBottom);
    path.cubicTo(kCentre - 2, kBottom, kLeft + 0.6, kBottom - 0.6, kLeft, kBottom - 2.2);
}

void four(QPainterPath& path) {
    path.moveTo(kRight - 2, kBottom);
    path.lineTo(kRight - 2, kTop);
    path.lineTo(kLeft, kBottom - 4);
    path.lineTo(kRight, kBottom - 4);
}

void five(QPainterPath& path) {
    path.moveTo(kRight - 0.6, kTop);
    path.lineTo(kLeft + 0.6, kTop);
    path.lineTo(kLeft + 0.2, kMiddle);
    path.cubicTo(kCentre, kMiddle - 2.2, kRight, kMiddle - 1.6, kRight, kMiddle + 2.6);
    path.cubicTo(kRight, kBottom + 0.6, kLeft + 1.4, kBottom + 1.2, kLeft, kBottom - 1.8);
}

void six(QPainterPath& path) {
    path.addEllipse(QRectF(QPointF(kLeft, kMiddle - 1.4), QPointF(kRight, kBottom)));
    path.moveTo(kRight - 2, kTop);
    path.cubicTo(kLeft + 1.6, kTop + 1.6, kLeft, kMiddle - 1, kLeft, kMiddle + 2.6);
}

void seven(QPainterPath& path) {
    path.moveTo(kLeft, kTop);
    path.lineTo(kRight, kTop);
    path.lineTo(kCentre - 0.8, kBottom);
}

void eight(QPainterPath& path) {
    path.addEllipse(QRectF(QPointF(kLeft + 0.7, kTop), QPointF(kRight - 0.7, kMiddle - 0.3)));
    path.addEllipse(QRectF(QPointF(kLeft, kMiddle - 0.3), QPointF(kRight, kBottom)));
}

void nine(QPainterPath& path) {
    path.addEllipse(QRectF(QPointF(kLeft, kTop), QPointF(kRight, kMiddle + 1.4)));
    path.moveTo(kLeft + 2, kBottom);
    path.cubicTo(kRight - 1.6, kBottom - 1.6, kRight, kMiddle + 1, kRight, kMiddle - 2.6);
}

/// The minus stands before the first digit, which covers the right part of its cell.
void minus(QPainterPath& path) {
    path.moveTo(3.6, 8.6);
    path.lineTo(8.6, 8.6);
}

/// The next digit's cell begins five pixels after the colon's.
void colon(QPainterPath& path) {
    for (const double y : {5.6, 11.4}) {
        path.moveTo(2.6, y);
        path.lineTo(2.6, y + 0.01);
    }
}

constexpr std::array<Steps, 10> kDigits{zero, one, two, three, four, five, six, seven, eight, nine};

Drawing cell(std::string name, Spot kept, Steps steps) {
    return drawingFor(std::move(name), {N::timed, 1}, kept, [steps](QPainter& painter) {
        painter.fillRect(QRectF(0, 0, 14, 17), QColor::fromRgb(kGlass));
        QPainterPath path;
        steps(path);
        QColor halo = QColor::fromRgb(kGlow);
        halo.setAlpha(34);
        painter.fillPath(placed(stroked(path, kStroke + 2.2)), halo);
        painter.fillPath(placed(stroked(path, kStroke)), QColor::fromRgb(kGlow));
    });
}

} // namespace

Drawings digitDrawings() {
    Drawings all;
    for (std::size_t digit = 0; digit < kDigits.size(); ++digit) {
        all.push_back(cell(std::to_string(digit), {N::Digit, digit}, kDigits.at(digit)));
    }
    all.push_back(cell("dash", {N::timed, 0}, minus));
    all.push_back(cell("dbldot", {N::timed, 3}, colon));
    return all;
}

} // namespace tovik::skinart
