// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the mini window but its digits.
#include "Families.h"
#include "MiniBody.h"
#include "PixelArt.h"
#include "Shapes.h"

#include <QLinearGradient>
#include <string>
#include <utility>
#include <vector>

namespace tovik::skinart {

namespace {

using N = window::MiniElement;

/// On a plain screen so small a symbol is made of whole pixels, as the lamps and the letters of the
/// display are.
struct ButtonRow {
    const char* name;
    N element;
    std::size_t index;
    PixelRows symbol;
    Icon icon;
};

const std::vector<ButtonRow>& transport() {
    static const std::vector<ButtonRow> rows{
        {"minmode_pre",
         N::Image4,
         0,
         {"X....X", "X...XX", "X..XXX", "X.XXXX", "X..XXX", "X...XX", "X....X"},
         Icon::Previous},
        {"minmode_play",
         N::Image4,
         1,
         {"X...", "XX..", "XXX.", "XXXX", "XXX.", "XX..", "X..."},
         Icon::Play},
        {"minmode_pause",
         N::Image4,
         2,
         {"XX..XX", "XX..XX", "XX..XX", "XX..XX", "XX..XX", "XX..XX", "XX..XX"},
         Icon::Pause},
        {"minmode_stop",
         N::Image4,
         3,
         {"......", "XXXXXX", "XXXXXX", "XXXXXX", "XXXXXX", "XXXXXX", "XXXXXX"},
         Icon::Stop},
        {"minmode_next",
         N::Image4,
         4,
         {"X....X", "XX...X", "XXX..X", "XXXX.X", "XXX..X", "XX...X", "X....X"},
         Icon::Next},
        {"minmode_open",
         N::Image4,
         5,
         {"..XX..", ".XXXX.", "XXXXXX", "......", "XXXXXX"},
         Icon::Open},
    };
    return rows;
}

const std::vector<ButtonRow>& corners() {
    static const std::vector<ButtonRow> rows{
        {"mini_restore",
         N::Image1,
         0,
         {"XXXXXX", "X....X", "X..XXX", "X..XXX", "XXXXXX"},
         Icon::MiniMode},
        {"mini_hide",
         N::Image1,
         1,
         {"......", "......", "......", "XXXXXX", "XXXXXX"},
         Icon::Minimise},
        {"mini_close",
         N::Image1,
         2,
         {"XX..XX", ".XXXX.", "..XX..", ".XXXX.", "XX..XX"},
         Icon::Close},
    };
    return rows;
}

/// What a box of the window lies on.
std::function<void(QPainter&)> groundOf(const QRectF& window) {
    return [window](QPainter& painter) { paintMiniBodyUnder(painter, window); };
}

Drawing drawing(std::string name, QSize size, std::function<void(QPainter&)> paint) {
    return {.name = std::move(name), .size = size, .paint = std::move(paint), .spot = {}};
}

/// The symbol stands in the middle of its face.
void paintButton(QPainter& painter, const QRectF& box, const ButtonRow& row, Look look) {
    paintFace(painter, box, look, 3);
    const PixelRows& symbol = row.symbol;
    const QPoint corner(static_cast<int>(box.width() - static_cast<double>(symbol[0].size())) / 2,
                        static_cast<int>(box.height() - static_cast<double>(symbol.size())) / 2);
    paintSign(painter, corner + QPoint(0, 1), symbol, row.icon, kShadow);
    paintSign(painter, corner, symbol, row.icon, symbolColour(look));
}

Drawing button(const ButtonRow& row, const char* ending, Look look) {
    const QRectF window = miniRectOf(row.element, row.index);
    return cutFrom(groundOf(window),
                   drawing(std::string(row.name) + ending, window.size().toSize(),
                           [row, window, look](QPainter& painter) {
                               paintButton(painter, {QPointF(0, 0), window.size()}, row, look);
                           }));
}

/// From where the sound is soft to where it is loud, or from the begin to the end.
QLinearGradient warmth(QPointF from, QPointF to) {
    QLinearGradient colours(from, to);
    colours.setColorAt(0, QColor::fromRgb(kAmber));
    colours.setColorAt(1, QColor::fromRgb(kAmberDeep));
    return colours;
}

void paintPosition(QPainter& painter, bool played) {
    const QRectF groove(0, 1, miniRectOf(N::posbar).width(), 4);
    painter.fillPath(rounded(groove.translated(0, 1), 2), QColor::fromRgba(0x30FFFFFF));
    painter.fillPath(rounded(groove, 2), QColor::fromRgb(kGlassEdge));
    const QRectF inner = groove.adjusted(1, 1, -1, -1);
    if (played) {
        painter.fillPath(rounded(inner, 1), warmth(inner.topLeft(), inner.topRight()));
    } else {
        painter.fillPath(rounded(inner, 1), QColor::fromRgb(kGlassLine));
    }
}

constexpr double kGrooveLeft = 16.5; ///< of the volume, in its card
constexpr double kGrooveTop = 5;
constexpr double kGrooveWidth = 3;

/// A card as those of the main window, with a stair of bars that grow upwards beside the groove.
void paintVolume(QPainter& painter) {
    constexpr int kSteps = 10;
    constexpr double kPitch = 5;
    constexpr double kBeside = 7.5; // clear of the thumb
    const QRectF box(QPointF(0, 0), miniRectOf(N::volbar).size());
    paintCard(painter, box, 0);
    paintGroove(painter, {kGrooveLeft, kGrooveTop, kGrooveWidth, box.height() - 2 * kGrooveTop},
                kInkSoft);
    const double middle = box.center().x();
    const QBrush lit = warmth({0, kGrooveTop + kSteps * kPitch}, {0, kGrooveTop});
    for (int step = 0; step < kSteps; ++step) {
        const double y = kGrooveTop + 1 + step * kPitch;
        const double length = 8 - 0.6 * step;
        for (const double left : {middle - kBeside - length, middle + kBeside}) {
            const QRectF bar(left, y, length, 2);
            painter.fillPath(rounded(bar.translated(0, 0.5), 1), QColor(255, 255, 255, 150));
            painter.fillPath(rounded(bar, 1), lit);
        }
    }
}

constexpr QSize kThumb(13, 9);

/// It lies on the groove wherever it stands.
Drawing thumb() {
    return cutFrom(
        [](QPainter& painter) {
            painter.save();
            painter.translate(kThumb.width() / 2.0 - miniRectOf(N::volbar).width() / 2, -25);
            paintVolume(painter);
            painter.restore();
        },
        drawing("mini_thumb", kThumb, [](QPainter& painter) {
            paintKnob(painter, QRectF(QPointF(0, 0), QSizeF(kThumb)), {3, 4, 7, 1});
        }));
}

} // namespace

Drawings miniDrawings() {
    Drawings all;
    all.push_back(
        drawing("minmode_main", miniRectOf(N::picBackground).size().toSize(), paintMiniBody));
    all.back().cut = Cut::Outside;
    all.back().outline = miniOutline;
    for (const ButtonRow& row : transport()) {
        all.push_back(button(row, "", Look::Up));
    }
    return all;
}

Drawings miniWindowPictures() {
    Drawings all;
    for (const ButtonRow& row : corners()) {
        all.push_back(button(row, "", Look::Up));
        all.push_back(button(row, "_over", Look::Over));
    }
    for (const bool played : {false, true}) {
        const QRectF bar = miniRectOf(N::posbar);
        all.push_back(
            cutFrom(groundOf(bar),
                    drawing(played ? "mini_track" : "mini_posbar", bar.size().toSize(),
                            [played](QPainter& painter) { paintPosition(painter, played); })));
    }
    const QRectF volume = miniRectOf(N::volbar);
    all.push_back(
        cutFrom(groundOf(volume), drawing("mini_volbar", volume.size().toSize(), paintVolume)));
    all.push_back(thumb());
    return all;
}

} // namespace tovik::skinart
