// SPDX-License-Identifier: GPL-3.0-or-later
#include "Families.h"
#include "Palette.h"
#include "PixelArt.h"

namespace tovik::skinart {

namespace {

using N = window::MainElement;

const PixelRows& shufflePixels() {
    static const PixelRows rows{
        "........X..", "XXX...XXXX.", "...X.X..X..", "....X......",
        "...X.X..X..", "XXX...XXXX.", "........X..",
    };
    return rows;
}

const PixelRows& loopPixels() {
    static const PixelRows rows{
        "......X....", "..XXXXXX...", ".X....X..X.", ".X.......X.",
        ".X..X....X.", "...XXXXXX..", "....X......",
    };
    return rows;
}

/// One sound goes down, the other comes up.
const PixelRows& crossfadePixels() {
    static const PixelRows rows{
        "X.........X", "XX.......XX", "XXX.....XXX", "XXXX...XXXX",
        "XXXXX.XXXXX", "XXXX.X.XXXX", "XXX.XXX.XXX",
    };
    return rows;
}

/// A sound that fades out, and on to the next.
const PixelRows& skipPixels() {
    static const PixelRows rows{
        "..X........", "..X..X..X..", "X.X...X..X.", "X.X....X..X",
        "X.X...X..X.", "..X..X..X..", "..X........",
    };
    return rows;
}

Drawing indicator(const char* name, N element, const PixelRows& rows, QRgb colour) {
    return drawingFor(name, {element}, [&rows, colour](QPainter& painter) {
        // Nothing but the symbol: it also stands over the list.
        painter.fillRect(QRectF(0, 0, 12, 9), QColor::fromRgb(keyPixel()));
        paintPixels(painter, {0, 1}, rows, colour);
    });
}

} // namespace

Drawings indicatorDrawings() {
    return {
        indicator("shuffle", N::Shuffle, shufflePixels(), kAmber),
        indicator("shuffle2", N::ShuffleDown, shufflePixels(), kGlowDim),
        indicator("loop", N::loopImg, loopPixels(), kAmber),
        indicator("loop2", N::LoopImg2, loopPixels(), kGlowDim),
        indicator("cfd", N::CFD, crossfadePixels(), kAmber),
        indicator("cfd2", N::CFD2, crossfadePixels(), kGlowDim),
        indicator("sld", N::Sld, skipPixels(), kAmber),
        indicator("sld2", N::sld2, skipPixels(), kGlowDim),
    };
}

} // namespace tovik::skinart
