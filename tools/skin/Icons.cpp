// SPDX-License-Identifier: GPL-3.0-or-later
#include "Icons.h"

#include "IconParts.h"
#include "Palette.h"
#include "Strokes.h"

namespace tovik::skinart {

namespace {

constexpr double kGrid = 16;

QPainterPath skip(double direction) {
    // The triangle leans towards the bar it runs into.
    const auto x = [direction](double distance) { return 8 + direction * distance; };
    return polygon({{x(-5), 3.6}, {x(-5), 12.4}, {x(2.4), 8}})
        .united(block({x(5) - 1, 3, 2, 10}, 0.6));
}

QPainterPath pause() {
    return block({3, 3, 4, 10}).united(block({9, 3, 4, 10}));
}

QPainterPath open() {
    return polygon({{8, 3}, {12.6, 8.2}, {3.4, 8.2}}).united(block({3, 11, 10, 2}, 0.6));
}

QPainterPath cross() {
    return line({{4, 4}, {12, 12}}, 2.2).united(line({{12, 4}, {4, 12}}, 2.2));
}

QPainterPath miniMode() {
    return block({2, 3, 12, 10}, 1.5)
        .subtracted(block({3.6, 4.8, 8.8, 6.6}, 0.6))
        .united(block({8, 8, 4.4, 3.4}, 0.4));
}

QPainterPath shuffle() {
    QPainterPath rising(QPointF(1.6, 11.6));
    rising.lineTo(4, 11.6);
    rising.cubicTo(7.4, 11.6, 7.6, 4.4, 11, 4.4);
    QPainterPath falling(QPointF(1.6, 4.4));
    falling.lineTo(4, 4.4);
    falling.cubicTo(7.4, 4.4, 7.6, 11.6, 11, 11.6);
    return stroked(rising, 1.7)
        .united(stroked(falling, 1.7))
        .united(polygon({{11.4, 2.4}, {14.2, 4.4}, {11.4, 6.4}}, 0.8))
        .united(polygon({{11.4, 9.6}, {14.2, 11.6}, {11.4, 13.6}}, 0.8));
}

QPainterPath repeat() {
    QPainterPath upper(QPointF(2.4, 8));
    upper.lineTo(2.4, 6.6);
    upper.quadTo(2.4, 4.4, 4.6, 4.4);
    upper.lineTo(10.6, 4.4);
    QPainterPath lower(QPointF(13.6, 8));
    lower.lineTo(13.6, 9.4);
    lower.quadTo(13.6, 11.6, 11.4, 11.6);
    lower.lineTo(5.4, 11.6);
    return stroked(upper, 1.7)
        .united(stroked(lower, 1.7))
        .united(polygon({{10.6, 2.3}, {13.4, 4.4}, {10.6, 6.5}}, 0.8))
        .united(polygon({{5.4, 9.5}, {2.6, 11.6}, {5.4, 13.7}}, 0.8));
}

/// One sound goes down while the other comes up.
QPainterPath crossfade() {
    const QPainterPath down = polygon({{2, 12.4}, {2, 4}, {9.4, 12.4}}, 0.8);
    const QPainterPath up = polygon({{14, 12.4}, {14, 4}, {6.6, 12.4}}, 0.8);
    const QPainterPath empty = polygon({{12.5, 10.9}, {12.5, 7.4}, {9.6, 10.9}}, 0);
    return down.united(up.subtracted(empty)).subtracted(down.intersected(up));
}

QPainterPath skipSilence() {
    return line({{1.8, 6.6}, {1.8, 9.4}}, 1.6)
        .united(line({{4.6, 4.2}, {4.6, 11.8}}, 1.6))
        .united(line({{7.6, 4.6}, {10.6, 8}, {7.6, 11.4}}, 1.7))
        .united(line({{11.4, 4.6}, {14.4, 8}, {11.4, 11.4}}, 1.7));
}

QPainterPath chevron(double direction) {
    return line({{4, 8 + 2.2 * direction}, {8, 8 - 2.2 * direction}, {12, 8 + 2.2 * direction}}, 2);
}

} // namespace

QPainterPath iconPath(Icon icon) {
    switch (icon) {
    case Icon::Previous:
        return skip(-1);
    case Icon::Play:
        return polygon({{4.8, 3.2}, {4.8, 12.8}, {12.6, 8}});
    case Icon::Pause:
        return pause();
    case Icon::Stop:
        return block({3, 3, 10, 10}, 1.2);
    case Icon::Next:
        return skip(1);
    case Icon::Open:
        return open();
    case Icon::Close:
        return cross();
    case Icon::Minimise:
        return line({{3.6, 11.4}, {12.4, 11.4}}, 2.2);
    case Icon::MiniMode:
        return miniMode();
    case Icon::Shuffle:
        return shuffle();
    case Icon::Repeat:
        return repeat();
    case Icon::Crossfade:
        return crossfade();
    case Icon::SkipSilence:
        return skipSilence();
    case Icon::ChevronUp:
        return chevron(1);
    case Icon::ChevronDown:
        return chevron(-1);
    case Icon::Plus:
        return line({{8, 3.2}, {8, 12.8}}, 2.4).united(line({{3.2, 8}, {12.8, 8}}, 2.4));
    case Icon::Minus:
        return line({{3.2, 8}, {12.8, 8}}, 2.4);
    default:
        return thingPath(icon);
    }
}

void paintIcon(QPainter& painter, Icon icon, QPointF centre, double size, QRgb colour,
               bool shadow) {
    const QPointF corner = centre - QPointF(size / 2, size / 2);
    const QPainterPath path = placed(iconPath(icon), corner, size / kGrid);
    if (shadow) {
        painter.fillPath(path.translated(0, 1), QColor::fromRgba(kShadow));
    }
    painter.fillPath(path, QColor::fromRgba(colour));
}

} // namespace tovik::skinart
