// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TimeText.h"

#include "base/RuntimeError.h"

#include <gtest/gtest.h>

#include <limits>

namespace tovik::base {
namespace {

TEST(TimeText, nothingAndLessIsZero) {
    EXPECT_EQ(GetTime(0), "00:00:00");
    EXPECT_EQ(GetTime(-1), "00:00:00");
    EXPECT_EQ(GetTime(std::numeric_limits<std::int32_t>::min()), "00:00:00");
}

TEST(TimeText, hoursMinutesSeconds) {
    EXPECT_EQ(GetTime(1), "00:00:01");
    EXPECT_EQ(GetTime(59), "00:00:59");
    EXPECT_EQ(GetTime(215), "00:03:35");
    EXPECT_EQ(GetTime(3600), "01:00:00");
    EXPECT_EQ(GetTime(3900), "01:05:00"); // an hour and a twelfth, which no binary fraction is
    EXPECT_EQ(GetTime(86399), "23:59:59");
}

TEST(TimeText, longTimesTakeMoreDigits) {
    EXPECT_EQ(GetTime(360000), "100:00:00");
    EXPECT_EQ(GetTime(std::numeric_limits<std::int32_t>::max()), "596523:14:07");
}

TEST(TimeText, secondsOfAText) {
    EXPECT_EQ(GetSeconds("00:00:00"), 0);
    EXPECT_EQ(GetSeconds("01:02:03"), 3723);
    EXPECT_EQ(GetSeconds("99:59:59"), 359999);
    EXPECT_EQ(GetSeconds("01.02 03 and more"), 3723);
    EXPECT_EQ(GetSeconds(" 1: 2: 3"), 3723);
}

TEST(TimeText, everySecondOfADayComesBack) {
    for (std::int32_t seconds = 0; seconds < 86400; ++seconds) {
        ASSERT_EQ(GetSeconds(GetTime(seconds)), seconds);
    }
}

TEST(TimeText, lastFiveCutsHoursAway) {
    EXPECT_EQ(lastFive(0), "00:00");
    EXPECT_EQ(lastFive(-1), "00:00");
    EXPECT_EQ(lastFive(215), "03:35");
    EXPECT_EQ(lastFive(3600 + 61), "01:01");
    EXPECT_EQ(lastFive(360000 + 59), "00:59");
}

TEST(TimeText, whatIsNoNumberIsATypeMismatch) {
    for (const char* text : {"", "03:35", "aa:00:00", "00:bb:00", "00:00:", "00:00:cc"}) {
        try {
            static_cast<void>(GetSeconds(text));
            ADD_FAILURE() << text;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), 13) << text;
        }
    }
}

TEST(TimeText, aShortTimeHasHoursWhereThereAreAny) {
    EXPECT_EQ(shortTime(0), "00:00");
    EXPECT_EQ(shortTime(3599), "59:59");
    EXPECT_EQ(shortTime(3600), "1:00:00");
    EXPECT_EQ(shortTime(36'005), "10:00:05");
}

} // namespace
} // namespace tovik::base
