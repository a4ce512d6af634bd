// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/qt/UnixSignals.h"
#include "EventLoop.h"

#include <gtest/gtest.h>

#include <csignal>

namespace tovik::host {
namespace {

TEST(UnixSignals, eachKindIsToldFromTheEventLoop) {
    int told = 0;
    const UnixSignals listener([&] { ++told; });
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        const int before = told;
        static_cast<void>(std::raise(signal));
        EXPECT_EQ(told, before);
        EXPECT_TRUE(test::waitFor([&] { return told == before + 1; })) << signal;
    }
}

TEST(UnixSignalsDeathTest, theSecondOfAKindEndsTheProcess) {
    EXPECT_EXIT(
        {
            const UnixSignals listener([] {});
            static_cast<void>(std::raise(SIGTERM));
            static_cast<void>(std::raise(SIGTERM));
        },
        testing::KilledBySignal(SIGTERM), "");
}

TEST(UnixSignalsDeathTest, withoutTheObjectTheSystemsOwnWayIsBack) {
    EXPECT_EXIT(
        {
            {
                const UnixSignals listener([] {});
            }
            static_cast<void>(std::raise(SIGHUP));
        },
        testing::KilledBySignal(SIGHUP), "");
}

} // namespace
} // namespace tovik::host
