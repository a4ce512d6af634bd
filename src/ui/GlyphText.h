// SPDX-License-Identifier: GPL-3.0-or-later
// Words drawn with the glyphs of a skin's strip picture: the scrolling title and the small fields
// of the display. Any thread.
#pragma once

#include "ui/cMemDC.h"

#include <optional>
#include <string>
#include <string_view>

namespace tovik::ui {

/// The size of a glyph, in pixels; also from one character to the next.
inline constexpr int kGlyphWidth = 5;
inline constexpr int kGlyphHeight = 6;

/// Where the glyph of a character stands in the strip.
struct GlyphPlace {
    int x = 0;
    int y = 0;

    friend constexpr bool operator==(const GlyphPlace&, const GlyphPlace&) = default;
};

/// Capitals stand for their small letters. A character that the strip does not have gets the glyph
/// at its top left corner.
[[nodiscard]] GlyphPlace findGlyph(char32_t character) noexcept;

/// Whether the strip has a glyph for the character.
[[nodiscard]] bool hasGlyph(char32_t character) noexcept;

/// The characters of a text: valid UTF-8, or else Windows-1252.
[[nodiscard]] std::u32string charactersOf(std::string_view text);

/// The same the other way round, in UTF-8.
[[nodiscard]] std::string utf8Of(std::u32string_view characters);

/// The colours of a strip.
struct StripColours {
    Colour ink;                   ///< the commonest one of its glyphs
    std::optional<Colour> ground; ///< of its blank; none where that is transparent
};

[[nodiscard]] StripColours stripColours(const PixelImage& strip);

/// Clears the surface and draws the characters on it, from one pixel off its left edge on. Line 0
/// is the topmost; what does not fit is cut off. The surface is as dense as the strip.
void drawText(cMemDC& target, const PixelImage& strip, std::u32string_view characters,
              int line = 0);

} // namespace tovik::ui
