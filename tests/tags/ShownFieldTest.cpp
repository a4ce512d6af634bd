// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/ShownField.h"

#include <gtest/gtest.h>

namespace tovik::tags {
namespace {

using namespace std::string_view_literals;

TEST(ShownField, paddingIsDropped) {
    EXPECT_EQ(shownField("Title      "), "Title");
    EXPECT_EQ(shownField("Title\0\0\0\0"sv), "Title");
    EXPECT_EQ(shownField("  Two words \0rest "sv), "Two words");
}

TEST(ShownField, paddingAloneIsNothing) {
    EXPECT_EQ(shownField(""), "");
    EXPECT_EQ(shownField("     "), "");
    EXPECT_EQ(shownField("\0\0\0"sv), "");
    EXPECT_EQ(shownField("\0hidden"sv), "");
}

TEST(ShownField, otherBytesStay) {
    EXPECT_EQ(shownField("\xE4\t"), "\xE4\t");
}

} // namespace
} // namespace tovik::tags
