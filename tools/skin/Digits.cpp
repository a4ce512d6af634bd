// SPDX-License-Identifier: GPL-3.0-or-later
#include "Families.h"
#include "Grounds.h"
#include "MiniBody.h"
#include "Shapes.h"
#include "Strokes.h"

#include <array>
#include <cmath>
#include <string>

namespace tovik::skinart {

namespace {

using N = window::MainElement;

// The digits fill a field of 10 by 14 inside a cell of 14 by 17. Lines run through these places:
// with their width they end where pixels do, so that straight ones are sharp at each size.
constexpr double kLeft = 3;
constexpr double kRight = 11;
constexpr double kTop = 3;
constexpr double kBottom = 15;
constexpr double kMiddle = 9;
constexpr double kCentre = 7;
constexpr double kStroke = 2.4;
constexpr double kHalo = 2.4; ///< beyond the stroke

using Steps = void (*)(QPainterPath&);

void zero(QPainterPath& path) {
    path.addRoundedRect(QRectF(QPointF(kLeft, kTop), QPointF(kRight, kBottom)), 4, 4);
}

void one(QPainterPath& path) {
    path.moveTo(kCentre - 2.4, kTop + 2.4);
    path.lineTo(kCentre + 1, kTop);
    path.lineTo(kCentre + 1, kBottom);
}

void two(QPainterPath& path) {
    path.moveTo(kLeft, 6.6);
    path.cubicTo(kLeft, 1.8, kRight, 1.8, kRight, 6.6);
    path.cubicTo(kRight, 9.4, kLeft, 11.4, kLeft, kBottom);
    path.lineTo(kRight, kBottom);
}

void three(QPainterPath& path) {
    path.moveTo(kLeft, kTop);
    path.lineTo(kRight - 0.4, kTop);
    path.lineTo(kCentre - 0.4, kMiddle - 1);
    path.cubicTo(kRight + 1.4, kMiddle - 1.4, kRight + 1.4, kBottom, kCentre, kBottom);
    path.cubicTo(kCentre - 2, kBottom, kLeft + 0.6, kBottom - 0.6, kLeft, kBottom - 2.4);
}

void four(QPainterPath& path) {
    path.moveTo(kRight - 2, kBottom);
    path.lineTo(kRight - 2, kTop);
    path.lineTo(kLeft, kBottom - 3.4);
    path.lineTo(kLeft, kBottom - 3);
    path.lineTo(kRight, kBottom - 3);
}

void five(QPainterPath& path) {
    path.moveTo(kRight - 0.6, kTop);
    path.lineTo(kLeft, kTop);
    path.lineTo(kLeft, kMiddle - 0.6);
    path.cubicTo(kCentre, kMiddle - 2.6, kRight, kMiddle - 1.8, kRight, kMiddle + 2.4);
    path.cubicTo(kRight, kBottom + 0.4, kLeft + 1.4, kBottom + 1, kLeft, kBottom - 2);
}

void six(QPainterPath& path) {
    path.addRoundedRect(QRectF(QPointF(kLeft, kMiddle - 1), QPointF(kRight, kBottom)), 3.5, 3.5);
    path.moveTo(kRight - 1.6, kTop);
    path.cubicTo(kLeft + 2, kTop + 0.6, kLeft, kMiddle - 2, kLeft, kMiddle + 2.4);
}

void seven(QPainterPath& path) {
    path.moveTo(kLeft, kTop);
    path.lineTo(kRight, kTop);
    path.lineTo(kCentre - 1, kBottom);
}

void eight(QPainterPath& path) {
    path.addRoundedRect(QRectF(QPointF(kLeft + 0.6, kTop), QPointF(kRight - 0.6, kMiddle)), 3, 3);
    path.addRoundedRect(QRectF(QPointF(kLeft, kMiddle), QPointF(kRight, kBottom)), 3, 3);
}

void nine(QPainterPath& path) {
    path.addRoundedRect(QRectF(QPointF(kLeft, kTop), QPointF(kRight, kMiddle + 1)), 3.5, 3.5);
    path.moveTo(kLeft + 1.6, kBottom);
    path.cubicTo(kRight - 2, kBottom - 0.6, kRight, kMiddle + 2, kRight, kMiddle - 2.4);
}

/// The minus stands before the first digit, which covers the right part of its cell.
void minus(QPainterPath& path) {
    path.moveTo(4, kMiddle);
    path.lineTo(9, kMiddle);
}

/// The next digit's cell begins five pixels after the colon's.
void colon(QPainterPath& path) {
    for (const double y : {6.2, 12.2}) {
        path.moveTo(2.5, y);
        path.lineTo(2.5, y + 0.6);
    }
}

constexpr std::array<Steps, 10> kDigits{zero, one, two, three, four, five, six, seven, eight, nine};

void paintSteps(QPainter& painter, Steps steps) {
    QPainterPath path;
    steps(path);
    QColor halo = QColor::fromRgb(kGlow);
    halo.setAlpha(38);
    painter.fillPath(placed(stroked(path, kStroke + kHalo)), halo);
    const QRectF cell(0, 0, 14, 17);
    painter.fillPath(placed(stroked(path, kStroke)), downwards(cell, {0xFFC4F4FF, 0xFF62DBFF}));
}

Drawing cell(std::string name, Spot kept, Steps steps) {
    return cutFrom(paintScreenUnder({N::timed, 1}),
                   drawingFor(std::move(name), {N::timed, 1}, kept,
                              [steps](QPainter& painter) { paintSteps(painter, steps); }));
}

// A cell of the mini window is smaller, and its lines begin further left.
constexpr QSize kMiniCell(10, 15);
constexpr double kMiniScale = 0.84;
constexpr double kMiniLeft = -0.9;

/// Its lines lie `shift` further to the right in the small cell.
Drawing miniCell(std::string name, Steps steps, double shift = 0) {
    return cutFrom(
        [](QPainter& painter) {
            paintMiniBodyUnder(painter, miniRectOf(window::MiniElement::timed, 1));
        },
        {.name = std::move(name),
         .size = kMiniCell,
         .paint =
             [steps, shift](QPainter& painter) {
                 painter.translate(kMiniLeft + shift, 0);
                 painter.scale(kMiniScale, kMiniScale);
                 paintSteps(painter, steps);
             },
         .spot = {}});
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

Drawings miniDigitDrawings() {
    Drawings all;
    for (std::size_t digit = 0; digit < kDigits.size(); ++digit) {
        all.push_back(miniCell("minmode_" + std::to_string(digit), kDigits.at(digit)));
    }
    return all;
}

Drawings miniSignDrawings() {
    // In its own cell each stands in the middle.
    constexpr double kMinusShift = 0.8;
    constexpr double kColonShift = 3.8;
    return {miniCell("mini_dash", minus, kMinusShift), miniCell("mini_colon", colon, kColonShift)};
}

} // namespace tovik::skinart
