// SPDX-License-Identifier: GPL-3.0-or-later
#include "Body.h"

#include "Metal.h"
#include "Shapes.h"

#include <algorithm>
#include <cmath>
#include <QLinearGradient>
#include <QPen>

namespace tovik::skinart {

namespace {

constexpr QRectF kWindow(0, 0, 470, 312);
constexpr QRectF kDeckBox(14, 38, 444, 228);
constexpr double kDeckRadius = 9;
constexpr QRectF kPanelBox(20, 45, 432, 190);
constexpr double kShoulder = 5; ///< how far the top lies below the crest that bears the tabs
constexpr double kCorner = 20;
/// The title of the quick list stands on the body when the list is open.
constexpr QRectF kListTitle(286, 45, 166, 15);
/// A step inside the deck: the open list ends right above its lower edge.
constexpr QRectF kStep(17.5, 41.5, 436, 222);
constexpr double kStepRadius = 6;

QColor colourOf(QRgb value) {
    return QColor::fromRgba(value);
}

void paintDeck(QPainter& painter) {
    const QPainterPath lip = rounded(kDeckBox.adjusted(-1, -1, 1, 1.5), kDeckRadius + 1);
    painter.fillPath(lip, downwards(kDeckBox, {kDeckEdge, kDeckLip}));
    const QPainterPath deck = rounded(kDeckBox, kDeckRadius);
    painter.fillPath(deck, downwards(kDeckBox, kDeck));
    painter.save();
    painter.setClipPath(deck);
    const QRectF upper(kDeckBox.left(), kDeckBox.top(), kDeckBox.width(), 7);
    painter.fillRect(upper, downwards(upper, {0x90000000, kNothing}));
    painter.restore();
    painter.strokePath(rounded(kStep.translated(0, 1), kStepRadius), QPen(colourOf(0x805258A0), 1));
    painter.strokePath(rounded(kStep, kStepRadius), QPen(colourOf(kDeckEdge), 1));
    // The bezel round the lists, which fill their place from edge to edge.
    const QRectF bezel = kPanelBox.adjusted(-0.5, -0.5, 0.5, 0.5);
    painter.strokePath(rounded(bezel.translated(0, 1), 2), QPen(colourOf(0x305258A0), 1));
    painter.strokePath(rounded(bezel, 2), QPen(colourOf(0xA00B0C1E), 1));
}

/// The loudspeaker's holes at the lower right.
void paintGrille(QPainter& painter) {
    constexpr int kPitch = 6;
    constexpr int kRows = 5;
    constexpr int kColumns = 23;
    painter.setPen(Qt::NoPen);
    for (int row = 0; row < kRows; ++row) {
        const int shift = row % 2 == 0 ? 0 : kPitch / 2;
        for (int column = 0; column < kColumns - row % 2; ++column) {
            // A pixel's middle, so that each hole is as sharp as the next.
            const QPointF hole(302.5 + column * kPitch + shift, 275.5 + row * 5);
            painter.setBrush(colourOf(0x40A8B0F0));
            painter.drawEllipse(hole + QPointF(0, 1), 1.5, 1.5);
            painter.setBrush(colourOf(0xFF0B0C1E));
            painter.drawEllipse(hole, 1.5, 1.5);
        }
    }
}

/// The sunk plate that the name stands on.
void paintNamePlate(QPainter& painter) {
    const QRectF box(244, 275, 46, 17);
    painter.fillPath(rounded(box.translated(0, 1), 4), colourOf(0x38FFFFFF));
    painter.fillPath(rounded(box, 4), downwards(box, {0xFF0C0D20, 0xFF191B3A}));
    painter.strokePath(rounded(box.adjusted(0.5, 0.5, -0.5, -0.5), 3.5),
                       QPen(colourOf(kGlassEdge), 1));
}

/// Three lines cut into the shell beside the tabs, fading away from them.
void paintEngraving(QPainter& painter, double from, double to) {
    for (const double y : {15.0, 19.0, 23.0}) {
        QLinearGradient dark(from, 0, to, 0);
        dark.setColorAt(0, colourOf(0x80101230));
        dark.setColorAt(1, colourOf(0x00101230));
        QLinearGradient light(from, 0, to, 0);
        light.setColorAt(0, colourOf(0x50FFFFFF));
        light.setColorAt(1, colourOf(0x00FFFFFF));
        const double left = std::min(from, to);
        const double width = std::abs(to - from);
        painter.fillRect(QRectF(left, y, width, 1), dark);
        painter.fillRect(QRectF(left, y + 1, width, 1), light);
    }
}

} // namespace

QPainterPath bodyOutline() {
    const double left = kWindow.left();
    const double right = kWindow.right();
    const double bottom = kWindow.bottom();
    constexpr double kCrestLeft = 92;
    constexpr double kCrestRight = 294;
    constexpr double kSlope = 18;
    QPainterPath path(QPointF(left, kShoulder + kCorner));
    path.quadTo(left, kShoulder, left + kCorner, kShoulder);
    path.lineTo(kCrestLeft, kShoulder);
    path.cubicTo(kCrestLeft + kSlope / 2, kShoulder, kCrestLeft + kSlope / 2, 0,
                 kCrestLeft + kSlope, 0);
    path.lineTo(kCrestRight - kSlope, 0);
    path.cubicTo(kCrestRight - kSlope / 2, 0, kCrestRight - kSlope / 2, kShoulder, kCrestRight,
                 kShoulder);
    path.lineTo(right - kCorner, kShoulder);
    path.quadTo(right, kShoulder, right, kShoulder + kCorner);
    path.lineTo(right, bottom - 2 * kCorner);
    path.quadTo(right, bottom - 4, right - 2 * kCorner - 10, bottom - 4);
    path.lineTo(kCrestRight, bottom - 4);
    path.cubicTo(kCrestRight - kSlope / 2, bottom - 4, kCrestRight - kSlope / 2, bottom,
                 kCrestRight - kSlope, bottom);
    path.lineTo(left + kCorner, bottom);
    path.quadTo(left, bottom, left, bottom - kCorner);
    path.closeSubpath();
    return path;
}

void paintBody(QPainter& painter) {
    const QPainterPath outline = bodyOutline();
    paintMetal(painter, kWindow, 38);
    paintEngraving(painter, 108, 44);
    paintEngraving(painter, 278, 372);
    paintGrille(painter);
    paintBed(painter, QRectF(22, 268, 216, 30), 8);
    paintNamePlate(painter);
    for (const QPointF screw :
         {QPointF(7.5, 58.5), QPointF(7.5, 245.5), QPointF(463.5, 58.5), QPointF(463.5, 245.5)}) {
        paintScrew(painter, screw, 3.5);
    }
    paintDeck(painter);
    paintCard(painter, kListTitle, kListTitle.height());
    paintRim(painter, outline, kWindow.height());
}

void paintBodyUnder(QPainter& painter, const QRectF& box) {
    paintPart(painter, box, paintBody);
}

void paintPart(QPainter& painter, const QRectF& box, void (*paint)(QPainter&)) {
    painter.save();
    painter.translate(-box.topLeft());
    painter.setClipRect(box);
    paint(painter);
    painter.restore();
}

void paintRim(QPainter& painter, const QPainterPath& outline, double height) {
    QLinearGradient rim(0, 0, 0, height);
    rim.setColorAt(0, colourOf(kShellRim));
    rim.setColorAt(0.3, colourOf(kShell.bottom));
    rim.setColorAt(1, colourOf(kShellFoot));
    painter.strokePath(outline, QPen(rim, 4));
    painter.strokePath(outline, QPen(colourOf(kShellFoot), 1.4));
}

} // namespace tovik::skinart
