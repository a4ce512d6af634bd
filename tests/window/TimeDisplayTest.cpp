// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/TimeDisplay.h"

#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

class TimeDisplay : public PlayerRig {
protected:
    window::TimeDisplay display_{core_};
};

TEST_F(TimeDisplay, theTwoModes) {
    display_.choose(window::TimeDisplay::kRemaining);
    EXPECT_EQ(state_.TimeDisplayMode, 1);
    EXPECT_TRUE(view_.last.countsDown);
    display_.choose(window::TimeDisplay::kElapsed);
    EXPECT_EQ(state_.TimeDisplayMode, 0);
    EXPECT_FALSE(view_.last.countsDown);
}

TEST_F(TimeDisplay, flipsBetweenThem) {
    display_.flip();
    EXPECT_EQ(state_.TimeDisplayMode, 1);
    display_.flip();
    EXPECT_EQ(state_.TimeDisplayMode, 0);
}

TEST_F(TimeDisplay, aModeThatIsNeitherShowsTheSignAndFlipsToElapsed) {
    display_.choose(7);
    EXPECT_TRUE(view_.last.countsDown);
    display_.flip();
    EXPECT_EQ(state_.TimeDisplayMode, 0);
    EXPECT_FALSE(view_.last.countsDown);
}

} // namespace
} // namespace tovik::test
