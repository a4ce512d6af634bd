// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/RipProgress.h"

#include "support/host/TestHost.h"

#include <gtest/gtest.h>

namespace tovik::cd {

namespace {

class RipProgressTest : public testing::Test, public playlist::ListObserver {
protected:
    RipProgressTest() {
        for (int i = 0; i < 12; ++i) {
            list_.AddItem("", "", "Song", "", 1);
        }
        list_.addObserver(*this);
        progress_.show = [this](const RipStatus& status) { told_.push_back(status); };
    }

    void pass(std::int64_t milliseconds) {
        host_.clock.advanceTo(host_.clock.monotonicMs() + milliseconds);
    }

    void rowChanged(playlist::Row row) override { changed_.push_back(row); }

    [[nodiscard]] std::string title(playlist::Row row) const {
        return std::string(list_.text(row, playlist::RowText::Title));
    }

    test::TestHost host_;
    playlist::stdSS list_;
    RipProgress progress_{list_, host_.clock};
    std::vector<RipStatus> told_;
    std::vector<playlist::Row> changed_;
};

} // namespace

TEST_F(RipProgressTest, WritesThePercentIntoTheRow) {
    progress_.begin({1000});
    progress_.beginTrack();
    progress_.round(9, 126, 1000, "[x]% ([x])", 0);
    EXPECT_EQ(title(10), "Track 10 13% (13)");
    progress_.round(9, 125, 1000, "[x]%", 0);
    EXPECT_EQ(title(10), "Track 10 12%"); // a half goes to the even neighbour
    progress_.round(9, 0, 1000, "[x]%", 2);
    EXPECT_EQ(title(10), "Track 10 0%");
    progress_.round(9, 333, 1000, "[x]%", 2);
    EXPECT_EQ(title(10), "Track 10 33.3%");
    progress_.round(9, 2, 3, "[x]%", 2);
    EXPECT_EQ(title(10), "Track 10 66.67%");
    progress_.round(9, 3, 3, "[x]%", 2);
    EXPECT_EQ(title(10), "Track 10 100%");
    progress_.round(9, 3, 0, "[x]%", 2);
    EXPECT_EQ(title(10), "Track 10 100%");
}

TEST_F(RipProgressTest, IsDrawnTenTimesASecondAndTheLastTextInAnyCase) {
    pass(1000);
    progress_.begin({10000});
    progress_.beginTrack();
    told_.clear();
    for (int i = 0; i < 1000; ++i) {
        progress_.round(0, i * 10, 10000, "[x]%", 2);
        EXPECT_EQ(title(1), "Track 1 " + percentText(i / 10.0, 2) + "%"); // set in each round
        pass(1);
    }
    EXPECT_EQ(changed_.size(), 10U);
    EXPECT_EQ(told_.size(), 10U);
    progress_.endTrack();
    EXPECT_EQ(changed_.size(), 11U);
    progress_.endTrack();
    EXPECT_EQ(changed_.size(), 11U);
}

TEST_F(RipProgressTest, TellsOfTheWholeJob) {
    pass(1000);
    progress_.begin({1000, 3000, -1});
    EXPECT_TRUE(told_.back().running);
    EXPECT_EQ(told_.back().tracks, 3);
    progress_.beginTrack();
    EXPECT_EQ(told_.back().track, 1);
    progress_.round(0, 500, 1000, "[x]%", 0);
    EXPECT_DOUBLE_EQ(told_.back().share, 0.125);
    EXPECT_FALSE(told_.back().secondsLeft.has_value()); // no time has passed
    progress_.beginTrack();
    pass(2000);
    progress_.round(1, 1000, 3000, "[x]%", 0);
    EXPECT_EQ(told_.back().track, 2);
    EXPECT_DOUBLE_EQ(told_.back().share, 0.5);
    EXPECT_EQ(told_.back().secondsLeft, 2);
    progress_.beginTrack();
    pass(2000);
    progress_.round(2, 500, 1000, "[x]%", 0);
    EXPECT_DOUBLE_EQ(told_.back().share, 1);
    EXPECT_EQ(told_.back().secondsLeft, 0);
    progress_.end();
    EXPECT_FALSE(told_.back().running);
}

} // namespace tovik::cd
