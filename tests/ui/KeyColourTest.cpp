// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/KeyColour.h"

#include <gtest/gtest.h>

namespace tovik::ui {
namespace {

TEST(KeyColour, isAFunctionOfTheDepth) {
    EXPECT_EQ(keyColour(16), (Colour{239, 222, 8}));
    EXPECT_EQ(keyColour(24), (Colour{239, 222, 8}));
    EXPECT_EQ(keyColour(32), (Colour{235, 222, 14}));
    for (const int depth : {-1, 0, 1, 8, 15, 17, 31, 33, 64}) {
        EXPECT_EQ(keyColour(depth), Colour{}) << depth;
    }
    EXPECT_EQ(keyColour(kWindowDepth), (Colour{235, 222, 14}));
}

} // namespace
} // namespace tovik::ui
