// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileName.h"

#include "base/Text.h"

#include <gtest/gtest.h>
#include <string>

namespace tovik::base {
namespace {

constexpr std::size_t kEnding = 4;

std::string clean(std::string_view text) {
    return cleanFileName(text, kEnding);
}

TEST(FileNameTest, whatPartsBecomesADashAndOtherSignsGo) {
    EXPECT_EQ(clean("AC/DC: Back\\in|Black"), "AC-DC- Back-in-Black");
    EXPECT_EQ(clean("What? *<\"now\">"), "What now");
    EXPECT_EQ(clean("a\nb\x7F\xC2\x85z"), "abz");
    EXPECT_EQ(clean("\xC3\x84; 'x' (2)"), "\xC3\x84; 'x' (2)");
    EXPECT_EQ(clean("\xC4"), "\xC3\x84") << "UTF-8, whatever was told";
}

TEST(FileNameTest, noDotsAndBlanksAtTheEnds) {
    EXPECT_EQ(clean(" ..a.b.. "), "a.b");
    for (const char* const nothing : {"", ".", "..", " . ", "?", "\n"}) {
        EXPECT_EQ(clean(nothing), "") << nothing;
    }
    EXPECT_EQ(clean("../../x"), "-..-x");
}

TEST(FileNameTest, aNameHasRoomForItsNumberAndEnding) {
    const std::string name = clean(std::string(300, 'x'));
    EXPECT_LE(numberedFileName(name, 2147483647, ".mp3").size(), kMostNameBytes);
    EXPECT_GE(name.size(), 230U);
    std::string umlauts = "x";
    for (int i = 0; i < 200; ++i) {
        umlauts += "\xC3\x84";
    }
    EXPECT_TRUE(isUtf8(clean(umlauts)));
    EXPECT_EQ(clean(std::string(230, 'x') + " ......... " + std::string(20, 'y')).back(), 'x')
        << "no dots and blanks where it was cut, either";
}

TEST(FileNameTest, theFirstHasNoNumber) {
    EXPECT_EQ(numberedFileName("a", 1, ".mp3"), "a.mp3");
    EXPECT_EQ(numberedFileName("a", 2, ".mp3"), "a (2).mp3");
}

} // namespace
} // namespace tovik::base
