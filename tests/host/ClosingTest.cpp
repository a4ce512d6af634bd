// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/host/TestHost.h"

#include <gtest/gtest.h>

namespace tovik::host {
namespace {

TEST(Closing, theNextStepLeavesOnceAndEveryLoopEnds) {
    test::TestHost host;
    int leaves = 0;
    int wakes = 0;
    host.closing.setLeave([&] {
        ++leaves;
        EXPECT_TRUE(host.closing.ending());
        EXPECT_FALSE(host.pump.Step());
        host.closing.endProcess(3);
    });
    host.closing.setWake([&] { ++wakes; });
    EXPECT_TRUE(host.pump.Step());
    host.closing.request();
    host.closing.request();
    EXPECT_EQ(wakes, 1);
    EXPECT_EQ(leaves, 0);
    EXPECT_FALSE(host.closing.ending());
    EXPECT_FALSE(host.pump.Step());
    EXPECT_FALSE(host.pump.Step());
    EXPECT_EQ(leaves, 1);
    EXPECT_EQ(host.endStatus, 3);
}

TEST(Closing, aTickThatEndsTheProgramEndsTheStepItRanIn) {
    test::TestHost host;
    const auto timer = host.clock.makeTimer([&] { host.closing.endProcess(0); });
    timer->setInterval(10);
    timer->setEnabled(true);
    bool answer = true;
    const auto outer = host.clock.makeTimer([&] { answer = host.pump.Step(); });
    outer->setInterval(5);
    outer->setEnabled(true);
    host.clock.advanceTo(5);
    EXPECT_TRUE(answer);
    timer->setInterval(1);
    outer->setInterval(1);
    host.clock.advanceTo(6);
    EXPECT_FALSE(answer);
}

TEST(Closing, withoutALeaveOperationTheProcessEnds) {
    int status = -1;
    Closing closing([&](int given) { status = given; });
    EXPECT_FALSE(closing.leaveIfAsked());
    closing.request();
    EXPECT_TRUE(closing.leaveIfAsked());
    EXPECT_EQ(status, 0);
}

} // namespace
} // namespace tovik::host
