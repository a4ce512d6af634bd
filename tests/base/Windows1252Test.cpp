// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Windows1252.h"
#include "base/Text.h"

#include <gtest/gtest.h>

namespace tovik::base {
namespace {

TEST(Windows1252, knownCharacters) {
    EXPECT_EQ(utf8FromWindows1252("caf\xE9 \x80 \x8A\x9A\x8E\x9E \x93\x94"), "café € ŠšŽž “”");
    EXPECT_EQ(windows1252FromUtf8("café € ŠšŽž “”"), "caf\xE9 \x80 \x8A\x9A\x8E\x9E \x93\x94");
}

TEST(Windows1252, everyByteComesBack) {
    for (int number = 0; number < 256; ++number) {
        const std::string byte(1, static_cast<char>(number));
        const std::string text = utf8FromWindows1252(byte);
        EXPECT_TRUE(isUtf8(text)) << number;
        EXPECT_EQ(windows1252FromUtf8(text), byte) << number;
    }
}

TEST(Windows1252, whatDoesNotFitIsRefused) {
    for (const char* text : {"č", "漢字", "😀", "Ā", "\xC2\x80", "not utf-8 \xE9"}) {
        EXPECT_EQ(windows1252FromUtf8(text), std::nullopt) << text;
    }
}

TEST(DisplayText, utf8IsItselfAndAnythingElseIsTheCodePage) {
    EXPECT_EQ(displayText("Žiga – č"), "Žiga – č");
    EXPECT_EQ(displayText("\x8Eiga"), "Žiga");
    EXPECT_EQ(displayText("č and \xE9"), "Ä\xC2\x8D and é");
    EXPECT_EQ(displayText(""), "");
}

} // namespace
} // namespace tovik::base
