// SPDX-License-Identifier: GPL-3.0-or-later
#include "Body.h"

#include "Shapes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
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
constexpr QRectF kListTitle(286, 45, 166, 16);

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

/// Hairlines along the metal, the same each time: their strength comes from their number.
void paintBrush(QPainter& painter) {
    constexpr double kPitch = 0.5;
    constexpr std::uint32_t kStrength = 11;
    std::uint32_t state = 0x9E3779B9;
    for (double y = 0; y < kWindow.height(); y += kPitch) {
        state = state * 1664525U + 1013904223U;
        const std::uint32_t alpha = (state >> 24) % kStrength;
        const bool light = (state >> 16 & 1) != 0;
        painter.fillRect(
            QRectF(0, y, kWindow.width(), kPitch),
            QColor(light ? 255 : 0, light ? 255 : 0, light ? 255 : 20, static_cast<int>(alpha)));
    }
}

/// A screw in the rails beside the deck.
void paintScrew(QPainter& painter, QPointF middle) {
    constexpr double kRadius = 3.5;
    const QRectF head(middle.x() - kRadius, middle.y() - kRadius, 2 * kRadius, 2 * kRadius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colourOf(0x50FFFFFF));
    painter.drawEllipse(head.translated(0, 0.8));
    painter.setBrush(colourOf(kShellFoot));
    painter.drawEllipse(head);
    painter.setBrush(downwards(head, {0xFFC3C9EE, 0xFF5A61A0}));
    painter.drawEllipse(head.adjusted(0.8, 0.8, -0.8, -0.8));
    painter.setPen(QPen(colourOf(kShellFoot), 1.1, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(middle - QPointF(1.5, 1.5), middle + QPointF(1.5, 1.5));
    painter.drawLine(middle - QPointF(1.5, -1.5), middle + QPointF(1.5, -1.5));
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

/// A shallow bed for the six buttons of the transport.
void paintBed(QPainter& painter, const QRectF& box) {
    painter.fillPath(rounded(box.translated(0, 1), 8), colourOf(0x30FFFFFF));
    painter.fillPath(rounded(box, 8), downwards(box, {0xB00C0D1E, 0x500C0D1E}));
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
    // The edge is cut without smoothing, so the shell goes on beyond it.
    painter.fillRect(kWindow.adjusted(-2, -2, 2, 2), downwards(kWindow, kShell));
    QLinearGradient sheen(0, 0, 0, 38);
    sheen.setColorAt(0, colourOf(0x40FFFFFF));
    sheen.setColorAt(1, colourOf(0x00FFFFFF));
    painter.fillRect(QRectF(0, 0, kWindow.width(), 38), sheen);
    paintBrush(painter);
    paintEngraving(painter, 108, 44);
    paintEngraving(painter, 278, 372);
    paintGrille(painter);
    paintBed(painter, QRectF(22, 268, 216, 30));
    paintNamePlate(painter);
    for (const QPointF screw :
         {QPointF(7.5, 58.5), QPointF(7.5, 245.5), QPointF(463.5, 58.5), QPointF(463.5, 245.5)}) {
        paintScrew(painter, screw);
    }
    paintDeck(painter);
    paintCard(painter, kListTitle, 16);
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
