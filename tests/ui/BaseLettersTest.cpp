// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/BaseLetters.h"

#include "ui/GlyphText.h"

#include <gtest/gtest.h>

namespace tovik::ui {
namespace {

struct Pair {
    const char* text;
    std::u32string_view plain;
};

TEST(BaseLetters, lettersWithMarksBecomePlainOnes) {
    for (const Pair& pair : {
             Pair{"\u010C\u0161\u017E\u0107\u0111", U"cszcd"}, Pair{"Beyonc\u00E9", U"Beyonce"},
             Pair{"Stra\u00DFe", U"Strasse"}, Pair{"\u0141\u00F3d\u017A", U"lodz"},
             Pair{"\u00C6r\u00F8 \u0152uvre", U"aero oeuvre"},
             Pair{"Ti\u1EBFng Vi\u1EC7t", U"Tieng Viet"},
             Pair{"Bj\xF6rk \xC9tude", U"Bj\u00F6rk etude"}, // Windows-1252
             Pair{"c\u030Cas", U"cas"},                      // the mark stands by itself
         }) {
        EXPECT_EQ(drawableCharacters(pair.text), pair.plain) << pair.text;
    }
}

TEST(BaseLetters, typographyBecomesPlain) {
    EXPECT_EQ(baseLetters(U"a\u2013b\u2014c\u2026"), U"a-b-c...");
    EXPECT_EQ(baseLetters(U"it\u2019s \u201Ein\u201C \u00ABout\u00BB"), U"it's 'in' 'out'");
    EXPECT_EQ(baseLetters(U"a\u00A0b\u200Bc"), U"a bc");
}

TEST(BaseLetters, everythingInTheTableCanBeDrawn) {
    int replaced = 0;
    for (char32_t character = 0x80; character < 0x3000; ++character) {
        const std::u32string plain = baseLetters(std::u32string(1, character));
        if (plain != std::u32string(1, character)) {
            ++replaced;
            for (const char32_t one : plain) {
                EXPECT_TRUE(hasGlyph(one)) << static_cast<std::uint32_t>(character);
            }
        }
    }
    EXPECT_GT(replaced, 570);
}

TEST(BaseLetters, whatTheStripsHaveStays) {
    EXPECT_EQ(baseLetters(U"\u00C4\u00F6 Az-09!?*"), U"\u00C4\u00F6 Az-09!?*");
}

TEST(BaseLetters, otherAlphabetsStayWholeForAFont) {
    const std::u32string mixed = U"\u0416\u0443\u043A \u010Caj";
    EXPECT_EQ(drawableCharacters(utf8Of(mixed)), mixed);
    EXPECT_FALSE(suitsStrips(mixed));
    EXPECT_FALSE(suitsStrips(U"5 \u20AC"));
    EXPECT_EQ(drawableCharacters("\u0438\u0306"), U"\u0438\u0306") << "the mark belongs to it";
}

TEST(BaseLetters, whatTheAlphabetOfTheStripsLeavesOutIsDrawnWithThem) {
    EXPECT_TRUE(suitsStrips(U"a;\"@<>{}|~"));
    EXPECT_EQ(drawableCharacters("AC/DC; \"Live\""), U"AC/DC; \"Live\"");
}

} // namespace
} // namespace tovik::ui
