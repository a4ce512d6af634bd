// SPDX-License-Identifier: GPL-3.0-or-later
#include "Families.h"
#include "Icons.h"
#include "Shapes.h"

#include <array>
#include <string>

namespace tovik::skinart {

namespace {

using N = window::MainElement;

struct TabRow {
    const char* name;
    N element;
    Icon icon;
    std::size_t down; ///< these two in `Image2`
    std::size_t over;
};

/// The looks under the pointer stand in reverse order.
constexpr auto kTabs = std::to_array<TabRow>({
    {"mainbt", N::mainbt, Icon::Note, 6, 17},
    {"eqbt", N::eqbt, Icon::Sliders, 7, 16},
    {"plbt", N::plbt, Icon::List, 8, 15},
    {"ripbt", N::ripbt, Icon::Disc, 9, 14},
    {"irtbt", N::irtbt, Icon::Antenna, 10, 13},
    {"prebt", N::prebt, Icon::Gear, 11, 12},
});

void paintTab(QPainter& painter, const TabRow& row, Look look) {
    const QRectF window = rectOf({row.element});
    const QRectF box(QPointF(0, 0), window.size());
    if (look == Look::Down) {
        paintFace(painter, box, Look::Down, 5);
        painter.fillPath(rounded({box.center().x() - 4, box.bottom() - 4.5, 8, 1.5}, 0.75),
                         QColor::fromRgb(kAmber));
    } else if (look == Look::Over) {
        paintFace(painter, box, Look::Over, 5);
    }
    const QRgb colour = look == Look::Up ? kIcon : symbolColour(look);
    const double lift = look == Look::Down ? 1.5 : 0.5;
    paintIcon(painter, row.icon, box.center() - QPointF(0, lift), 14, colour);
}

Drawing face(const TabRow& row, const char* ending, Spot kept, Look look) {
    return cutFromBody(
        rectOf({row.element}),
        drawingFor(std::string(row.name) + ending, {row.element}, kept,
                   [row, look](QPainter& painter) { paintTab(painter, row, look); }));
}

} // namespace

Drawings tabDrawings() {
    Drawings all;
    for (const TabRow& row : kTabs) {
        all.push_back(face(row, "", {row.element}, Look::Up));
        all.push_back(face(row, "_down", {N::Image2, row.down}, Look::Down));
        all.push_back(face(row, "_over", {N::Image2, row.over}, Look::Over));
    }
    return all;
}

} // namespace tovik::skinart
