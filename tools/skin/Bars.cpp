// SPDX-License-Identifier: GPL-3.0-or-later
#include "Body.h"
#include "Families.h"
#include "Shapes.h"

namespace tovik::skinart {

namespace {

using N = window::MainElement;

// The heads of the cards on which the bars lie.
constexpr double kPositionHead = 14;
constexpr double kVolumeHead = 13;

/// The part of a card under an element.
void paintCardUnder(QPainter& painter, N card, Spot spot, double head) {
    const QRectF box = rectOf({card});
    const QRectF part = rectOf(spot);
    painter.save();
    painter.translate(box.topLeft() - part.topLeft());
    paintCard(painter, QRectF(QPointF(0, 0), box.size()), head);
    painter.restore();
}

void paintPositionBar(QPainter& painter) {
    paintCardUnder(painter, N::poswin, {N::posbar}, kPositionHead);
    paintGroove(painter, {0, 3.5, 250, 5}, kInkSoft);
}

void paintPositionMark(QPainter& painter) {
    // Every place along the groove looks the same.
    painter.save();
    painter.translate(-100, 0);
    paintPositionBar(painter);
    painter.restore();
    paintKnob(painter, {0, 0, 8, 12}, {3, 3, 2, 6});
}

// The volume is a stair of seven steps; the fill uncovers it from the top.
constexpr int kSteps = 7;
constexpr double kStepHeight = 3;
constexpr double kFirstStep = 2;
constexpr double kShortest = 26;
constexpr double kLongest = 128;

QRectF stepBox(int step) {
    const double width = kShortest + (kLongest - kShortest) * step / (kSteps - 1);
    return {0, kFirstStep + step * kStepHeight, width, kStepHeight - 1};
}

void paintVolume(QPainter& painter, bool lit) {
    paintCardUnder(painter, N::volwin, {N::volbar}, kVolumeHead);
    for (int step = 0; step < kSteps; ++step) {
        const QRectF box = stepBox(step);
        if (lit) {
            QLinearGradient along(0, 0, kLongest, 0);
            along.setColorAt(0, QColor::fromRgb(kAmber));
            along.setColorAt(1, QColor::fromRgb(0xFFF2603C));
            painter.fillPath(rounded(box, 1), along);
        } else {
            painter.fillPath(rounded(box, 1), QColor::fromRgb(kGroove));
        }
    }
}

enum class Lamp : std::uint8_t { Off, On, Centre };

void paintBalanceLamp(QPainter& painter, Lamp lamp) {
    paintCardUnder(painter, N::balwin, {N::balbar, 0}, kVolumeHead);
    const QRectF box(1.5, 1.5, 7, 11);
    if (lamp == Lamp::Off) {
        painter.fillPath(rounded(box, 2.5), QColor::fromRgb(kGroove));
        return;
    }
    const Shade shade =
        lamp == Lamp::On ? Shade{kAmberBright, kAmber} : Shade{0xFF7C86F0, 0xFF4A56C8};
    painter.fillPath(rounded(box, 2.5), downwards(box, shade));
    painter.strokePath(rounded(box, 2.5), QPen(QColor::fromRgba(0x50212152), 1));
}

Drawing lamp(const char* name, N store, Lamp kind) {
    return drawingFor(name, {N::balbar, 0}, {store},
                      [kind](QPainter& painter) { paintBalanceLamp(painter, kind); });
}

} // namespace

Drawings barDrawings() {
    Drawings all;
    all.push_back(drawingFor("posbar", {N::posbar}, paintPositionBar));
    all.push_back(drawingFor("track", {N::track}, paintPositionMark));
    all.push_back(
        drawingFor("volbar", {N::volbar}, [](QPainter& painter) { paintVolume(painter, false); }));
    all.push_back(drawingFor("volfill", {N::volbar}, {N::volbarIMG},
                             [](QPainter& painter) { paintVolume(painter, true); }));
    all.push_back(lamp("balance_on", N::baron, Lamp::On));
    all.push_back(lamp("balance_off", N::baroff, Lamp::Off));
    all.push_back(lamp("balance_centre", N::balcnt, Lamp::Centre));
    return all;
}

} // namespace tovik::skinart
