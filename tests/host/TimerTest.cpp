// SPDX-License-Identifier: GPL-3.0-or-later
// The rules of timers, on the virtual clock.
#include "support/host/TestHost.h"

#include <gmock/gmock.h>

#include <array>

namespace tovik::host {
namespace {

using testing::ElementsAre;

class TimerTest : public testing::Test {
protected:
    /// A running timer that notes the times of its ticks.
    std::unique_ptr<Timer> noting(int interval) {
        auto timer = host_.clock.makeTimer([this] { ticks_.push_back(host_.clock.monotonicMs()); });
        timer->setInterval(interval);
        timer->setEnabled(true);
        return timer;
    }

    test::TestHost host_;
    std::vector<std::int64_t> ticks_;
};

TEST_F(TimerTest, aNewTimerIsOff) {
    const auto timer = host_.clock.makeTimer([this] { ticks_.push_back(0); });
    EXPECT_FALSE(timer->enabled());
    EXPECT_EQ(timer->interval(), 0);
    host_.clock.advanceTo(1000);
    EXPECT_THAT(ticks_, ElementsAre());
}

TEST_F(TimerTest, ticksEveryInterval) {
    const auto timer = noting(250);
    host_.clock.advanceTo(249);
    EXPECT_THAT(ticks_, ElementsAre());
    host_.clock.advanceTo(1000);
    EXPECT_THAT(ticks_, ElementsAre(250, 500, 750, 1000));
}

TEST_F(TimerTest, intervalZeroNeverTicksThoughEnabled) {
    const auto timer = noting(0);
    EXPECT_TRUE(timer->enabled());
    EXPECT_EQ(host_.clock.nextDue(), std::nullopt);
    host_.clock.advanceTo(1000);
    EXPECT_THAT(ticks_, ElementsAre());
    timer->setInterval(100);
    host_.clock.advanceTo(1100);
    EXPECT_THAT(ticks_, ElementsAre(1100));
    timer->setInterval(-5);
    EXPECT_EQ(timer->interval(), 0);
    host_.clock.advanceTo(5000);
    EXPECT_THAT(ticks_, ElementsAre(1100));
}

TEST_F(TimerTest, tellsHowLongTheNextTickIsAway) {
    const auto timer = noting(100);
    EXPECT_EQ(timer->remainingMs(), 100);
    host_.clock.advanceTo(130);
    EXPECT_EQ(timer->remainingMs(), 70);
    timer->setEnabled(false);
    EXPECT_EQ(timer->remainingMs(), std::nullopt);
    timer->setEnabled(true);
    timer->setInterval(0);
    EXPECT_EQ(timer->remainingMs(), std::nullopt);
}

TEST_F(TimerTest, enablingAndSettingTheIntervalStartTheCountAnew) {
    const auto timer = noting(100);
    host_.clock.advanceTo(90);
    timer->setEnabled(true);
    host_.clock.advanceTo(180);
    timer->setInterval(100);
    host_.clock.advanceTo(279);
    EXPECT_THAT(ticks_, ElementsAre());
    host_.clock.advanceTo(280);
    EXPECT_THAT(ticks_, ElementsAre(280));
    timer->setEnabled(false);
    host_.clock.advanceTo(900);
    timer->setEnabled(true);
    host_.clock.advanceTo(1000);
    EXPECT_THAT(ticks_, ElementsAre(280, 1000));
}

TEST_F(TimerTest, aOneShotDisablesItselfInItsTick) {
    std::unique_ptr<Timer> timer = host_.clock.makeTimer([&] {
        ticks_.push_back(host_.clock.monotonicMs());
        timer->setEnabled(false);
    });
    timer->setInterval(10);
    timer->setEnabled(true);
    host_.clock.advanceTo(100);
    EXPECT_THAT(ticks_, ElementsAre(10));
}

TEST_F(TimerTest, aTickMaySetTheIntervalAndTheCountStartsThere) {
    std::unique_ptr<Timer> timer = host_.clock.makeTimer([&] {
        ticks_.push_back(host_.clock.monotonicMs());
        timer->setInterval(30);
    });
    timer->setInterval(10);
    timer->setEnabled(true);
    host_.clock.advanceTo(75);
    EXPECT_THAT(ticks_, ElementsAre(10, 40, 70));
}

TEST_F(TimerTest, neverInsideItsOwnTickAndTicksDoNotQueue) {
    bool long_ = true;
    std::unique_ptr<Timer> timer = host_.clock.makeTimer([&] {
        ticks_.push_back(host_.clock.monotonicMs());
        if (std::exchange(long_, false)) {
            host_.clock.advanceTo(host_.clock.monotonicMs() + 350); // four ticks are missed
            EXPECT_TRUE(host_.pump.Step());
            EXPECT_EQ(ticks_.size(), 1U);
        }
    });
    timer->setInterval(100);
    timer->setEnabled(true);
    host_.clock.advanceTo(600);
    // One tick at once when the long one ends (at 450), then in the old rhythm.
    EXPECT_THAT(ticks_, ElementsAre(100, 450, 500, 600));
}

TEST_F(TimerTest, insideAnotherHandlerOnlyWhereThatGivesWay) {
    std::vector<std::string> order;
    bool giveWay = true;
    std::unique_ptr<Timer> first = host_.clock.makeTimer([&] {
        order.emplace_back("first begins");
        if (giveWay) {
            EXPECT_TRUE(host_.pump.Step());
        }
        order.emplace_back("first ends");
    });
    std::unique_ptr<Timer> second = host_.clock.makeTimer([&] { order.emplace_back("second"); });
    for (Timer* const timer : {first.get(), second.get()}) {
        timer->setInterval(10);
        timer->setEnabled(true);
    }
    host_.clock.advanceTo(10);
    EXPECT_THAT(order, ElementsAre("first begins", "second", "first ends"));
    giveWay = false;
    order.clear();
    host_.clock.advanceTo(20);
    EXPECT_THAT(order, ElementsAre("first begins", "first ends", "second"));
}

TEST_F(TimerTest, anErrorInATickIsReportedAndTheTimerGoesOn) {
    const auto timer =
        host_.clock.makeTimer([] { throw base::RuntimeError(base::ErrorNumber::DivisionByZero); });
    timer->setInterval(10);
    timer->setEnabled(true);
    host_.clock.advanceTo(30);
    ASSERT_EQ(host_.errors.size(), 3U);
    EXPECT_EQ(host_.errors[0].number(), 11);
}

TEST_F(TimerTest, sameTimeInTheOrderOfCreation) {
    std::vector<int> order;
    std::vector<std::unique_ptr<Timer>> timers;
    timers.reserve(4);
    for (int number = 0; number < 4; ++number) {
        timers.push_back(host_.clock.makeTimer([&order, number] { order.push_back(number); }));
    }
    // Enabled in another order and with intervals that meet at 60.
    constexpr std::array intervals{30, 20, 60, 15};
    for (const std::size_t index : {3U, 1U, 0U, 2U}) {
        timers[index]->setInterval(intervals.at(index));
        timers[index]->setEnabled(true);
    }
    host_.clock.advanceTo(59);
    EXPECT_THAT(order, ElementsAre(3, 1, 0, 3, 1, 3));
    order.clear();
    host_.clock.advanceTo(60);
    EXPECT_THAT(order, ElementsAre(0, 1, 2, 3));
}

TEST_F(TimerTest, nextDueIsTheEarliest) {
    auto slow = noting(100);
    EXPECT_EQ(host_.clock.nextDue(), 100);
    auto fast = noting(40);
    EXPECT_EQ(host_.clock.nextDue(), 40);
    host_.clock.advanceTo(40);
    EXPECT_EQ(host_.clock.nextDue(), 80);
    fast.reset();
    EXPECT_EQ(host_.clock.nextDue(), 100);
    slow->setEnabled(false);
    EXPECT_EQ(host_.clock.nextDue(), std::nullopt);
}

} // namespace
} // namespace tovik::host
