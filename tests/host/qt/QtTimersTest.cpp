// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/qt/QtTimers.h"
#include "EventLoop.h"
#include "host/Closing.h"
#include "host/qt/QtMessagePump.h"
#include "host/system/SystemClock.h"

#include <gtest/gtest.h>

#include <QThread>

#include <vector>

namespace tovik::host {
namespace {

class QtTimersTest : public testing::Test {
protected:
    std::unique_ptr<Timer> make(int interval, Timer::Tick tick) {
        auto timer = timers_.makeTimer(std::move(tick));
        timer->setInterval(interval);
        timer->setEnabled(true);
        return timer;
    }

    SystemClock clock_;
    Dispatcher dispatcher_;
    QtTimers timers_{clock_, dispatcher_};
    Closing closing_{[](int) {}};
    QtMessagePump pump_{clock_, closing_};
};

TEST_F(QtTimersTest, ticksInItsRhythm) {
    const std::int64_t start = clock_.monotonicMs();
    std::vector<std::int64_t> ticks;
    const auto timer = make(20, [&] { ticks.push_back(clock_.monotonicMs() - start); });
    ASSERT_TRUE(test::waitFor([&] { return ticks.size() >= 10; }));
    // Lateness does not add up: a tick is never before its place in the rhythm.
    for (std::size_t index = 0; index < ticks.size(); ++index) {
        EXPECT_GE(ticks[index], static_cast<std::int64_t>(index + 1) * 20 - 2);
    }
}

TEST_F(QtTimersTest, intervalZeroAndDisabledNeverTick) {
    int ticks = 0;
    const auto zero = make(0, [&] { ++ticks; });
    const auto off = make(5, [&] { ++ticks; });
    off->setEnabled(false);
    int others = 0;
    const auto other = make(5, [&] { ++others; });
    ASSERT_TRUE(test::waitFor([&] { return others >= 10; }));
    EXPECT_EQ(ticks, 0);
    EXPECT_TRUE(zero->enabled());
}

TEST_F(QtTimersTest, neverInsideItsOwnTickButOthersWhereItGivesWay) {
    bool inside = false;
    bool again = false;
    int long_ = 0;
    int others = 0;
    int othersInside = 0;
    const auto timer = make(5, [&] {
        again = again || inside;
        inside = true;
        QThread::msleep(30); // several ticks of both are missed
        EXPECT_TRUE(pump_.Step());
        inside = false;
        ++long_;
    });
    const auto other = make(5, [&] {
        ++others;
        othersInside += inside ? 1 : 0;
    });
    ASSERT_TRUE(test::waitFor([&] { return long_ >= 5; }));
    EXPECT_FALSE(again);
    EXPECT_GT(othersInside, 0);
}

TEST_F(QtTimersTest, ticksDoNotQueue) {
    int ticks = 0;
    const auto timer = make(50, [&] { ++ticks; });
    QThread::msleep(275);
    EXPECT_EQ(ticks, 0);
    const std::int64_t before = clock_.monotonicMs();
    ASSERT_TRUE(test::waitFor([&] { return ticks == 2; }));
    // Five were missed; one came at once, the next only with the rhythm.
    EXPECT_GE(clock_.monotonicMs() - before, 10);
}

TEST_F(QtTimersTest, anErrorInATickIsReportedAndTheTimerGoesOn) {
    int errors = 0;
    dispatcher_.reportTo([&](const base::RuntimeError&) { ++errors; });
    const auto timer = make(2, [] { throw base::RuntimeError(base::ErrorNumber::Overflow); });
    EXPECT_TRUE(test::waitFor([&] { return errors >= 3; }));
}

TEST_F(QtTimersTest, aTimerThatIsGoneDoesNotTick) {
    int ticks = 0;
    auto timer = make(1, [&] { ++ticks; });
    QThread::msleep(5);
    timer.reset();
    int others = 0;
    const auto other = make(5, [&] { ++others; });
    ASSERT_TRUE(test::waitFor([&] { return others >= 2; }));
    EXPECT_EQ(ticks, 0);
}

} // namespace
} // namespace tovik::host
