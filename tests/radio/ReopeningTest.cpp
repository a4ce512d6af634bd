// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/Reopening.h"

#include "support/host/TestHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tovik::radio {
namespace {

using testing::ElementsAre;

class ReopeningTest : public testing::Test {
protected:
    void advance(std::int64_t milliseconds) {
        host_.clock.advanceTo(host_.clock.monotonicMs() + milliseconds);
    }

    test::TestHost host_;
    std::vector<std::int64_t> opened_; ///< the seconds, since the loss, of each attempt
    std::int64_t lostMs_ = 0;
    Reopening reopening_{
        host_.clock, [this] { opened_.push_back((host_.clock.monotonicMs() - lostMs_) / 1000); }};

    void lose() {
        lostMs_ = host_.clock.monotonicMs();
        reopening_.lost();
        advance(60000);
    }
};

TEST_F(ReopeningTest, theTimesGrowUpToHalfAMinute) {
    for (int i = 0; i < 8; ++i) {
        lose();
    }
    EXPECT_THAT(opened_, ElementsAre(1, 2, 4, 8, 16, 30, 30, 30));
    EXPECT_EQ(reopening_.attempts(), 8U);
}

TEST_F(ReopeningTest, whatSoundedBeginsAnew) {
    lose();
    lose();
    reopening_.recovered();
    lose();
    EXPECT_THAT(opened_, ElementsAre(1, 2, 1));
}

TEST_F(ReopeningTest, oneLossIsOneAttempt) {
    reopening_.lost();
    advance(500);
    reopening_.lost();
    EXPECT_TRUE(reopening_.due());
    advance(60000);
    EXPECT_THAT(opened_, ElementsAre(1));
    EXPECT_FALSE(reopening_.due());
}

TEST_F(ReopeningTest, whatIsCalledOffDoesNotCome) {
    lose();
    reopening_.lost();
    reopening_.callOff();
    advance(60000);
    EXPECT_THAT(opened_, ElementsAre(1));
    lose();
    EXPECT_THAT(opened_, ElementsAre(1, 1));
}

} // namespace
} // namespace tovik::radio
