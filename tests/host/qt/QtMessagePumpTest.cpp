// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/qt/QtMessagePump.h"
#include "host/system/SystemClock.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>

#include <deque>
#include <functional>
#include <utility>

namespace tovik::host {
namespace {

/// Time as the test sets it, so that the limit of one look a millisecond is seen for certain.
class SetClock final : public Clock {
public:
    std::int64_t now = 0;

    [[nodiscard]] std::int64_t monotonicMs() const override { return now; }

    [[nodiscard]] LocalTime localTime() const override { return {}; }
};

/// Events that run a function.
class Posted final : public QObject {
public:
    void post(std::function<void()> function) {
        functions_.push_back(std::move(function));
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }

    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) {
            return QObject::event(event);
        }
        const auto function = std::move(functions_.front());
        functions_.pop_front();
        function();
        return true;
    }

private:
    std::deque<std::function<void()>> functions_;
};

class QtMessagePumpTest : public testing::Test {
protected:
    QtMessagePumpTest() { drain(); }

    static void drain() {
        for (int round = 0; round < 10; ++round) {
            QCoreApplication::processEvents();
        }
    }

    void post(std::function<void()> event) { posted_.post(std::move(event)); }

    Posted posted_;
    SetClock clock_;
    int status_ = -1;
    Closing closing_{[this](int status) { status_ = status; }};
    QtMessagePump pump_{clock_, closing_};
};

TEST_F(QtMessagePumpTest, looksForEventsOnceAMillisecond) {
    EXPECT_TRUE(pump_.Step());
    bool ran = false;
    post([&] { ran = true; });
    EXPECT_TRUE(pump_.Step());
    EXPECT_FALSE(ran);
    ++clock_.now;
    EXPECT_TRUE(pump_.Step());
    EXPECT_TRUE(ran);
}

TEST_F(QtMessagePumpTest, sleepsTenMillisecondsOnlyAfterEvents) {
    const SystemClock real;
    const std::int64_t start = real.monotonicMs();
    post([] {});
    EXPECT_TRUE(pump_.Step());
    const std::int64_t withEvents = real.monotonicMs();
    EXPECT_GE(withEvents - start, 10);
    drain();
    // Without events five hundred steps take less than the sleeps of fifty would.
    for (int step = 0; step < 500; ++step) {
        ++clock_.now;
        EXPECT_TRUE(pump_.Step());
    }
    EXPECT_LT(real.monotonicMs() - withEvents, 500);
}

TEST_F(QtMessagePumpTest, whatComesDuringTheSleepIsProcessed) {
    bool second = false;
    post([&] { post([&] { second = true; }); });
    EXPECT_TRUE(pump_.Step());
    EXPECT_TRUE(second);
}

TEST_F(QtMessagePumpTest, leavesWhenTheUserAskedBeforeAnyEvent) {
    bool ran = false;
    closing_.setLeave([this] { closing_.endProcess(0); });
    post([&] { ran = true; });
    closing_.request();
    EXPECT_FALSE(pump_.Step());
    EXPECT_EQ(status_, 0);
    EXPECT_FALSE(ran);
    drain();
}

TEST_F(QtMessagePumpTest, anEventThatEndsTheProgramEndsTheStep) {
    post([this] { closing_.endProcess(5); });
    EXPECT_FALSE(pump_.Step());
    ++clock_.now;
    EXPECT_FALSE(pump_.Step());
}

} // namespace
} // namespace tovik::host
