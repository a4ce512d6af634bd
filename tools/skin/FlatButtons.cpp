// SPDX-License-Identifier: GPL-3.0-or-later
#include "Families.h"
#include "Icons.h"
#include "Shapes.h"
#include "Strokes.h"

#include <array>

namespace tovik::skinart {

namespace {

using N = window::MainElement;

struct FlatRow {
    const char* name;
    Spot spot;
    Icon icon;
    double size = 15;
};

constexpr auto kButtons = std::to_array<FlatRow>({
    {"btn_addfile", {N::addfileIMG}, Icon::AddFile, 16},
    {"btn_adddir", {N::adddirIMG}, Icon::AddFolder, 16},
    {"btn_addloc", {N::addlocIMG}, Icon::AddLocation, 16},
    {"btn_delete", {N::delIMG}, Icon::Remove, 16},
    {"btn_clear", {N::clrIMG}, Icon::Clear, 15},
    {"btn_load", {N::loadImg}, Icon::Load, 16},
    {"btn_save", {N::SaveImg}, Icon::Save, 15},
    {"btn_preset", {N::presetbt}, Icon::Presets, 16},
    {"btn_reset", {N::resetbt}, Icon::Reset, 15},
    {"btn_rip", {N::ripperbt}, Icon::Rip, 16},
    {"btn_cancel", {N::cancelrip}, Icon::Cancel, 15},
    {"btn_play", {N::Image1, 0}, Icon::Play, 16},
    {"btn_add", {N::Image1, 1}, Icon::Plus, 14},
    {"btn_remove", {N::Image1, 2}, Icon::Minus, 14},
});

QRectF localBox(Spot spot) {
    return {QPointF(0, 0), rectOf(spot).size()};
}

Drawing flat(const FlatRow& row) {
    return drawingFor(row.name, row.spot, [row](QPainter& painter) {
        const QRectF box = localBox(row.spot);
        paintFace(painter, box, Look::Up, 5);
        paintIcon(painter, row.icon, box.center() - QPointF(0, 1), row.size, kIcon);
    });
}

/// "EQ" as lines in a field 9 high.
QPainterPath equalizerName() {
    constexpr double kStroke = 1.8;
    return line({{5, 0}, {0, 0}, {0, 9}, {5, 9}}, kStroke)
        .united(line({{0, 4.5}, {4, 4.5}}, kStroke))
        .united(stroked(rounded({9, 0, 7, 9}, 3.4), kStroke))
        .united(line({{13, 6.4}, {16.2, 9.8}}, kStroke));
}

/// The equalizer's switch: its name and a lamp.
Drawing equalizerSwitch(const char* name, Spot spot, Look look) {
    return drawingFor(name, spot, [spot, look](QPainter& painter) {
        const QRectF box = localBox(spot);
        paintFace(painter, box, look, 5);
        paintLamp(painter, {10, 7.5, 6, 6}, kAmber, look == Look::On);
        const QPainterPath letters = placed(equalizerName(), {26.5, 6 + sunk(look)});
        painter.fillPath(letters.translated(0, 1), QColor::fromRgba(kShadow));
        painter.fillPath(letters, QColor::fromRgb(symbolColour(look)));
    });
}

/// Element 3 offers to record; element 4 stands there while a station is recorded.
Drawing recordSwitch(const char* name, Spot spot, Look look) {
    return drawingFor(name, spot, [spot, look](QPainter& painter) {
        const QRectF box = localBox(spot);
        paintFace(painter, box, look, 5);
        const QPointF middle = box.center() + QPointF(0, -0.5 + sunk(look));
        paintIcon(painter, Icon::Record, middle, 15, look == Look::On ? kRed : kIcon);
        if (look == Look::On) {
            QColor halo = QColor::fromRgb(kRed);
            halo.setAlpha(60);
            painter.fillPath(rounded({middle.x() - 9, middle.y() - 9, 18, 18}, 9), halo);
        }
    });
}

/// The glass before the field in which one types what to look for.
Drawing searchSign() {
    return drawingFor("btn_search", {N::srchIMG}, [](QPainter& painter) {
        paintIcon(painter, Icon::Search, localBox({N::srchIMG}).center(), 15, kIcon);
    });
}

} // namespace

Drawings flatButtonDrawings() {
    Drawings all;
    for (const FlatRow& row : kButtons) {
        all.push_back(flat(row));
    }
    all.push_back(equalizerSwitch("btn_eq_off", {N::EQ_off}, Look::Off));
    all.push_back(equalizerSwitch("btn_eq_on", {N::EQ_on}, Look::On));
    all.push_back(recordSwitch("btn_save_on", {N::Image1, 3}, Look::Off));
    all.push_back(recordSwitch("btn_save_off", {N::Image1, 4}, Look::On));
    all.push_back(searchSign());
    for (Drawing& drawing : all) {
        drawing = cutFromBody(rectOf(drawing.spot), std::move(drawing));
    }
    return all;
}

} // namespace tovik::skinart
