// SPDX-License-Identifier: GPL-3.0-or-later
#include "Families.h"
#include "Icons.h"
#include "Shapes.h"

#include <array>
#include <string>

namespace tovik::skinart {

namespace {

using N = window::MainElement;

struct ModeRow {
    const char* name;
    N element;
    std::size_t on; ///< in `Image6`
    Icon icon;
};

constexpr auto kModes = std::to_array<ModeRow>({
    {"btn_shuffle", N::ShuffleBT, 4, Icon::Shuffle},
    {"btn_loop", N::LoopBT, 5, Icon::Repeat},
    {"btn_cfd", N::CfdBT, 6, Icon::Crossfade},
    {"btn_sld", N::sldBT, 7, Icon::SkipSilence},
});

void paintMode(QPainter& painter, const ModeRow& row, Look look) {
    const QRectF window = rectOf({row.element});
    const QRectF box(QPointF(0, 0), window.size());
    paintFace(painter, box, look, 5);
    const QPointF middle = box.center();
    paintIcon(painter, row.icon, middle + QPointF(0, -2 + sunk(look)), 14, symbolColour(look));
    paintLamp(painter, {middle.x() - 5, box.bottom() - 5.5, 10, 2}, kAmber, look == Look::On);
}

Drawing face(const ModeRow& row, const char* ending, Spot kept, Look look) {
    return cutFromBody(
        rectOf({row.element}),
        drawingFor(std::string(row.name) + ending, {row.element}, kept,
                   [row, look](QPainter& painter) { paintMode(painter, row, look); }));
}

} // namespace

Drawings modeDrawings() {
    Drawings all;
    for (const ModeRow& row : kModes) {
        all.push_back(face(row, "_off", {row.element}, Look::Off));
        all.push_back(face(row, "_on", {N::Image6, row.on}, Look::On));
    }
    return all;
}

} // namespace tovik::skinart
