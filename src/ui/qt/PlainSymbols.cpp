// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/PlainSymbols.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <QPainterPath>
#include <QPen>
#include <span>

namespace tovik::ui {

namespace {

constexpr double kGrid = 16;         ///< symbols are drawn on a square of this size
constexpr double kLargest = 16;      ///< and never larger than this
constexpr double kStrokeWidth = 1.6; ///< in grid units

enum class Draw { Fill, Stroke };

/// One step of an outline: move to, line to, close, or a circle round (x, y).
struct Step {
    char what;
    double x = 0;
    double y = 0;
    double radius = 0;
};

struct Symbol {
    char32_t character;
    Draw draw;
    std::span<const Step> steps;
};

constexpr Step kClosed{'Z'};

constexpr std::array kPrevious{
    Step{'M', 3, 3},    Step{'L', 5, 3}, Step{'L', 5, 13},    Step{'L', 3, 13}, kClosed,
    Step{'M', 13.5, 3}, Step{'L', 6, 8}, Step{'L', 13.5, 13}, kClosed};
constexpr std::array kPlay{Step{'M', 4.5, 2.5}, Step{'L', 13.5, 8}, Step{'L', 4.5, 13.5}, kClosed};
constexpr std::array kPause{Step{'M', 4, 3},  Step{'L', 7, 3}, Step{'L', 7, 13}, Step{'L', 4, 13},
                            kClosed,          Step{'M', 9, 3}, Step{'L', 12, 3}, Step{'L', 12, 13},
                            Step{'L', 9, 13}, kClosed};
constexpr std::array kStop{Step{'M', 3.5, 3.5}, Step{'L', 12.5, 3.5}, Step{'L', 12.5, 12.5},
                           Step{'L', 3.5, 12.5}, kClosed};
constexpr std::array kNext{
    Step{'M', 11, 3}, Step{'L', 13, 3},  Step{'L', 13, 13}, Step{'L', 11, 13},
    kClosed,          Step{'M', 2.5, 3}, Step{'L', 10, 8},  Step{'L', 2.5, 13},
    kClosed};
constexpr std::array kOpen{
    Step{'M', 8, 3},     Step{'L', 13.5, 9},  Step{'L', 2.5, 9},  kClosed, Step{'M', 2.5, 11},
    Step{'L', 13.5, 11}, Step{'L', 13.5, 13}, Step{'L', 2.5, 13}, kClosed};
constexpr std::array kClose{Step{'M', 4, 4}, Step{'L', 12, 12}, Step{'M', 12, 4}, Step{'L', 4, 12}};
constexpr std::array kMinimise{Step{'M', 4, 11}, Step{'L', 12, 11}};
constexpr std::array kSmall{Step{'M', 3, 6}, Step{'L', 13, 6}, Step{'L', 13, 11}, Step{'L', 3, 11},
                            kClosed};
constexpr std::array kShuffle{
    Step{'M', 2, 5},  Step{'L', 5, 5},  Step{'L', 10, 11}, Step{'L', 14, 11}, Step{'M', 2, 11},
    Step{'L', 5, 11}, Step{'L', 10, 5}, Step{'L', 14, 5},  Step{'M', 12, 3},  Step{'L', 14, 5},
    Step{'L', 12, 7}, Step{'M', 12, 9}, Step{'L', 14, 11}, Step{'L', 12, 13}};
constexpr std::array kLoop{Step{'M', 2.5, 8},   Step{'L', 2.5, 6},  Step{'L', 4, 4.5},
                           Step{'L', 13, 4.5},  Step{'M', 11, 2.5}, Step{'L', 13, 4.5},
                           Step{'L', 11, 6.5},  Step{'M', 13.5, 8}, Step{'L', 13.5, 10},
                           Step{'L', 12, 11.5}, Step{'L', 3, 11.5}, Step{'M', 5, 9.5},
                           Step{'L', 3, 11.5},  Step{'L', 5, 13.5}};
constexpr std::array kCrossfade{
    Step{'M', 1.5, 4},     Step{'L', 9.5, 12.5}, Step{'L', 1.5, 12.5}, kClosed, Step{'M', 14.5, 4},
    Step{'L', 14.5, 12.5}, Step{'L', 11, 12.5},  Step{'L', 8.7, 10},   kClosed};
constexpr std::array kSkip{Step{'M', 2, 8},    Step{'L', 11, 8}, Step{'M', 8, 5},
                           Step{'L', 11, 8},   Step{'L', 8, 11}, Step{'M', 13.5, 4},
                           Step{'L', 13.5, 12}};
constexpr std::array kUp{Step{'M', 8, 4}, Step{'L', 14, 12}, Step{'L', 2, 12}, kClosed};
constexpr std::array kDown{Step{'M', 2, 4}, Step{'L', 14, 4}, Step{'L', 8, 12}, kClosed};
constexpr std::array kNote{Step{'M', 7.5, 12}, Step{'L', 7.5, 3}, Step{'L', 12, 5},
                           Step{'O', 5.5, 12, 2}};
constexpr std::array kFaders{Step{'M', 4, 3},    Step{'L', 4, 13},   Step{'M', 8, 3},
                             Step{'L', 8, 13},   Step{'M', 12, 3},   Step{'L', 12, 13},
                             Step{'M', 2.5, 6},  Step{'L', 5.5, 6},  Step{'M', 6.5, 10},
                             Step{'L', 9.5, 10}, Step{'M', 10.5, 5}, Step{'L', 13.5, 5}};
constexpr std::array kRows{Step{'M', 3, 4},  Step{'L', 13, 4}, Step{'M', 3, 8},
                           Step{'L', 13, 8}, Step{'M', 3, 12}, Step{'L', 13, 12}};
constexpr std::array kDisc{Step{'O', 8, 8, 5.5}, Step{'O', 8, 8, 1.5}};
constexpr std::array kAntenna{Step{'M', 8, 7},      Step{'L', 8, 14},   Step{'O', 8, 5.5, 1.5},
                              Step{'M', 4.5, 2.5},  Step{'L', 3, 5.5},  Step{'L', 4.5, 8.5},
                              Step{'M', 11.5, 2.5}, Step{'L', 13, 5.5}, Step{'L', 11.5, 8.5}};
constexpr std::array kGear{Step{'O', 8, 8, 3},    Step{'M', 8, 2},      Step{'L', 8, 4},
                           Step{'M', 8, 12},      Step{'L', 8, 14},     Step{'M', 2, 8},
                           Step{'L', 4, 8},       Step{'M', 12, 8},     Step{'L', 14, 8},
                           Step{'M', 3.8, 3.8},   Step{'L', 5.2, 5.2},  Step{'M', 10.8, 10.8},
                           Step{'L', 12.2, 12.2}, Step{'M', 12.2, 3.8}, Step{'L', 10.8, 5.2},
                           Step{'M', 5.2, 10.8},  Step{'L', 3.8, 12.2}};

constexpr auto kSymbols = std::to_array<Symbol>({
    {U'\u23EE', Draw::Fill, kPrevious},     {U'\u25B6', Draw::Fill, kPlay},
    {U'\u23F8', Draw::Fill, kPause},        {U'\u23F9', Draw::Fill, kStop},
    {U'\u23ED', Draw::Fill, kNext},         {U'\u23CF', Draw::Fill, kOpen},
    {U'\u2715', Draw::Stroke, kClose},      {U'\u2013', Draw::Stroke, kMinimise},
    {U'\u25AB', Draw::Stroke, kSmall},      {U'\U0001F500', Draw::Stroke, kShuffle},
    {U'\U0001F501', Draw::Stroke, kLoop},   {U'\u292D', Draw::Fill, kCrossfade},
    {U'\u21E5', Draw::Stroke, kSkip},       {U'\u25B4', Draw::Fill, kUp},
    {U'\u25BE', Draw::Fill, kDown},         {U'\u266A', Draw::Stroke, kNote},
    {U'\U0001F39A', Draw::Stroke, kFaders}, {U'\u2630', Draw::Stroke, kRows},
    {U'\U0001F4BF', Draw::Stroke, kDisc},   {U'\U0001F4E1', Draw::Stroke, kAntenna},
    {U'\u2699', Draw::Stroke, kGear},
});

QPainterPath pathOf(const Symbol& symbol) {
    QPainterPath path;
    for (const Step& step : symbol.steps) {
        switch (step.what) {
        case 'M':
            path.moveTo(step.x, step.y);
            break;
        case 'L':
            path.lineTo(step.x, step.y);
            break;
        case 'O':
            path.addEllipse(QPointF(step.x, step.y), step.radius, step.radius);
            break;
        default:
            path.closeSubpath();
        }
    }
    return path;
}

} // namespace

bool drawSymbol(QPainter& painter, const QString& text, const QRectF& box, const QColor& colour) {
    const auto characters = text.toUcs4();
    if (characters.size() != 1) {
        return false;
    }
    const auto* const symbol =
        std::find_if(kSymbols.begin(), kSymbols.end(), [&](const Symbol& entry) {
            return entry.character == static_cast<char32_t>(characters.front());
        });
    if (symbol == kSymbols.end()) {
        return false;
    }
    const double size = std::min({box.width(), box.height(), kLargest});
    painter.save();
    painter.translate(box.center() - QPointF(size, size) / 2);
    painter.scale(size / kGrid, size / kGrid);
    if (symbol->draw == Draw::Fill) {
        painter.fillPath(pathOf(*symbol), colour);
    } else {
        painter.strokePath(pathOf(*symbol),
                           QPen(colour, kStrokeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    painter.restore();
    return true;
}

} // namespace tovik::ui
