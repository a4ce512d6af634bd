// SPDX-License-Identifier: GPL-3.0-or-later
#include "Body.h"
#include "Families.h"
#include "GlyphTable.h"
#include "Icons.h"
#include "Shapes.h"

#include <array>
#include <string_view>

namespace tovik::skinart {

namespace {

using N = window::MainElement;

constexpr double kHead = 14;
constexpr std::array<std::string_view, 11> kBands{"60", "170", "310", "600", "1k",    "3k",
                                                  "6k", "12k", "14k", "16k", "master"};
constexpr std::size_t kMaster = 10;
constexpr std::size_t kScale = 11;
/// From the middle of the slider's bar at the top to its middle at the bottom.
constexpr double kTravelTop = 4.5;
constexpr double kTravel = 120;
constexpr int kMarks = 10; ///< one for two decibels
constexpr QRgb kGuide = kCardLine;

void paintGround(QPainter& painter) {
    const QRectF window = rectOf({N::Image3});
    paintBodyUnder(painter, window);
    paintCard(painter, QRectF(QPointF(0, 0), window.size()), kHead);
    paintIcon(painter, Icon::Sliders, {window.width() - 11, kHead / 2}, 11, kInkSoft, false);
    const QRectF firstSlot = rectOf({N::Picture6, 0}).translated(-window.topLeft());
    const QRectF lastSlot = rectOf({N::Picture6, kMaster}).translated(-window.topLeft());
    for (const double part : {0.0, 0.5, 1.0}) {
        const double y = firstSlot.top() + kTravelTop + kTravel * part;
        painter.fillRect(
            QRectF(firstSlot.left() - 6, y - 0.5, lastSlot.right() - firstSlot.left() + 20, 1),
            QColor::fromRgb(kGuide));
    }
    for (std::size_t band = 0; band < kBands.size(); ++band) {
        const QRectF slot = rectOf({N::Picture6, band}).translated(-window.topLeft());
        const std::string_view word = kBands.at(band);
        const int width = static_cast<int>(word.size()) * kGlyphWidth - 1;
        const QPoint corner(static_cast<int>(slot.center().x() - width / 2.0 + 0.5),
                            static_cast<int>(slot.top()) - 11);
        paintGlyphText(painter, corner, word, kInk);
    }
    // The gains stand between the two scales, below their unit.
    const QRectF scale = rectOf({N::Picture6, kScale}).translated(-window.topLeft());
    const int left = static_cast<int>(scale.right()) + 2;
    const double top = scale.top() + kTravelTop;
    paintGlyphText(painter, {left + kGlyphWidth, static_cast<int>(scale.top()) - 11}, "db", kInk);
    constexpr std::array<std::string_view, 3> kGains{"+10", " 0", "-10"};
    for (std::size_t gain = 0; gain < kGains.size(); ++gain) {
        const double y = top + kTravel / 2 * static_cast<double>(gain);
        paintGlyphText(painter, {left, static_cast<int>(y) - 2}, kGains.at(gain), kInk);
    }
}

/// The part of the ground under a slot.
void paintGroundUnder(QPainter& painter, Spot spot) {
    painter.save();
    painter.translate(rectOf({N::Image3}).topLeft() - rectOf(spot).topLeft());
    paintGround(painter);
    painter.restore();
}

void paintSlot(QPainter& painter, std::size_t band) {
    paintGroundUnder(painter, {N::Picture6, band});
    for (int mark = 0; mark <= kMarks; ++mark) {
        const bool whole = mark % (kMarks / 2) == 0;
        const double y = kTravelTop + kTravel * mark / kMarks;
        painter.fillRect(QRectF(0, y - 0.5, 13, 1),
                         QColor::fromRgb(whole ? kGuide : kCardHead.top));
    }
    paintGroove(painter, {4, 0.5, 5, 127}, band == kMaster ? kAmber : kInkSoft);
}

void paintScale(QPainter& painter, std::size_t scale) {
    paintGroundUnder(painter, {N::Picture6, scale});
    for (int mark = 0; mark <= kMarks; ++mark) {
        const double y = kTravelTop + kTravel * mark / kMarks;
        const bool whole = mark % (kMarks / 2) == 0;
        const double length = whole ? 8 : 4;
        const double left = scale == kScale ? 11 - length : 2;
        painter.fillRect(QRectF(left, y - 0.5, length, 1),
                         QColor::fromRgb(whole ? kInk : kInkSoft));
    }
}

Drawing column(const char* name, std::size_t index, void (*paint)(QPainter&, std::size_t)) {
    return drawingFor(name, {N::Picture6, index},
                      [index, paint](QPainter& painter) { paint(painter, index); });
}

} // namespace

Drawings equalizerDrawings() {
    Drawings all;
    all.push_back(drawingFor("eqwin", {N::Image3}, paintGround));
    all.push_back(column("eqslot", 0, paintSlot));
    all.push_back(column("eqmaster", kMaster, paintSlot));
    all.push_back(column("eqscale_left", kScale, paintScale));
    all.push_back(column("eqscale_right", kScale + 1, paintScale));
    return all;
}

} // namespace tovik::skinart
