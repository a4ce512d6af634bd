// SPDX-License-Identifier: GPL-3.0-or-later
#include "Body.h"

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
}

/// The loudspeaker's holes at the lower right.
void paintGrille(QPainter& painter) {
    constexpr double kPitch = 6;
    constexpr int kRows = 5;
    constexpr int kColumns = 24;
    painter.setPen(Qt::NoPen);
    for (int row = 0; row < kRows; ++row) {
        const double y = 276 + row * kPitch;
        const double shift = row % 2 == 0 ? 0 : kPitch / 2;
        for (int column = row; column < kColumns; ++column) {
            const QPointF hole(296 + column * kPitch + shift, y);
            painter.setBrush(colourOf(0x38FFFFFF));
            painter.drawEllipse(hole + QPointF(0, 0.8), 1.5, 1.5);
            painter.setBrush(colourOf(kShellFoot));
            painter.drawEllipse(hole, 1.5, 1.5);
        }
    }
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
    paintEngraving(painter, 108, 44);
    paintEngraving(painter, 278, 372);
    paintGrille(painter);
    paintBed(painter, QRectF(22, 269, 216, 30));
    paintDeck(painter);
    paintCard(painter, kListTitle, 16);
    QLinearGradient rim(0, 0, 0, kWindow.height());
    rim.setColorAt(0, colourOf(kShellRim));
    rim.setColorAt(0.3, colourOf(kShell.bottom));
    rim.setColorAt(1, colourOf(kShellFoot));
    painter.strokePath(outline, QPen(rim, 3));
    painter.strokePath(outline, QPen(colourOf(kShellFoot), 1));
}

void paintBodyUnder(QPainter& painter, const QRectF& box) {
    painter.save();
    painter.translate(-box.topLeft());
    painter.setClipRect(box);
    paintBody(painter);
    painter.restore();
}

} // namespace tovik::skinart
