// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/BaseLetters.h"

#include "ui/GlyphText.h"

#include <algorithm>
#include <array>

namespace tovik::ui {

namespace {

struct BaseLetter {
    std::u32string_view base;    ///< in characters of the strips; empty: nothing is drawn
    std::u32string_view letters; ///< capitals as well: the strips make no difference
};

/// Letters by their canonical decomposition in the Unicode Character Database (UnicodeData.txt,
/// Latin blocks), and those that have none by what they are usually written as. The strips have
/// glyphs of their own for \u00E4 and \u00F6.
constexpr auto kLetters = std::to_array<BaseLetter>({
    {U"a",
     U"\u00AA\u00C0\u00C1\u00C2\u00C3\u00C5\u00E0\u00E1\u00E2\u00E3\u00E5\u0100\u0101\u0102\u0103"
     U"\u0104\u0105\u01CD\u01CE\u01DE\u01DF\u01E0\u01E1\u01FA\u01FB\u0200\u0201\u0202\u0203\u0226"
     U"\u0227\u1E00\u1E01\u1E9A\u1EA0\u1EA1\u1EA2\u1EA3\u1EA4\u1EA5\u1EA6\u1EA7\u1EA8\u1EA9\u1EAA"
     U"\u1EAB\u1EAC\u1EAD\u1EAE\u1EAF\u1EB0\u1EB1\u1EB2\u1EB3\u1EB4\u1EB5\u1EB6\u1EB7"},
    {U"ae", U"\u00C6\u00E6\u01E2\u01E3\u01FC\u01FD"},
    {U"b", U"\u0180\u0243\u1E02\u1E03\u1E04\u1E05\u1E06\u1E07"},
    {U"c", U"\u00C7\u00E7\u0106\u0107\u0108\u0109\u010A\u010B\u010C\u010D\u1E08\u1E09"},
    {U"d", U"\u00D0\u00F0\u010E\u010F\u0110\u0111\u1E0A\u1E0B\u1E0C\u1E0D\u1E0E\u1E0F\u1E10\u1E11"
           U"\u1E12\u1E13\u1E9F"},
    {U"dz", U"\u01C4\u01C5\u01C6\u01F1\u01F2\u01F3"},
    {U"e", U"\u00C8\u00C9\u00CA\u00CB\u00E8\u00E9\u00EA\u00EB\u0112\u0113\u0114\u0115\u0116\u0117"
           U"\u0118\u0119\u011A\u011B\u018F\u0204\u0205\u0206\u0207\u0228\u0229\u0259\u1E14\u1E15"
           U"\u1E16\u1E17\u1E18\u1E19\u1E1A\u1E1B\u1E1C\u1E1D\u1EB8\u1EB9\u1EBA\u1EBB\u1EBC\u1EBD"
           U"\u1EBE\u1EBF\u1EC0\u1EC1\u1EC2\u1EC3\u1EC4\u1EC5\u1EC6\u1EC7"},
    {U"f", U"\u0191\u0192\u1E1E\u1E1F"},
    {U"g", U"\u011C\u011D\u011E\u011F\u0120\u0121\u0122\u0123\u01E4\u01E5\u01E6\u01E7\u01F4\u01F5"
           U"\u1E20\u1E21"},
    {U"h", U"\u0124\u0125\u0126\u0127\u021E\u021F\u1E22\u1E23\u1E24\u1E25\u1E26\u1E27\u1E28\u1E29"
           U"\u1E2A\u1E2B\u1E96"},
    {U"i", U"\u00CC\u00CD\u00CE\u00CF\u00EC\u00ED\u00EE\u00EF\u0128\u0129\u012A\u012B\u012C\u012D"
           U"\u012E\u012F\u0130\u0131\u0197\u01CF\u01D0\u0208\u0209\u020A\u020B\u0268\u1E2C\u1E2D"
           U"\u1E2E\u1E2F\u1EC8\u1EC9\u1ECA\u1ECB"},
    {U"ij", U"\u0132\u0133"},
    {U"j", U"\u0134\u0135\u01F0"},
    {U"k", U"\u0136\u0137\u0138\u01E8\u01E9\u1E30\u1E31\u1E32\u1E33\u1E34\u1E35"},
    {U"l", U"\u0139\u013A\u013B\u013C\u013D\u013E\u013F\u0140\u0141\u0142\u1E36\u1E37\u1E38\u1E39"
           U"\u1E3A\u1E3B\u1E3C\u1E3D"},
    {U"lj", U"\u01C7\u01C8\u01C9"},
    {U"m", U"\u1E3E\u1E3F\u1E40\u1E41\u1E42\u1E43"},
    {U"n", U"\u00D1\u00F1\u0143\u0144\u0145\u0146\u0147\u0148\u0149\u014A\u014B\u01F8\u01F9\u1E44"
           U"\u1E45\u1E46\u1E47\u1E48\u1E49\u1E4A\u1E4B"},
    {U"nj", U"\u01CA\u01CB\u01CC"},
    {U"o",
     U"\u00BA\u00D2\u00D3\u00D4\u00D5\u00D8\u00F2\u00F3\u00F4\u00F5\u00F8\u014C\u014D\u014E\u014F"
     U"\u0150\u0151\u01A0\u01A1\u01D1\u01D2\u01EA\u01EB\u01EC\u01ED\u01FE\u01FF\u020C\u020D\u020E"
     U"\u020F\u022A\u022B\u022C\u022D\u022E\u022F\u0230\u0231\u1E4C\u1E4D\u1E4E\u1E4F\u1E50\u1E51"
     U"\u1E52\u1E53\u1ECC\u1ECD\u1ECE\u1ECF\u1ED0\u1ED1\u1ED2\u1ED3\u1ED4\u1ED5\u1ED6\u1ED7\u1ED8"
     U"\u1ED9\u1EDA\u1EDB\u1EDC\u1EDD\u1EDE\u1EDF\u1EE0\u1EE1\u1EE2\u1EE3"},
    {U"oe", U"\u0152\u0153"},
    {U"p", U"\u1E54\u1E55\u1E56\u1E57"},
    {U"r", U"\u0154\u0155\u0156\u0157\u0158\u0159\u0210\u0211\u0212\u0213\u1E58\u1E59\u1E5A\u1E5B"
           U"\u1E5C\u1E5D\u1E5E\u1E5F"},
    {U"s", U"\u015A\u015B\u015C\u015D\u015E\u015F\u0160\u0161\u017F\u0218\u0219\u1E60\u1E61\u1E62"
           U"\u1E63\u1E64\u1E65\u1E66\u1E67\u1E68\u1E69\u1E9B"},
    {U"ss", U"\u00DF\u1E9E"},
    {U"t", U"\u0162\u0163\u0164\u0165\u0166\u0167\u021A\u021B\u1E6A\u1E6B\u1E6C\u1E6D\u1E6E\u1E6F"
           U"\u1E70\u1E71\u1E97"},
    {U"th", U"\u00DE\u00FE"},
    {U"u",
     U"\u00D9\u00DA\u00DB\u00DC\u00F9\u00FA\u00FB\u00FC\u0168\u0169\u016A\u016B\u016C\u016D\u016E"
     U"\u016F\u0170\u0171\u0172\u0173\u01AF\u01B0\u01D3\u01D4\u01D5\u01D6\u01D7\u01D8\u01D9\u01DA"
     U"\u01DB\u01DC\u0214\u0215\u0216\u0217\u1E72\u1E73\u1E74\u1E75\u1E76\u1E77\u1E78\u1E79\u1E7A"
     U"\u1E7B\u1EE4\u1EE5\u1EE6\u1EE7\u1EE8\u1EE9\u1EEA\u1EEB\u1EEC\u1EED\u1EEE\u1EEF\u1EF0\u1EF1"},
    {U"v", U"\u1E7C\u1E7D\u1E7E\u1E7F"},
    {U"w", U"\u0174\u0175\u1E80\u1E81\u1E82\u1E83\u1E84\u1E85\u1E86\u1E87\u1E88\u1E89\u1E98"},
    {U"x", U"\u1E8A\u1E8B\u1E8C\u1E8D"},
    {U"y", U"\u00DD\u00FD\u00FF\u0176\u0177\u0178\u0232\u0233\u1E8E\u1E8F\u1E99\u1EF2\u1EF3\u1EF4"
           U"\u1EF5\u1EF6\u1EF7\u1EF8\u1EF9"},
    {U"z", U"\u0179\u017A\u017B\u017C\u017D\u017E\u01B5\u01B6\u1E90\u1E91\u1E92\u1E93\u1E94\u1E95"},
});

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

/// Marks that stand behind their letter instead of in one character with it.
constexpr bool isMark(char32_t character) {
    return character >= U'\u0300' && character <= U'\u036F';
}

template <typename Table>
const BaseLetter* rowOf(const Table& table, char32_t character) {
    const auto row = std::ranges::find_if(table, [character](const BaseLetter& one) {
        return one.letters.find(character) != std::u32string_view::npos;
    });
    return row == table.end() ? nullptr : &*row;
}

} // namespace

std::u32string baseLetters(std::u32string_view text) {
    std::u32string plain;
    for (const char32_t character : text) {
        const BaseLetter* row = nullptr;
        if (!hasGlyph(character)) {
            row = rowOf(kLetters, character);
            row = row != nullptr ? row : rowOf(kPunctuation, character);
        }
        if (row != nullptr) {
            plain += row->base;
        } else if (!isMark(character) || plain.empty() || !hasGlyph(plain.back())) {
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
