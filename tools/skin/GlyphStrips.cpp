// SPDX-License-Identifier: GPL-3.0-or-later
#include "Families.h"
#include "GlyphTable.h"
#include "Palette.h"

namespace tovik::skinart {

namespace {

using N = window::MainElement;

Drawing strip(const char* name, N element, QRgb colour) {
    return {.name = name,
            .size = {kStripWidth, kStripHeight},
            .paint =
                [colour](QPainter& painter) {
                    painter.fillRect(QRectF(0, 0, kStripWidth, kStripHeight),
                                     QColor::fromRgb(keyPixel()));
                    for (const Glyph& glyph : glyphs()) {
                        paintPixels(painter, {glyph.left, glyph.top}, pixelsOf(glyph), colour);
                    }
                },
            .spot = {element}};
}

} // namespace

Drawings glyphDrawings() {
    return {strip("text", N::textImg, kGlowText), strip("text2", N::textImg2, kGlowDim)};
}

} // namespace tovik::skinart
