// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Unicode.h"

#include "base/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace tovik::base {
namespace {

using namespace std::string_literals;

TEST(Unicode, charactersInUtf8) {
    struct Case {
        std::uint32_t character;
        std::string bytes;
    };

    for (const Case& one :
         {Case{0, "\0"s}, Case{0x7F, "\x7F"}, Case{0x80, "\xC2\x80"}, Case{0x7FF, "\xDF\xBF"},
          Case{0x800, "\xE0\xA0\x80"}, Case{0xFFFF, "\xEF\xBF\xBF"},
          Case{0x10000, "\xF0\x90\x80\x80"}, Case{0x10FFFF, "\xF4\x8F\xBF\xBF"}}) {
        std::string text = "x";
        appendUtf8(text, one.character);
        EXPECT_EQ(text, "x" + one.bytes) << one.character;
        EXPECT_TRUE(isUtf8(text));
    }
}

TEST(Unicode, utf16BothWays) {
    EXPECT_EQ(utf8FromUtf16("a\0\x0D\x01\x3D\xD8\x00\xDE"s, ByteOrder::LittleEndian),
              "a\xC4\x8D\xF0\x9F\x98\x80");
    EXPECT_EQ(utf8FromUtf16("\0a\x01\x0D\xD8\x3D\xDE\x00"s, ByteOrder::BigEndian),
              "a\xC4\x8D\xF0\x9F\x98\x80");
    EXPECT_EQ(utf8FromUtf16("", ByteOrder::BigEndian), "");
}

TEST(Unicode, charactersInUtf16) {
    EXPECT_EQ(utf16LeOf(U"a\U0000010D\U0001F600"), "a\0\x0D\x01\x3D\xD8\x00\xDE"s);
    EXPECT_EQ(utf16LeOf(U""), "");
}

TEST(Unicode, halvesAreReplaced) {
    const std::string bad = "\xEF\xBF\xBD";
    EXPECT_EQ(utf8FromUtf16("\xD8\x3D"s, ByteOrder::BigEndian), bad);
    EXPECT_EQ(utf8FromUtf16("\xD8\x3D\0a"s, ByteOrder::BigEndian), bad + "a");
    EXPECT_EQ(utf8FromUtf16("\xDE\x00\xD8\x3D\xD8\x3D\xDE\x00"s, ByteOrder::BigEndian),
              bad + bad + "\xF0\x9F\x98\x80");
    EXPECT_EQ(utf8FromUtf16("\0a\0"s, ByteOrder::BigEndian), "a" + bad);
}

TEST(Unicode, theMarkTellsTheText) {
    EXPECT_EQ(withoutByteOrderMark("\xEF\xBB\xBF"
                                   "a\xFF"),
              "a\xFF");
    EXPECT_EQ(withoutByteOrderMark("\xFF\xFE"
                                   "a\0"s),
              "a");
    EXPECT_EQ(withoutByteOrderMark("\xFE\xFF"
                                   "\0a"s),
              "a");
    EXPECT_EQ(withoutByteOrderMark("a\0b\0"s), "a\0b\0"s);
    for (const char* const text : {"", "\xFF", "\xEF\xBB", "a"}) {
        EXPECT_EQ(withoutByteOrderMark(text), text);
    }
    EXPECT_EQ(withoutByteOrderMark("\xFF\xFE"), "");
}

} // namespace
} // namespace tovik::base
