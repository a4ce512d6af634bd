// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/system/StopSignals.h"

#include <gtest/gtest.h>

#include <csignal>

namespace tovik::host {
namespace {

TEST(StopSignals, theFirstIsNoted) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        const StopSignals stop;
        EXPECT_EQ(StopSignals::arrived(), 0);
        std::raise(signal);
        EXPECT_EQ(StopSignals::arrived(), signal);
    }
}

TEST(StopSignalsDeathTest, theSecondEndsTheProcess) {
    EXPECT_EXIT(
        {
            const StopSignals stop;
            std::raise(SIGTERM);
            std::raise(SIGTERM);
        },
        testing::KilledBySignal(SIGTERM), "");
}

TEST(StopSignalsDeathTest, afterwardsTheyEndTheProcessAgain) {
    EXPECT_EXIT(
        {
            { const StopSignals stop; }
            std::raise(SIGHUP);
        },
        testing::KilledBySignal(SIGHUP), "");
}

} // namespace
} // namespace tovik::host
