// SPDX-License-Identifier: GPL-3.0-or-later
#include "GlyphTable.h"

#include <array>
#include <bit>

namespace tovik::skinart {

namespace {

constexpr int kDigitsTop = kGlyphHeight;
constexpr int kRestTop = 2 * kGlyphHeight;

constexpr auto kGlyphs = std::to_array<Glyph>({
    {"a", 0, 0, "699F99"},
    {"b", 5, 0, "E9E99E"},
    {"c", 10, 0, "698896"},
    {"d", 15, 0, "E9999E"},
    {"e", 20, 0, "F8E88F"},
    {"f", 25, 0, "F8E888"},
    {"g", 30, 0, "698B96"},
    {"h", 35, 0, "99F999"},
    {"i", 40, 0, "E4444E"},
    {"j", 45, 0, "311196"},
    {"k", 50, 0, "9ACCA9"},
    {"l", 55, 0, "88888F"},
    {"m", 60, 0, "9FF999"},
    {"n", 65, 0, "9DDBB9"},
    {"o", 70, 0, "699996"},
    {"p", 75, 0, "E99E88"},
    {"q", 80, 0, "6999B7"},
    {"r", 85, 0, "E99EA9"},
    {"s", 90, 0, "78611E"},
    {"t", 95, 0, "E44444"},
    {"u", 100, 0, "999996"},
    {"v", 105, 0, "999966"},
    {"w", 110, 0, "999FF9"},
    {"x", 115, 0, "996699"},
    {"y", 120, 0, "AAA444"},
    {"z", 125, 0, "F1248F"},
    {"0", 0, kDigitsTop, "4AAAA4"},
    {"1", 5, kDigitsTop, "4C444E"},
    {"2", 10, kDigitsTop, "69124F"},
    {"3", 15, kDigitsTop, "E1611E"},
    {"4", 20, kDigitsTop, "26AF22"},
    {"5", 25, kDigitsTop, "F8E11E"},
    {"6", 30, kDigitsTop, "68E996"},
    {"7", 35, kDigitsTop, "F12244"},
    {"8", 40, kDigitsTop, "696996"},
    {"9", 45, kDigitsTop, "699716"},
    {".", 50, kDigitsTop, "000044"},
    {":", 60, kDigitsTop, "044044"},
    {"(", 65, kDigitsTop, "244442"},
    {")", 70, kDigitsTop, "422224"},
    {"-", 75, kDigitsTop, "00E000"},
    {"'", 80, kDigitsTop, "440000"},
    {"!", 85, kDigitsTop, "444404"},
    {"_", 90, kDigitsTop, "00000F"},
    {"+", 95, kDigitsTop, "04E400"},
    {"\\", 100, kDigitsTop, "884211"},
    {"/", 105, kDigitsTop, "112488"},
    {"[", 110, kDigitsTop, "644446"},
    {"]", 115, kDigitsTop, "622226"},
    {"^", 120, kDigitsTop, "4A0000"},
    {"&", 125, kDigitsTop, "4A4BA5"},
    {"%", 130, kDigitsTop, "912489"},
    {",", 135, kDigitsTop, "000048"},
    {"=", 140, kDigitsTop, "0E0E00"},
    {"$", 145, kDigitsTop, "27C63E"},
    {"#", 150, kDigitsTop, "5F55F5"},
    {"ä", 0, kRestTop, "9069F9"},
    {"ö", 5, kRestTop, "906996"},
    {"?", 15, kRestTop, "691202"},
    {"*", 20, kRestTop, "0A4A00"},
});

int valueOf(char figure) {
    return figure <= '9' ? figure - '0' : figure - 'A' + 10;
}

} // namespace

std::span<const Glyph> glyphs() noexcept {
    return kGlyphs;
}

PixelRows pixelsOf(const Glyph& glyph) {
    PixelRows rows;
    for (const char figure : glyph.rows) {
        const int bits = valueOf(figure);
        std::string row;
        for (const int bit : {8, 4, 2, 1}) {
            row += (bits & bit) != 0 ? 'X' : '.';
        }
        rows.push_back(row);
    }
    return rows;
}

void paintGlyphText(QPainter& painter, QPoint corner, std::string_view text, QRgb colour) {
    while (!text.empty()) {
        // The first byte tells how many make up a character.
        const int ones = std::countl_one(static_cast<unsigned char>(text.front()));
        const std::string_view character =
            text.substr(0, ones == 0 ? 1 : static_cast<std::size_t>(ones));
        for (const Glyph& glyph : kGlyphs) {
            if (glyph.character == character) {
                paintPixels(painter, corner, pixelsOf(glyph), colour);
            }
        }
        corner.rx() += kGlyphWidth;
        text.remove_prefix(character.size());
    }
}

} // namespace tovik::skinart
