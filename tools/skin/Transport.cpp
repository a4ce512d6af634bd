// SPDX-License-Identifier: GPL-3.0-or-later
#include "Families.h"
#include "Icons.h"
#include "Shapes.h"

#include <array>
#include <cmath>
#include <string>

namespace tovik::skinart {

namespace {

using N = window::MainElement;

struct ButtonRow {
    const char* name;
    N up;
    N down;
    Spot over;
    Icon icon;
    double size; ///< of the symbol
    double radius;
};

constexpr double kLarge = 16; ///< that of their grid, so that straight edges are sharp
constexpr double kSmall = 11;

constexpr auto kButtons = std::to_array<ButtonRow>({
    {"btn_prev", N::backupIMG, N::backdownIMG, {N::tmp, 6}, Icon::Previous, kLarge, 6},
    {"btn_play", N::playup, N::playdown, {N::tmp, 7}, Icon::Play, kLarge, 6},
    {"btn_pause", N::pauseup, N::pausedown, {N::tmp, 8}, Icon::Pause, kLarge, 6},
    {"btn_stop", N::stopup, N::stopdown, {N::tmp, 9}, Icon::Stop, kLarge, 6},
    {"btn_next", N::nextup, N::nextdown, {N::tmp, 10}, Icon::Next, kLarge, 6},
    {"btn_file", N::fileup, N::filedown, {N::tmp, 11}, Icon::Open, kLarge, 6},
    {"btn_close", N::closeup, N::closedown, {N::tmp, 12}, Icon::Close, kSmall, 5},
    {"btn_min", N::minon, N::minoff, {N::tmp, 13}, Icon::Minimise, kSmall, 5},
    {"btn_minmode", N::minmodeUP, N::minmodeDown, {N::Image5}, Icon::MiniMode, kSmall, 5},
});

void paintButton(QPainter& painter, const ButtonRow& row, Look look) {
    const QRectF window = rectOf({row.up});
    const QRectF box(QPointF(0, 0), window.size());
    paintFace(painter, box, look, row.radius);
    const QPointF centre(box.center().x(), std::floor(box.center().y()) - 1 + sunk(look));
    paintIcon(painter, row.icon, centre, row.size, symbolColour(look));
}

Drawing face(const ButtonRow& row, const char* ending, Spot kept, Look look) {
    return cutFromBody(rectOf({row.up}), drawingFor(std::string(row.name) + ending, {row.up}, kept,
                                                    [row, look](QPainter& painter) {
                                                        paintButton(painter, row, look);
                                                    }));
}

} // namespace

Drawings transportDrawings() {
    Drawings all;
    for (const ButtonRow& row : kButtons) {
        all.push_back(face(row, "_up", {row.up}, Look::Up));
        all.push_back(face(row, "_down", {row.down}, Look::Down));
        all.push_back(face(row, "_over", row.over, Look::Over));
    }
    return all;
}

} // namespace tovik::skinart
