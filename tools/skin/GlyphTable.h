// SPDX-License-Identifier: GPL-3.0-or-later
// The characters of the display, and where each stands in its strip. Any thread.
#pragma once

#include "PixelArt.h"

#include <span>
#include <string_view>

namespace tovik::skinart {

inline constexpr int kGlyphWidth = 5; ///< with the gap to the next
inline constexpr int kGlyphHeight = 6;
inline constexpr int kStripWidth = 155;
inline constexpr int kStripHeight = 3 * kGlyphHeight;

/// One character: six rows of four pixels, each row as a hexadecimal figure.
struct Glyph {
    std::string_view character; ///< UTF-8, lower case
    int left = 0;               ///< in the strip
    int top = 0;
    std::string_view rows;
};

[[nodiscard]] std::span<const Glyph> glyphs() noexcept;

[[nodiscard]] PixelRows pixelsOf(const Glyph& glyph);

/// Writes a text of the strip's characters, one every `kGlyphWidth` pixels; others are blank.
void paintGlyphText(QPainter& painter, QPoint corner, std::string_view text, QRgb colour);

} // namespace tovik::skinart
