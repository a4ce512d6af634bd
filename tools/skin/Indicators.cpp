// SPDX-License-Identifier: GPL-3.0-or-later
#include "Families.h"
#include "Palette.h"
#include "PixelArt.h"

#include <string>

namespace tovik::skinart {

namespace {

using N = window::MainElement;

const PixelRows& shufflePixels() {
    static const PixelRows rows{
        "......X..", "XX...XXX.", "..X.X.X..", "...X.....", "..X.X.X..", "XX...XXX.", "......X..",
    };
    return rows;
}

const PixelRows& loopPixels() {
    static const PixelRows rows{
        ".....X...", ".XXXXXX..", "X....X..X", "X.......X", "X..X....X", "..XXXXXX.", "...X.....",
    };
    return rows;
}

/// One sound goes down, the other comes up.
const PixelRows& crossfadePixels() {
    static const PixelRows rows{
        "X.......X", "XX.....XX", "XXX...XXX", "XXXX.XXXX", "XXX.X.XXX", "XX.XXX.XX", "X.XXXXX.X",
    };
    return rows;
}

/// On to the next sound.
const PixelRows& skipPixels() {
    static const PixelRows rows{
        ".........", "X.X..X...", "X..X..X..", "X...X..X.", "X..X..X..", "X.X..X...", ".........",
    };
    return rows;
}

// Where the lamps begin in the window: clear of the last digit, and lit where they are dark.
constexpr QPoint kFirstColumn(99, 52);
constexpr QPoint kSecondColumn(112, 52);
constexpr int kLowerRow = 10;

Drawing indicator(const std::string& name, N element, QPoint place, const PixelRows& rows,
                  QRgb colour) {
    const QPoint corner = place - rectOf({element}).topLeft().toPoint();
    return drawingFor(name, {element}, [&rows, corner, colour](QPainter& painter) {
        // Nothing but the symbol: it also stands over the list.
        painter.fillRect(QRectF(0, 0, 12, 9), QColor::fromRgb(keyPixel()));
        paintPixels(painter, corner, rows, colour);
    });
}

/// A lamp and the same unlit.
void append(Drawings& all, const std::string& name, N lit, N dark, QPoint place,
            const PixelRows& rows) {
    all.push_back(indicator(name, lit, place, rows, kAmber));
    all.push_back(indicator(name + "2", dark, place, rows, kGlowDim));
}

} // namespace

Drawings indicatorDrawings() {
    const QPoint below(0, kLowerRow);
    Drawings all;
    append(all, "shuffle", N::Shuffle, N::ShuffleDown, kFirstColumn, shufflePixels());
    append(all, "loop", N::loopImg, N::LoopImg2, kSecondColumn, loopPixels());
    append(all, "cfd", N::CFD, N::CFD2, kFirstColumn + below, crossfadePixels());
    append(all, "sld", N::Sld, N::sld2, kSecondColumn + below, skipPixels());
    return all;
}

} // namespace tovik::skinart
