// SPDX-License-Identifier: GPL-3.0-or-later
#include "Families.h"
#include "Grounds.h"
#include "Shapes.h"

namespace tovik::skinart {

namespace {

using N = window::MainElement;

void paintPositionBar(QPainter& painter) {
    paintGroove(painter, {0, 4, 250, 5}, kInkSoft);
}

void paintPositionMark(QPainter& painter) {
    paintKnob(painter, {0, 0, 8, 12}, {3, 3, 2, 6});
}

/// What the mark lies on: every place along the groove looks the same.
void paintUnderMark(QPainter& painter) {
    painter.save();
    painter.translate(-100, 0);
    paintCardUnder(N::poswin, kPositionHead, {N::posbar})(painter);
    paintPositionBar(painter);
    painter.restore();
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
    for (int step = 0; step < kSteps; ++step) {
        const QRectF box = stepBox(step);
        if (lit) {
            QLinearGradient along(0, 0, kLongest, 0);
            along.setColorAt(0, QColor::fromRgb(kAmber));
            along.setColorAt(1, QColor::fromRgb(kAmberDeep));
            painter.fillPath(rounded(box, 1), along);
        } else {
            painter.fillPath(rounded(box.translated(0, 0.5), 1), QColor(255, 255, 255, 150));
            painter.fillPath(rounded(box, 1), QColor::fromRgb(kGroove));
        }
    }
}

enum class Lamp : std::uint8_t { Off, On, Centre };

void paintBalanceLamp(QPainter& painter, Lamp lamp) {
    const QRectF box(1.5, 1.5, 7, 11);
    if (lamp == Lamp::Off) {
        painter.fillPath(rounded(box.translated(0, 0.8), 2.5), QColor(255, 255, 255, 150));
        painter.fillPath(rounded(box, 2.5), downwards(box, {kInkSoft, kGroove}));
        return;
    }
    const Shade shade =
        lamp == Lamp::On ? Shade{kAmberBright, kAmber} : Shade{0xFF7C86F0, 0xFF4A56C8};
    painter.fillPath(rounded(box, 2.5), downwards(box, shade));
    painter.strokePath(rounded(box, 2.5), QPen(QColor::fromRgba(0x50212152), 1));
}

Drawing lamp(const char* name, N store, Lamp kind) {
    return cutFrom(paintCardUnder(N::balwin, kVolumeHead, {N::balbar, 0}),
                   drawingFor(name, {N::balbar, 0}, {store},
                              [kind](QPainter& painter) { paintBalanceLamp(painter, kind); }));
}

} // namespace

Drawings barDrawings() {
    Drawings all;
    const Ground volume = paintCardUnder(N::volwin, kVolumeHead, {N::volbar});
    all.push_back(cutFrom(paintCardUnder(N::poswin, kPositionHead, {N::posbar}),
                          drawingFor("posbar", {N::posbar}, paintPositionBar)));
    all.push_back(cutFrom(paintUnderMark, drawingFor("track", {N::track}, paintPositionMark)));
    all.push_back(cutFrom(volume, drawingFor("volbar", {N::volbar}, [](QPainter& painter) {
                              paintVolume(painter, false);
                          })));
    all.push_back(
        cutFrom(volume, drawingFor("volfill", {N::volbar}, {N::volbarIMG},
                                   [](QPainter& painter) { paintVolume(painter, true); })));
    all.push_back(lamp("balance_on", N::baron, Lamp::On));
    all.push_back(lamp("balance_off", N::baroff, Lamp::Off));
    all.push_back(lamp("balance_centre", N::balcnt, Lamp::Centre));
    return all;
}

} // namespace tovik::skinart
