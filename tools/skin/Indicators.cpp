// SPDX-License-Identifier: GPL-3.0-or-later
#include "Families.h"
#include "Grounds.h"
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

/// A lamp: its pixels, and the symbol that its button bears.
struct Sign {
    PixelRows rows;
    Icon icon;
};

/// Nothing but the symbol: it also stands over the list.
Drawing indicator(const std::string& name, N element, QPoint place, const Sign& sign, QRgb colour) {
    const QPoint corner = place - rectOf({element}).topLeft().toPoint();
    return cutFrom(paintScreenUnder({element}),
                   drawingFor(name, {element}, [sign, corner, colour](QPainter& painter) {
                       paintSign(painter, corner, sign.rows, sign.icon, colour);
                   }));
}

/// A lamp and the same unlit.
void append(Drawings& all, const std::string& name, N lit, N dark, QPoint place, const Sign& sign) {
    all.push_back(indicator(name, lit, place, sign, kAmber));
    all.push_back(indicator(name + "2", dark, place, sign, kGlowDim));
}

} // namespace

Drawings indicatorDrawings() {
    const QPoint below(0, kLowerRow);
    Drawings all;
    append(all, "shuffle", N::Shuffle, N::ShuffleDown, kFirstColumn,
           {shufflePixels(), Icon::Shuffle});
    append(all, "loop", N::loopImg, N::LoopImg2, kSecondColumn, {loopPixels(), Icon::Repeat});
    append(all, "cfd", N::CFD, N::CFD2, kFirstColumn + below, {crossfadePixels(), Icon::Crossfade});
    append(all, "sld", N::Sld, N::sld2, kSecondColumn + below, {skipPixels(), Icon::SkipSilence});
    return all;
}

} // namespace tovik::skinart
