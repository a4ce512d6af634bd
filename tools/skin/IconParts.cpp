// SPDX-License-Identifier: GPL-3.0-or-later
#include "IconParts.h"

#include "Strokes.h"

#include <cmath>
#include <numbers>

namespace tovik::skinart {

namespace {

/// What is added to a symbol at its lower right, with room cut out round it.
QPainterPath badged(const QPainterPath& thing, const QPainterPath& badge) {
    return thing.subtracted(circle({11.6, 11.4}, 4.4)).united(badge);
}

QPainterPath smallPlus() {
    return line({{11.6, 8.8}, {11.6, 14}}, 1.8).united(line({{9, 11.4}, {14.2, 11.4}}, 1.8));
}

QPainterPath note() {
    return oval({5.2, 12}, 2.6, 2.1)
        .united(oval({11.4, 10.6}, 2.6, 2.1))
        .united(line({{7, 12}, {7, 4.2}}, 1.5))
        .united(line({{13.2, 10.6}, {13.2, 2.8}}, 1.5))
        .united(polygon({{7, 3.8}, {13.2, 2.4}, {13.2, 4.8}, {7, 6.2}}, 0.8));
}

QPainterPath sliders() {
    QPainterPath all;

    struct Slider {
        double x;
        double knob;
    };

    for (const Slider& slider : {Slider{3.2, 5.4}, Slider{8, 10.2}, Slider{12.8, 6.8}}) {
        all = all.united(line({{slider.x, 2.4}, {slider.x, 13.6}}, 1.4))
                  .united(block({slider.x - 2.2, slider.knob - 1.5, 4.4, 3}, 1));
    }
    return all;
}

QPainterPath list() {
    QPainterPath all;
    for (const double y : {3.8, 8.0, 12.2}) {
        all = all.united(circle({2.8, y}, 1.2)).united(line({{6, y}, {13.8, y}}, 1.8));
    }
    return all;
}

/// A list, one row of which goes.
QPainterPath removal() {
    return line({{2.4, 3.6}, {13.6, 3.6}}, 1.8)
        .united(line({{2.4, 7.8}, {13.6, 7.8}}, 1.8))
        .united(line({{2.4, 12}, {5.6, 12}}, 1.8))
        .united(line({{9.2, 12.2}, {13.8, 12.2}}, 2.6));
}

/// A choice of settings.
QPainterPath presets() {
    QPainterPath all;
    for (const QPointF knob : {QPointF(2.8, 6), QPointF(7.4, 10)}) {
        all = all.united(line({{knob.x(), 2.4}, {knob.x(), 13.6}}, 1.4))
                  .united(block({knob.x() - 2, knob.y() - 1.5, 4, 3}, 1));
    }
    return all.united(line({{10.8, 6.6}, {13, 9}, {15.2, 6.6}}, 1.8));
}

QPainterPath disc() {
    return circle({8, 8}, 6.4)
        .subtracted(ring({8, 8}, 2.4, 1.1))
        .subtracted(circle({8, 8}, 0.9))
        .subtracted(arc({8, 8}, 4.5, 20, 50, 0.9))
        .subtracted(arc({8, 8}, 4.5, 200, 50, 0.9));
}

QPainterPath antenna() {
    return circle({8, 6.6}, 1.7)
        .united(line({{8, 8.4}, {8, 14}}, 1.6))
        .united(arc({8, 6.6}, 3.7, -48, 96, 1.4))
        .united(arc({8, 6.6}, 3.7, 132, 96, 1.4))
        .united(arc({8, 6.6}, 6.3, -48, 96, 1.4))
        .united(arc({8, 6.6}, 6.3, 132, 96, 1.4));
}

QPainterPath gear() {
    constexpr int kTeeth = 8;
    QPainterPath all = circle({8, 8}, 4.8);
    for (int tooth = 0; tooth < kTeeth; ++tooth) {
        const double angle = 2 * std::numbers::pi * tooth / kTeeth;
        const QPointF out(std::cos(angle), std::sin(angle));
        all = all.united(line({QPointF(8, 8) + out * 4, QPointF(8, 8) + out * 5.8}, 2.2));
    }
    return all.subtracted(circle({8, 8}, 2.1));
}

QPainterPath page() {
    const QPainterPath sheet =
        polygon({{3.2, 2.2}, {8.6, 2.2}, {11.8, 5.4}, {11.8, 13.8}, {3.2, 13.8}}, 1);
    return sheet.subtracted(line({{5.4, 7.6}, {9.4, 7.6}}, 1.1))
        .subtracted(line({{5.4, 5}, {7.4, 5}}, 1.1))
        .subtracted(line({{5.4, 10.2}, {9.4, 10.2}}, 1.1));
}

QPainterPath folder() {
    return polygon({{1.8, 3.6}, {6, 3.6}, {7.6, 5.4}, {14, 5.4}, {14, 12.8}, {1.8, 12.8}}, 1.2);
}

QPainterPath globe() {
    QPainterPath meridian;
    meridian.addEllipse(QPointF(8, 8), 2.8, 6);
    return ring({8, 8}, 6, 1.3).united(stroked(meridian, 1.2)).united(line({{2, 8}, {14, 8}}, 1.2));
}

QPainterPath bin() {
    return polygon({{4, 5.8}, {12, 5.8}, {11.2, 14}, {4.8, 14}}, 0.8)
        .united(line({{2.8, 4}, {13.2, 4}}, 1.4))
        .united(line({{6.4, 2.4}, {9.6, 2.4}}, 1.4))
        .subtracted(line({{6.4, 7.6}, {6.7, 12.2}}, 1))
        .subtracted(line({{9.6, 7.6}, {9.3, 12.2}}, 1));
}

QPainterPath load() {
    const QPainterPath arrow = line({{11.4, 14}, {11.4, 9.2}}, 1.7)
                                   .united(line({{9, 10.8}, {11.4, 8.6}, {13.8, 10.8}}, 1.7));
    return badged(folder(), arrow);
}

QPainterPath diskette() {
    return polygon({{2.6, 2.6}, {11.2, 2.6}, {13.4, 4.8}, {13.4, 13.4}, {2.6, 13.4}}, 1.2)
        .subtracted(block({5, 3.4, 5.2, 3.2}, 0.4))
        .subtracted(block({4.8, 8.8, 6.4, 4.4}, 0.5))
        .united(block({8, 3.8, 1.4, 2.4}, 0.2));
}

QPainterPath search() {
    return ring({6.6, 6.6}, 4, 1.8).united(line({{9.8, 9.8}, {13.4, 13.4}}, 2.3));
}

QPainterPath plainDisc() {
    return circle({7.4, 7.4}, 6).subtracted(circle({7.4, 7.4}, 1.8));
}

QPainterPath rip() {
    const QPainterPath arrow = line({{11.6, 8.4}, {11.6, 13.4}}, 1.7)
                                   .united(line({{9.2, 11.4}, {11.6, 13.8}, {14, 11.4}}, 1.7));
    return badged(plainDisc(), arrow);
}

QPainterPath cancel() {
    return ring({8, 8}, 5.6, 1.8).united(line({{4.2, 11.8}, {11.8, 4.2}}, 1.8));
}

QPainterPath reset() {
    return arc({8, 8.4}, 4.8, 120, 290, 1.8)
        .united(polygon({{6.6, 0.8}, {6.6, 6.8}, {2.6, 4}}, 0.8));
}

QPainterPath clock() {
    return ring({8, 8}, 5.8, 1.5).united(line({{8, 4.6}, {8, 8}, {10.4, 9.4}}, 1.4));
}

QPainterPath speaker() {
    return polygon({{2.2, 6}, {4.6, 6}, {8, 3}, {8, 13}, {4.6, 10}, {2.2, 10}}, 0.8)
        .united(arc({8, 8}, 3.2, -50, 100, 1.4))
        .united(arc({8, 8}, 6, -50, 100, 1.4));
}

QPainterPath balance() {
    return line({{8, 4}, {8, 12}}, 1.6)
        .united(polygon({{5.4, 4.8}, {5.4, 11.2}, {1.6, 8}}, 0.8))
        .united(polygon({{10.6, 4.8}, {10.6, 11.2}, {14.4, 8}}, 0.8));
}

} // namespace

QPainterPath thingPath(Icon icon) {
    switch (icon) {
    case Icon::Note:
        return note();
    case Icon::Sliders:
        return sliders();
    case Icon::List:
        return list();
    case Icon::Disc:
        return disc();
    case Icon::Antenna:
        return antenna();
    case Icon::Gear:
        return gear();
    case Icon::AddFile:
        return badged(page(), smallPlus());
    case Icon::AddFolder:
        return badged(folder(), smallPlus());
    case Icon::AddLocation:
        return badged(globe(), smallPlus());
    case Icon::Remove:
        return removal();
    case Icon::Clear:
        return bin();
    case Icon::Load:
        return load();
    case Icon::Save:
        return diskette();
    case Icon::Search:
        return search();
    case Icon::Rip:
        return rip();
    case Icon::Cancel:
        return cancel();
    case Icon::Presets:
        return presets();
    case Icon::Reset:
        return reset();
    case Icon::Record:
        return ring({8, 8}, 5.8, 1.5).united(circle({8, 8}, 3.4));
    case Icon::Clock:
        return clock();
    case Icon::Speaker:
        return speaker();
    case Icon::Balance:
        return balance();
    default:
        return {};
    }
}

} // namespace tovik::skinart
