// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/BaseLetters.h"

#include "base/BaseLetters.h"
#include "ui/GlyphText.h"

#include <algorithm>
#include <array>

namespace tovik::ui {

namespace {

using base::BaseLetter;

/// Dashes, quotes and blanks. The plain double quote is not in the strips: one is as good as two.
constexpr auto kPunctuation = std::to_array<BaseLetter>({
    {U"-", U"\u2010\u2011\u2012\u2013\u2014\u2015\u2212"},
    {U"'", U"\u2018\u2019\u201A\u201B\u2032\u2039\u203A\u00B4\u02BC"
           U"\u201C\u201D\u201E\u201F\u2033\u00AB\u00BB"},
    {U"...", U"\u2026"},
    {U" ", U"\u00A0\u2002\u2003\u2009\u200A\u202F"},
    {U"x", U"\u00D7"},
    {U"*", U"\u2022\u00B7"},
    {U"!", U"\u00A1"},
    {U"?", U"\u00BF"},
    {U"1", U"\u00B9"},
    {U"2", U"\u00B2"},
    {U"3", U"\u00B3"},
    {U"", U"\u00AD\u200B\u200C\u200D\u2060\uFEFF"},
});

/// The strips' alphabet is a choice of these; a text may hold the others and is drawn all the same.
constexpr char32_t kLastAscii = 0x7F;

const BaseLetter* signOf(char32_t character) {
    const auto* const row = std::ranges::find_if(kPunctuation, [character](const BaseLetter& one) {
        return one.letters.find(character) != std::u32string_view::npos;
    });
    return row == kPunctuation.end() ? nullptr : row;
}

} // namespace

std::u32string baseLetters(std::u32string_view text) {
    std::u32string plain;
    for (const char32_t character : text) {
        const BaseLetter* row = nullptr;
        if (!hasGlyph(character)) {
            row = base::baseLetterOf(character);
            row = row != nullptr ? row : signOf(character);
        }
        if (row != nullptr) {
            plain += row->base;
        } else if (!base::isMark(character) || plain.empty() || !hasGlyph(plain.back())) {
            plain += character;
        }
    }
    return plain;
}

bool suitsStrips(std::u32string_view text) {
    return std::ranges::all_of(
        text, [](char32_t character) { return hasGlyph(character) || character <= kLastAscii; });
}

std::u32string drawableCharacters(std::string_view text) {
    std::u32string whole = charactersOf(text);
    std::u32string plain = baseLetters(whole);
    return suitsStrips(plain) ? plain : whole;
}

} // namespace tovik::ui
