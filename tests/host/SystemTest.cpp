// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/OperatingSystem.h"
#include "host/SeededRandom.h"
#include "host/system/SystemClock.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <thread>

namespace tovik::host {
namespace {

TEST(OperatingSystem, isReadFromTheRelease) {
    EXPECT_EQ(OperatingSystem::fromRelease("6.1.0-13-amd64"), (OperatingSystem{6, 1}));
    EXPECT_EQ(OperatingSystem::fromRelease("5.15"), (OperatingSystem{5, 15}));
    EXPECT_EQ(OperatingSystem::fromRelease("4"), (OperatingSystem{4, 0}));
    EXPECT_EQ(OperatingSystem::fromRelease("x.y"), (OperatingSystem{0, 0}));
    EXPECT_EQ(OperatingSystem::fromRelease(""), (OperatingSystem{0, 0}));
    EXPECT_GE(OperatingSystem::current().major, 3);
}

TEST(SeededRandom, sameSeedSameNumbers) {
    SeededRandom one(7);
    SeededRandom other(7);
    SeededRandom third(8);
    int differences = 0;
    for (int index = 0; index < 1000; ++index) {
        const double number = one.next();
        EXPECT_EQ(number, other.next());
        differences += number == third.next() ? 0 : 1;
    }
    EXPECT_GT(differences, 990);
}

TEST(SeededRandom, uniformFromZeroToBelowOne) {
    SeededRandom random(1);
    constexpr int kCount = 90000;
    std::array<int, 9> cells{};
    for (int index = 0; index < kCount; ++index) {
        const double number = random.next();
        ASSERT_GE(number, 0);
        ASSERT_LT(number, 1);
        ++cells.at(static_cast<std::size_t>(number * 9));
    }
    for (const int cell : cells) { // 10000 expected, standard deviation 94
        EXPECT_NEAR(cell, 10000, 500);
    }
}

TEST(SystemClock, goesOn) {
    const SystemClock clock;
    const auto before = clock.monotonicMs();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_GE(clock.monotonicMs() - before, 4);
}

TEST(SystemClock, tellsLocalTime) {
    ::setenv("TZ", "UTC-5", 1); // five hours ahead
    ::tzset();
    const SystemClock clock;
    const std::time_t before = std::time(nullptr);
    const LocalTime told = clock.localTime();
    const std::time_t after = std::time(nullptr);
    std::tm utc{};
    utc.tm_year = told.year - 1900;
    utc.tm_mon = told.month - 1;
    utc.tm_mday = told.day;
    utc.tm_hour = told.hour - 5;
    utc.tm_min = told.minute;
    utc.tm_sec = told.second;
    const std::time_t moment = ::timegm(&utc);
    EXPECT_GE(moment, before);
    EXPECT_LE(moment, after);
    ::unsetenv("TZ");
    ::tzset();
}

} // namespace
} // namespace tovik::host
