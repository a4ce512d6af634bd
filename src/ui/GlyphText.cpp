// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/GlyphText.h"

#include "base/Unicode.h"
#include "base/Windows1252.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <span>

namespace tovik::ui {

namespace {

constexpr int kFirstX = 1;
constexpr int kFirstY = 3;
constexpr int kLineHeight = 8;

/// A character of the strip and its column there. A row of the strip is `kGlyphHeight` high.
struct Glyph {
    char32_t character;
    int x;
};

/// The top row holds the letters in their order, and the blank behind them.
constexpr int kBlankX = 145;

constexpr auto kSecondRow = std::to_array<Glyph>({
    {U'0', 0},   {U'1', 5},    {U'2', 10},  {U'3', 15},  {U'4', 20},  {U'5', 25},
    {U'6', 30},  {U'7', 35},   {U'8', 40},  {U'9', 45},  {U'.', 50},  {U':', 60},
    {U'(', 65},  {U')', 70},   {U'-', 75},  {U'\'', 80}, {U'!', 85},  {U'_', 90},
    {U'+', 95},  {U'\\', 100}, {U'/', 105}, {U'[', 110}, {U']', 115}, {U'^', 120},
    {U'&', 125}, {U'%', 130},  {U',', 135}, {U'=', 140}, {U'$', 145}, {U'#', 150},
});

constexpr auto kThirdRow = std::to_array<Glyph>({
    {U'\u00E4', 0},
    {U'\u00F6', 5},
    {U'?', 15},
    {U'*', 20},
});

constexpr char32_t toLower(char32_t character) {
    if (character >= U'A' && character <= U'Z') {
        return character - U'A' + U'a';
    }
    switch (character) {
    case U'\u00C4':
        return U'\u00E4';
    case U'\u00D6':
        return U'\u00F6';
    default:
        return character;
    }
}

std::optional<GlyphPlace> findIn(std::span<const Glyph> row, int number, char32_t character) {
    for (const Glyph& glyph : row) {
        if (glyph.character == character) {
            return GlyphPlace{glyph.x, number * kGlyphHeight};
        }
    }
    return std::nullopt;
}

std::optional<GlyphPlace> find(char32_t character) {
    const char32_t small = toLower(character);
    if (small >= U'a' && small <= U'z') {
        return GlyphPlace{static_cast<int>(small - U'a') * kGlyphWidth, 0};
    }
    if (small == U' ') {
        return GlyphPlace{kBlankX, 0};
    }
    const auto second = findIn(kSecondRow, 1, small);
    return second ? second : findIn(kThirdRow, 2, small);
}

/// The character whose bytes begin at `at` in valid UTF-8; `at` moves behind it.
char32_t nextCharacter(std::string_view text, std::size_t& at) {
    const auto byte = [&] { return static_cast<unsigned char>(text[at++]); };
    const unsigned char lead = byte();
    const int following = lead < 0x80 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    char32_t character = following == 0 ? lead : lead & (0x3FU >> following);
    for (int i = 0; i < following && at < text.size(); ++i) {
        character = character << 6 | (byte() & 0x3FU);
    }
    return character;
}

} // namespace

GlyphPlace findGlyph(char32_t character) noexcept {
    return find(character).value_or(GlyphPlace{});
}

bool hasGlyph(char32_t character) noexcept {
    return find(character).has_value();
}

std::u32string charactersOf(std::string_view text) {
    const std::string utf8 = base::displayText(text);
    std::u32string characters;
    for (std::size_t at = 0; at < utf8.size();) {
        characters += nextCharacter(utf8, at);
    }
    return characters;
}

std::string utf8Of(std::u32string_view characters) {
    std::string bytes;
    for (const char32_t character : characters) {
        base::appendUtf8(bytes, character);
    }
    return bytes;
}

StripColours stripColours(const PixelImage& strip) {
    const auto opaque = [](std::uint32_t pixel) { return pixel >> 24 == 0xFF; };
    const int blank = kBlankX + kGlyphWidth / 2;
    const std::uint32_t ground = blank < strip.width && kGlyphHeight / 2 < strip.height
                                     ? strip.pixels[pixelPlace(strip, blank, kGlyphHeight / 2)]
                                     : 0;
    std::map<std::uint32_t, int> counts;
    for (const std::uint32_t pixel : strip.pixels) {
        if (opaque(pixel) && pixel != ground) {
            ++counts[pixel];
        }
    }
    const auto ink =
        std::ranges::max_element(counts, {}, [](const auto& counted) { return counted.second; });
    StripColours colours{.ink = {0xFF, 0xFF, 0xFF}, .ground = std::nullopt};
    if (ink != counts.end()) {
        colours.ink = colourOf(ink->first);
    }
    if (opaque(ground)) {
        colours.ground = colourOf(ground);
    }
    return colours;
}

void drawText(cMemDC& target, const PixelImage& strip, std::u32string_view characters, int line) {
    const int factor = strip.density;
    target.Cls();
    int x = kFirstX;
    for (const char32_t character : characters) {
        if (x * factor >= target.Width()) {
            break;
        }
        const GlyphPlace glyph = findGlyph(character);
        target.BitBlt(x * factor, (line * kLineHeight + kFirstY) * factor, kGlyphWidth * factor,
                      kGlyphHeight * factor, strip, glyph.x * factor, glyph.y * factor);
        x += kGlyphWidth;
    }
}

} // namespace tovik::ui
