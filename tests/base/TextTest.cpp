// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Text.h"

#include <gtest/gtest.h>

namespace tovik::base {
namespace {

using namespace std::string_view_literals;

TEST(Text, wellFormedUtf8) {
    for (const auto text : {""sv, "plain"sv, "\0zero"sv, "\xC2\x80"sv, "\xDF\xBF"sv,
                            "\xE0\xA0\x80"sv, "\xED\x9F\xBF"sv, "\xEE\x80\x80"sv, "\xEF\xBF\xBD"sv,
                            "\xF0\x90\x80\x80"sv, "\xF4\x8F\xBF\xBF"sv}) {
        EXPECT_TRUE(isUtf8(text)) << text;
    }
}

TEST(Text, illFormedUtf8) {
    for (const auto text :
         {"\x80"sv, "\xBF"sv, "\xC0\x80"sv, "\xC1\xBF"sv, "\xC2"sv, "\xC2x"sv, "\xE0\x9F\xBF"sv,
          "\xED\xA0\x80"sv, "\xE2\x82"sv, "\xE2\x82x"sv, "\xF0\x8F\xBF\xBF"sv, "\xF4\x90\x80\x80"sv,
          "\xF5\x80\x80\x80"sv, "\xF0\x90\x80"sv, "\xFF"sv, "caf\xE9"sv}) {
        EXPECT_FALSE(isUtf8(text));
    }
}

TEST(Text, aCutNeverLeavesHalfACharacter) {
    EXPECT_EQ(cutToWidth("abc", 5), "abc");
    EXPECT_EQ(cutToWidth("abc", 3), "abc");
    EXPECT_EQ(cutToWidth("abc", 2), "ab");
    EXPECT_EQ(cutToWidth("aé", 2), "a");
    EXPECT_EQ(cutToWidth("a€b", 3), "a");
    EXPECT_EQ(cutToWidth("a€b", 4), "a€");
    EXPECT_EQ(cutToWidth("😀", 3), "");
    EXPECT_EQ(cutToWidth("é", 0), "");
}

TEST(Text, charactersAreCountedInUtf8AndBytesElsewhere) {
    EXPECT_EQ(firstCharacters("abc", 5), "abc");
    EXPECT_EQ(firstCharacters("abc", 3), "abc");
    EXPECT_EQ(firstCharacters("abc", 2), "ab");
    EXPECT_EQ(firstCharacters("aé€😀b", 4), "aé€😀");
    EXPECT_EQ(firstCharacters("é", 0), "");
    EXPECT_EQ(firstCharacters("", 3), "");
    EXPECT_EQ(firstCharacters("\xE9\xE8\xE0", 2), "\xE9\xE8");
}

TEST(Text, otherBytesAreCutAnywhere) {
    EXPECT_EQ(cutToWidth("\x80\x81\x82", 2), "\x80\x81");
}

TEST(Text, everyCutOfUtf8IsUtf8) {
    const std::string text = "zażółć 漢字 😀 č";
    for (std::size_t width = 0; width <= text.size(); ++width) {
        const auto cut = cutToWidth(text, width);
        EXPECT_TRUE(isUtf8(cut)) << width;
        EXPECT_LE(cut.size(), width);
        EXPECT_GT(cut.size() + 4, width);
    }
}

TEST(Text, caseIsThatOfAsciiAlone) {
    EXPECT_EQ(toLowerAscii("AZaz[@`{09\xC4É"), "azaz[@`{09\xC4É");
    EXPECT_EQ(toUpperAscii("AZaz[@`{09\xE4é"), "AZAZ[@`{09\xE4é");
    EXPECT_TRUE(equalsIgnoringCase("Settings.XML", "settings.xml"));
    EXPECT_FALSE(equalsIgnoringCase("É", "é"));
    EXPECT_FALSE(equalsIgnoringCase("a", "ab"));
    EXPECT_FALSE(equalsIgnoringCase("[", "{"));
}

TEST(Text, trimmingTakesSpacesAlone) {
    EXPECT_EQ(trimmed("  a b  "), "a b");
    EXPECT_EQ(trimmed("   "), "");
    EXPECT_EQ(trimmed(""), "");
    EXPECT_EQ(trimmed("\t a\n"), "\t a\n");
}

} // namespace
} // namespace tovik::base
