// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Digest.h"

#include <gtest/gtest.h>

#include <string>

namespace tovik::base {
namespace {

// The values that the makers of the hash give for it.
TEST(Digest, isTheOneOfTheTables) {
    EXPECT_EQ(digestOf(""), "cbf29ce484222325");
    EXPECT_EQ(digestOf("a"), "af63dc4c8601ec8c");
    EXPECT_EQ(digestOf("foobar"), "85944171f73967e8");
}

TEST(Digest, takesBytesOfAllValues) {
    EXPECT_NE(digestOf(std::string(1, '\0')), digestOf(""));
    EXPECT_NE(digestOf("\x80"), digestOf("\xff"));
}

} // namespace
} // namespace tovik::base
