// SPDX-License-Identifier: GPL-3.0-or-later
#include "Families.h"
#include "Icons.h"
#include "Shapes.h"

#include <QLinearGradient>

namespace tovik::skinart {

namespace {

using N = window::MainElement;

// The strip of the scroller: each part as it is and as it looks pressed, side by side.
constexpr double kPartWidth = 13;
constexpr double kArrowHeight = 21;
constexpr double kPartHeight = 40;

/// The channel that everything else of the bar lies in: the same at any height, and dark, because
/// it stands at the bezel and beside light lists and dark ones.
void paintChannel(QPainter& painter, const QRectF& box) {
    QLinearGradient across(box.topLeft(), box.topRight());
    across.setColorAt(0, QColor::fromRgb(kDeckEdge));
    across.setColorAt(0.35, QColor::fromRgb(kDeck.top));
    across.setColorAt(1, QColor::fromRgb(kDeck.bottom));
    painter.fillRect(box, across);
}

void paintArrow(QPainter& painter, double left, Icon icon, Look look) {
    const QRectF box(left, 0, kPartWidth, kArrowHeight);
    paintFace(painter, box, look, 4);
    paintIcon(painter, icon, {left + kPartWidth / 2, kArrowHeight / 2 - 0.5 + sunk(look)}, 10,
              symbolColour(look));
}

void paintThumb(QPainter& painter, double left, Look look) {
    const QRectF box(left, 0, kPartWidth, kPartHeight);
    paintFace(painter, box.adjusted(1, 0, -1, 0), look, 4);
    for (const double y : {16.5, 19.5, 22.5}) {
        painter.fillRect(QRectF(left + 4, y, 5, 1), QColor::fromRgba(symbolColour(look)));
    }
}

/// Up, up pressed, track, down, down pressed, thumb, thumb pressed.
void paintScroller(QPainter& painter) {
    for (int part = 0; part < 7; ++part) {
        paintChannel(painter, {part * kPartWidth, 0, kPartWidth, kPartHeight});
    }
    paintArrow(painter, 0, Icon::ChevronUp, Look::Up);
    paintArrow(painter, kPartWidth, Icon::ChevronUp, Look::Down);
    paintArrow(painter, 3 * kPartWidth, Icon::ChevronDown, Look::Up);
    paintArrow(painter, 4 * kPartWidth, Icon::ChevronDown, Look::Down);
    paintThumb(painter, 5 * kPartWidth, Look::Up);
    paintThumb(painter, 6 * kPartWidth, Look::Down);
}

/// A tile as wide as the pitch of the bars and as high as the spectrum. The bars take all but its
/// first column.
void paintSpectrumTile(QPainter& painter) {
    constexpr QRectF kTile(0, 0, 5, 24);
    QLinearGradient heat(kTile.topLeft(), kTile.bottomLeft());
    heat.setColorAt(0, QColor::fromRgb(kRed));
    heat.setColorAt(0.3, QColor::fromRgb(kAmber));
    heat.setColorAt(0.65, QColor::fromRgb(kGlow));
    heat.setColorAt(1, QColor::fromRgb(0xFF3D74D9));
    painter.fillRect(kTile, heat);
    painter.fillRect(QRectF(4, 0, 1, 24), QColor(0, 0, 0, 70));
    painter.fillRect(QRectF(1, 0, 1, 24), QColor(255, 255, 255, 50));
    painter.fillRect(QRectF(0, 0, 1, 24), Qt::black);
}

/// The slider's bar: what lies beside it is the slot.
void paintSliderBar(QPainter& painter) {
    paintKnob(painter, {0, 0, 13, 9}, {3, 4, 7, 1});
}

/// What the bar lies on, wherever it stands.
void paintSlot(QPainter& painter) {
    painter.fillRect(QRectF(0, 0, 13, 9), QColor::fromRgb(kCard.bottom));
    painter.fillRect(QRectF(4, 0, 5, 9), QColor::fromRgb(kInk));
}

Drawing source(const char* name, QSize size, N element, void (*paint)(QPainter&)) {
    return {.name = name, .size = size, .paint = paint, .spot = {element}};
}

} // namespace

Drawings sourceDrawings() {
    return {
        source("scroller", {91, 40}, N::Picture3, paintScroller),
        source("sabar", {5, 24}, N::Picture2, paintSpectrumTile),
        cutFrom(paintSlot, source("eq_bar", {13, 9}, N::Picture7, paintSliderBar)),
    };
}

} // namespace tovik::skinart
