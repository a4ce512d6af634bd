// SPDX-License-Identifier: GPL-3.0-or-later
// Texts for strips that have no letters with marks: these become plain ones. Any thread.
#pragma once

#include <string>
#include <string_view>

namespace tovik::ui {

/// The text with what the strips lack replaced by what people would write without it: letters by
/// base letters, typographic dashes and quotes by plain ones. What has no such form stays.
[[nodiscard]] std::u32string baseLetters(std::u32string_view text);

/// Whether the strips can draw the text. Characters of ASCII that they leave out do not count: each
/// looks like the strip's first glyph, as `findGlyph` tells.
[[nodiscard]] bool suitsStrips(std::u32string_view text);

/// The characters to draw for a text of bytes: in base letters where the strips can draw them then,
/// otherwise as they are, for a font.
[[nodiscard]] std::u32string drawableCharacters(std::string_view text);

} // namespace tovik::ui
