// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/QuickListRows.h"

#include "player/PlayerRig.h"
#include "window/ListRows.h"

namespace tovik::test {
namespace {

using testing::IsEmpty;

class QuickList : public PlayerRig {
protected:
    window::QuickListRows rows_{mirror_, list_, rowPlayer_};
};

TEST_F(QuickList, rowsOfTheQuickList) {
    EXPECT_EQ(rows_.rows(), 0U);
    list_.AddItem("", track("a.mp3", {.seconds = 10}), "One", "00:10", 10);
    list_.AddItem("", track("b.mp3", {.seconds = 10}), "Two", "00:10", 10);
    EXPECT_EQ(rows_.rows(), 2U);
    EXPECT_EQ(rows_.text(1), "Two");
    rows_.selectRow(0, {});
    EXPECT_TRUE(rows_.selected(0));
    EXPECT_FALSE(rows_.selected(1));
    EXPECT_THAT(sound_.calls, IsEmpty());
}

TEST_F(QuickList, aClickChoosesTheRowForPlay) {
    addRows(3, {.seconds = 10});
    rows_.selectRow(1, {});
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_TRUE(list_.isMarked(2)) << "the playlist shows the same";
    rowPlayer_.button_play();
    EXPECT_EQ(state_.CurrentTitle, "T2");
}

TEST_F(QuickList, theMarkIsOfTheRowThatSounds) {
    addRows(3, {.seconds = 10});
    rows_.activateRow(0);
    rows_.selectRow(2, {});
    EXPECT_TRUE(rows_.marked(0));
    EXPECT_FALSE(rows_.marked(2));
    list_.SelectIndex(1);
    advance_.button_next();
    EXPECT_TRUE(rows_.marked(1));
    EXPECT_FALSE(rows_.marked(0));
}

TEST_F(QuickList, aRowThatCannotBePlayedMayBeMarked) {
    addRows(2, {.seconds = 10});
    list_.setUnplayable(2, true);
    EXPECT_EQ(rows_.numberText(1), "");
    state_.comfort.skipsUnplayable = false;
    rows_.obey(state_.comfort);
    EXPECT_EQ(rows_.numberText(1), "");
    state_.comfort.skipsUnplayable = true;
    EXPECT_EQ(rows_.numberText(1), std::string(window::kUnplayableMark) + " ");
    EXPECT_EQ(rows_.numberText(0), "");
    EXPECT_EQ(rows_.text(1), "T2");
}

TEST_F(QuickList, aMovedRowGoesWithItsSelectionInBothLists) {
    addRows(4, {.seconds = 10});
    rows_.selectRow(3, {});
    ASSERT_TRUE(rows_.movesRows());
    rows_.moveRow(3, 1);
    EXPECT_EQ(rows_.text(1), "T4");
    EXPECT_TRUE(rows_.selected(1));
    EXPECT_EQ(list_.SelectedIndex, 2);
    EXPECT_THAT(sound_.calls, IsEmpty());
}

TEST_F(QuickList, deleteRemovesItsOwnRowOnly) {
    addRows(4, {.seconds = 10});
    list_.MS(1);
    list_.MS(4);
    mirror_.ListIndex(1);
    EXPECT_TRUE(rows_.removeRows());
    EXPECT_EQ(rows_.rows(), 3U);
    EXPECT_EQ(rows_.text(1), "T3");
    EXPECT_TRUE(rows_.removeRows()) << "none is selected any more";
    EXPECT_EQ(rows_.rows(), 3U);
}

TEST_F(QuickList, aDoubleClickOnARowPlaysIt) {
    list_.AddItem("", track("a.mp3", {.seconds = 10}), "One", "00:10", 10);
    list_.AddItem("", track("b.mp3", {.seconds = 10}), "Two", "00:10", 10);
    rows_.activateRow(1);
    EXPECT_TRUE(rows_.selected(1));
    EXPECT_TRUE(rows_.marked(1));
    EXPECT_FALSE(rows_.marked(0));
    EXPECT_EQ(state_.CurrentTitle, "Two");
    EXPECT_TRUE(state_.IsPlaying);
}

} // namespace
} // namespace tovik::test
