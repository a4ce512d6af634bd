// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/HeardClock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace tovik::sound {
namespace {

using std::chrono::milliseconds;

const HeardClock::Time kThen = HeardClock::Time(std::chrono::seconds(1000));

TEST(HeardClock, KnowsNothingUntilItIsToldAndAfterItIsCleared) {
    HeardClock clock;
    EXPECT_EQ(clock.at(kThen), std::nullopt);
    clock.set({.clock = 5, .when = kThen, .runs = false, .limit = 10});
    EXPECT_EQ(clock.at(kThen), 5);
    clock.clear();
    EXPECT_EQ(clock.at(kThen), std::nullopt);
}

TEST(HeardClock, CountsTimeOnWhileItRunsUpToItsLimit) {
    HeardClock clock;
    clock.set({.clock = 1000, .when = kThen, .runs = true, .limit = 50'000});
    EXPECT_EQ(clock.at(kThen + milliseconds(100)), 5410);
    EXPECT_EQ(clock.at(kThen - milliseconds(100)), 1000);
    EXPECT_EQ(clock.at(kThen + milliseconds(3000)), 50'000);
    clock.set({.clock = 1000, .when = kThen, .runs = false, .limit = 50'000});
    EXPECT_EQ(clock.at(kThen + milliseconds(100)), 1000);
}

TEST(HeardClock, WithoutNewsTimeStops) {
    HeardClock clock;
    clock.set({.clock = 0, .when = kThen, .runs = true, .limit = 1 << 30});
    EXPECT_EQ(clock.at(kThen + std::chrono::seconds(100)), 4 * 44'100);
}

TEST(HeardClock, AReaderSeesOnlyWhatBelongsTogether) {
    HeardClock clock;
    clock.set({.clock = 0, .when = kThen, .runs = false, .limit = 0});
    std::atomic<bool> done = false;
    std::thread writer([&] {
        for (std::int64_t i = 1; i < 20'000; ++i) {
            clock.set({.clock = i, .when = kThen, .runs = false, .limit = i});
        }
        done = true;
    });
    std::int64_t last = 0;
    int backwards = 0;
    while (!done) {
        const std::int64_t now = clock.at(kThen).value_or(-1);
        backwards += now < last ? 1 : 0; // a limit of an older reading would hold it back
        last = now;
    }
    writer.join();
    EXPECT_EQ(backwards, 0);
}

} // namespace
} // namespace tovik::sound
