// SPDX-License-Identifier: GPL-3.0-or-later
#include "Families.h"
#include "GlyphTable.h"
#include "Palette.h"

namespace tovik::skinart {

namespace {

using N = window::MainElement;

constexpr QRectF kBox(0, 0, kStripWidth, kStripHeight);

/// Words lie on the display, at no place of their own.
Drawing strip(const char* name, N element, QRgb colour) {
    return cutFrom(
        [](QPainter& painter) { painter.fillRect(kBox, QColor::fromRgb(kGlass.bottom)); },
        {.name = name,
         .size = kBox.size().toSize(),
         .paint =
             [colour](QPainter& painter) {
                 for (const Glyph& glyph : glyphs()) {
                     paintPixels(painter, {glyph.left, glyph.top}, pixelsOf(glyph), colour);
                 }
             },
         .spot = {element}});
}

} // namespace

Drawings glyphDrawings() {
    return {strip("text", N::textImg, kGlowText), strip("text2", N::textImg2, kGlowDim)};
}

} // namespace tovik::skinart
