// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/BufferRule.h"

#include <gtest/gtest.h>

namespace tovik::sound {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kRate = 16'000;

bool enough(std::size_t bytes, std::chrono::milliseconds quiet, bool complete = false) {
    return isEnough(
        {}, {.bytes = bytes, .bytesPerSecond = kRate, .quiet = quiet, .complete = complete});
}

TEST(EnoughToBeHeard, IsThreeSecondsInAnyCase) {
    EXPECT_TRUE(enough(3 * kRate, 0ms));
    EXPECT_FALSE(enough(3 * kRate - 16, 0ms));
}

TEST(EnoughToBeHeard, IsABurstOfHalfASecond) {
    EXPECT_TRUE(enough(kRate / 2, 60ms));
    EXPECT_FALSE(enough(kRate / 2, 59ms));
    EXPECT_FALSE(enough(kRate / 2 - 16, 1000ms));
}

TEST(EnoughToBeHeard, IsWhateverThereIsWhenNoMoreComes) {
    EXPECT_TRUE(enough(1, 0ms, true));
}

TEST(Buffering, IsToldInPercentOfThreeSeconds) {
    EXPECT_EQ(percentThere({}, {.bytes = 0, .bytesPerSecond = kRate}), 0);
    EXPECT_EQ(percentThere({}, {.bytes = kRate, .bytesPerSecond = kRate}), 33);
    EXPECT_EQ(percentThere({}, {.bytes = 9 * kRate, .bytesPerSecond = kRate}), 99);
    EXPECT_EQ(percentThere({}, {.bytes = 1, .bytesPerSecond = 0}), 33);
}

} // namespace
} // namespace tovik::sound
