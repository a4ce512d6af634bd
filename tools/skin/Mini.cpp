// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the mini window but its digits.
#include "Families.h"
#include "Icons.h"
#include "MiniBody.h"
#include "Shapes.h"

#include <array>
#include <string>

namespace tovik::skinart {

namespace {

using N = window::MiniElement;

struct ButtonRow {
    const char* name;
    N element;
    std::size_t index;
    Icon icon;
    double size;
};

constexpr auto kTransport = std::to_array<ButtonRow>({
    {"minmode_pre", N::Image4, 0, Icon::Previous, 8},
    {"minmode_play", N::Image4, 1, Icon::Play, 8},
    {"minmode_pause", N::Image4, 2, Icon::Pause, 8},
    {"minmode_stop", N::Image4, 3, Icon::Stop, 8},
    {"minmode_next", N::Image4, 4, Icon::Next, 8},
    {"minmode_open", N::Image4, 5, Icon::Open, 8},
});

constexpr auto kCorners = std::to_array<ButtonRow>({
    {"mini_restore", N::Image1, 0, Icon::MiniMode, 7},
    {"mini_hide", N::Image1, 1, Icon::Minimise, 7},
    {"mini_close", N::Image1, 2, Icon::Close, 7},
});

Drawing drawing(std::string name, QSize size, std::function<void(QPainter&)> paint) {
    return {.name = std::move(name), .size = size, .paint = std::move(paint), .spot = {}};
}

Drawing button(const ButtonRow& row, const char* ending, Look look) {
    const QRectF window = miniRectOf(row.element, row.index);
    return drawing(std::string(row.name) + ending, window.size().toSize(),
                   [row, window, look](QPainter& painter) {
                       const QRectF box(QPointF(0, 0), window.size());
                       paintMiniBodyUnder(painter, window);
                       paintFace(painter, box, look, 3);
                       paintIcon(painter, row.icon, {box.center().x(), box.center().y() - 0.5},
                                 row.size, symbolColour(look), false);
                   });
}

void paintPosition(QPainter& painter, bool played) {
    const QRectF window = miniRectOf(N::posbar);
    const QRectF groove(0.5, 1, window.width() - 1, 4);
    paintMiniBodyUnder(painter, window);
    painter.fillPath(rounded(groove, 2), QColor::fromRgb(kGlassLine));
    if (played) {
        painter.fillPath(rounded(groove, 2), downwards(groove, {kAmberBright, kAmber}));
    }
}

/// A stair of light bars that grow upwards, right of the groove of the thumb.
void paintVolume(QPainter& painter) {
    constexpr int kSteps = 9;
    const QRectF window = miniRectOf(N::volbar);
    const QRectF box(QPointF(0, 0), window.size());
    paintMiniBodyUnder(painter, window);
    painter.fillPath(rounded(box.adjusted(2.5, 0.5, -2.5, -0.5), 6),
                     downwards(box, {0xD00C0D1E, 0x800C0D1E}));
    const double middle = box.center().x();
    painter.fillPath(rounded({middle - 1.5, 5, 3, box.height() - 10}, 1.5),
                     QColor::fromRgb(kGlassEdge));
    for (int step = 0; step < kSteps; ++step) {
        const double y = 5 + step * (box.height() - 10) / (kSteps - 1);
        const double length = 5 - 3.5 * step / (kSteps - 1);
        const QColor colour = QColor::fromRgb(step < 2 ? kAmber : kIconDim);
        painter.fillRect(QRectF(middle - 7.5 - length, y - 0.5, length, 1), colour);
        painter.fillRect(QRectF(middle + 7.5, y - 0.5, length, 1), colour);
    }
}

/// It lies on the groove wherever it stands, so it shows what is beside it nearly the same.
void paintThumb(QPainter& painter) {
    const QRectF box(0, 0, 13, 9);
    painter.fillRect(box, QColor::fromRgb(0xFF16172E));
    paintKnob(painter, box, {3, 4, 7, 1});
}

} // namespace

Drawings miniDrawings() {
    Drawings all;
    all.push_back(
        drawing("minmode_main", miniRectOf(N::picBackground).size().toSize(), paintMiniBody));
    all.back().cut = Cut::Outside;
    all.back().outline = miniOutline;
    for (const ButtonRow& row : kTransport) {
        all.push_back(button(row, "", Look::Up));
    }
    return all;
}

Drawings miniWindowPictures() {
    Drawings all;
    for (const ButtonRow& row : kCorners) {
        all.push_back(button(row, "", Look::Up));
        all.push_back(button(row, "_over", Look::Over));
    }
    const QSize bar = miniRectOf(N::posbar).size().toSize();
    all.push_back(drawing("mini_posbar", bar, [](QPainter& p) { paintPosition(p, false); }));
    all.push_back(drawing("mini_track", bar, [](QPainter& p) { paintPosition(p, true); }));
    all.push_back(drawing("mini_volbar", miniRectOf(N::volbar).size().toSize(), paintVolume));
    all.push_back(drawing("mini_thumb", {13, 9}, paintThumb));
    return all;
}

} // namespace tovik::skinart
