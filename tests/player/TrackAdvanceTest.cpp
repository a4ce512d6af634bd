// SPDX-License-Identifier: GPL-3.0-or-later
// Which row plays next.
#include "player/PlayerRig.h"
#include "support/host/SettingPlace.h"

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TrackAdvance : public PlayerRig {
protected:
    /// Numbers with which the shuffle picks that row of at most ten, or none.
    void willPick(int row, int count) {
        host_.random.script.assign(9, (row - 0.5) / count);
        host_.random.script.push_back(row == 0 ? 0 : 0.5);
    }

    void select(playlist::Row row) { list_.SelectedIndex = row; }

    /// Nothing was started.
    void expectNothing() const {
        EXPECT_THAT(sound_.calls, IsEmpty());
        EXPECT_EQ(state_.TracksStarted, 0);
    }
};

TEST_F(TrackAdvance, nextPlaysTheRowBelow) {
    addRows(3, {.seconds = 65});
    select(1);
    advance_.Next_track();
    EXPECT_EQ(list_.SelectedIndex, 2);
    EXPECT_EQ(offered(), "2");
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_EQ(state_.CurrentTitle, "T2");
    EXPECT_EQ(view_.last.caption, " T2"); // without the length, which a start by hand shows
    EXPECT_EQ(view_.last.scrollerText, " T2");
}

TEST_F(TrackAdvance, theMiniWindowIsToldInMiniMode) {
    addRows(2, {.seconds = 65});
    playing_.miniCaption = "before";
    state_.MiniModeOn = true;
    advance_.Next_track();
    EXPECT_EQ(view_.last.miniCaption, " T1");
}

TEST_F(TrackAdvance, nextAtTheEndDoesNothing) {
    addRows(3, {.seconds = 65});
    select(3);
    state_.IsPlaying = true;
    advance_.Next_track();
    expectNothing();
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_EQ(list_.SelectedIndex, 3);
    EXPECT_FALSE(advance_.hasNext());
}

TEST_F(TrackAdvance, nextAtTheEndBeginsAnewWithRepeat) {
    addRows(3, {.seconds = 65});
    select(3);
    state_.RepeatOn = true;
    EXPECT_TRUE(advance_.hasNext());
    advance_.Next_track();
    EXPECT_EQ(offered(), "1");
    EXPECT_EQ(list_.SelectedIndex, 1);
}

TEST_F(TrackAdvance, nextWithoutASelectionStartsAtTheFirstRow) {
    addRows(3, {.seconds = 65});
    advance_.Next_track();
    EXPECT_EQ(offered(), "1");
}

TEST_F(TrackAdvance, nextOfAnEmptyListDoesNothing) {
    for (const bool repeat : {false, true}) {
        state_.RepeatOn = repeat;
        advance_.Next_track();
        expectNothing();
    }
}

TEST_F(TrackAdvance, nextOfASingleRowRepeatsIt) {
    addRows(1, {.seconds = 65});
    select(1);
    state_.RepeatOn = true;
    advance_.Next_track();
    EXPECT_EQ(offered(), "1");
    EXPECT_TRUE(state_.IsPlaying);
}

TEST_F(TrackAdvance, shuffleHasNoLastRow) {
    addRows(3, {.seconds = 65});
    state_.ShuffleOn = true;
    for (const bool repeat : {false, true}) {
        state_.RepeatOn = repeat;
        select(3);
        willPick(2, 3);
        advance_.Next_track();
        EXPECT_EQ(offered(), "2");
        EXPECT_EQ(list_.SelectedIndex, 2);
    }
}

TEST_F(TrackAdvance, aPickThatIsNoRowPlaysNothing) {
    addRows(1, {.seconds = 65});
    select(1);
    state_.ShuffleOn = true;
    willPick(0, 1);
    advance_.Next_track();
    EXPECT_EQ(list_.SelectedIndex, 0);
    EXPECT_EQ(offered(), "");
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_EQ(state_.TracksStarted, 1);
    EXPECT_EQ(view_.last.caption, " ");
}

TEST_F(TrackAdvance, shuffleOfAnEmptyListPlaysNothing) {
    state_.ShuffleOn = true;
    willPick(1, 1);
    advance_.Next_track();
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(TrackAdvance, previousPlaysTheRowAbove) {
    addRows(3, {.seconds = 65});
    select(3);
    advance_.last_track();
    EXPECT_EQ(offered(), "2");
    EXPECT_EQ(list_.SelectedIndex, 2);
}

TEST_F(TrackAdvance, previousAtTheTop) {
    addRows(3, {.seconds = 65});
    for (const playlist::Row row : {0, 1}) {
        select(row);
        advance_.last_track();
        expectNothing();
        EXPECT_EQ(list_.SelectedIndex, 1);
    }
    state_.RepeatOn = true;
    advance_.last_track();
    EXPECT_EQ(offered(), "3");
}

TEST_F(TrackAdvance, previousOfASingleRowWithRepeatPlaysNothing) {
    addRows(1, {.seconds = 65});
    select(1);
    state_.RepeatOn = true;
    advance_.last_track();
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_EQ(offered(), "");
    EXPECT_EQ(list_.SelectedIndex, 0);
}

TEST_F(TrackAdvance, previousOfAnEmptyListDoesNothing) {
    state_.RepeatOn = true;
    advance_.last_track();
    expectNothing();
    state_.ShuffleOn = true;
    advance_.last_track();
    expectNothing();
}

TEST_F(TrackAdvance, previousInShuffleIsANewPickAndNeedsRepeat) {
    addRows(5, {.seconds = 65});
    select(2);
    state_.ShuffleOn = true;
    willPick(4, 5);
    advance_.last_track();
    expectNothing();
    state_.RepeatOn = true;
    advance_.last_track();
    EXPECT_EQ(offered(), "4");
}

TEST_F(TrackAdvance, tenRowsOn) {
    addRows(25, {.seconds = 65});
    select(3);
    advance_.ten_tracks_fwd();
    EXPECT_EQ(list_.SelectedIndex, 13);
    EXPECT_EQ(mirror_.ListIndex(), 12);
    EXPECT_EQ(offered(), "13");
    select(15);
    advance_.ten_tracks_fwd();
    EXPECT_EQ(offered(), "25");
}

TEST_F(TrackAdvance, withNineRowsLeftItIsOne) {
    addRows(25, {.seconds = 65});
    select(16);
    advance_.ten_tracks_fwd();
    EXPECT_EQ(offered(), "17");
    select(25);
    sound_.calls.clear();
    advance_.ten_tracks_fwd();
    EXPECT_THAT(sound_.calls, IsEmpty());
}

TEST_F(TrackAdvance, tenRowsOnWithoutASelectionIsTheTenthRow) {
    addRows(25, {.seconds = 65});
    advance_.ten_tracks_fwd();
    EXPECT_EQ(offered(), "10");
    EXPECT_EQ(list_.SelectedIndex, 10);
}

TEST_F(TrackAdvance, anItemThatIsNotThereLeavesTheSelectionOfThePlainList) {
    addRows(3, {.seconds = 65});
    mirror_.ListIndex(1);
    advance_.ten_tracks_fwd();
    EXPECT_EQ(mirror_.ListIndex(), 1);
    EXPECT_EQ(offered(), "2");
    EXPECT_EQ(list_.SelectedIndex, 2);
}

TEST_F(TrackAdvance, tenRowsBack) {
    addRows(25, {.seconds = 65});
    select(25);
    advance_.ten_track_bck();
    EXPECT_EQ(offered(), "15");
    EXPECT_EQ(mirror_.ListIndex(), 14);
    select(11);
    advance_.ten_track_bck();
    EXPECT_EQ(offered(), "1");
    select(10);
    advance_.ten_track_bck();
    EXPECT_EQ(offered(), "9");
}

TEST_F(TrackAdvance, theButtonsClearThePauseAndMoveOn) {
    addRows(3, {.seconds = 65});
    select(2);
    burn(list_.OutFileName);
    transport_.pause();
    state_.IsPaused = true;
    advance_.button_next();
    EXPECT_EQ(offered(), "3");
    EXPECT_FALSE(state_.IsPaused);
    EXPECT_FALSE(sound_.paused);
    state_.IsPaused = true;
    advance_.button_previous();
    EXPECT_EQ(offered(), "2");
    EXPECT_FALSE(state_.IsPaused);
}

TEST_F(TrackAdvance, nextAtTheEndLeavesAPausedOutputThatSaysItIsNot) {
    addRows(1, {.seconds = 65});
    select(1);
    list_.GetData(1);
    burn(list_.OutFileName);
    transport_.pause();
    advance_.button_next();
    EXPECT_FALSE(state_.IsPaused);
    EXPECT_TRUE(sound_.paused);
    EXPECT_EQ(state_.TracksStarted, 1);
}

TEST_F(TrackAdvance, theButtonsOfAnEmptyListDoNothing) {
    state_.IsPaused = true;
    state_.ShuffleOn = state_.RepeatOn = true;
    advance_.button_next();
    advance_.button_previous();
    EXPECT_TRUE(state_.IsPaused);
    expectNothing();
}

TEST_F(TrackAdvance, theFirstTrackStartsPlainlyAndTheNextOneFades) {
    addRows(3, {.seconds = 65});
    state_.CrossfadeOn = true;
    advance_.Next_track();
    EXPECT_EQ(state_.CrossfadeLeg, 2);
    EXPECT_EQ(state_.PrimaryChannel, 1U);
    EXPECT_THAT(sound_.calls, testing::Contains("BASS_Free()"));
    sound_.calls.clear();
    set("CFDT", "7");
    advance_.Next_track();
    EXPECT_EQ(state_.CrossfadeLeg, 1);
    EXPECT_THAT(sound_.calls, testing::Not(testing::Contains("BASS_Free()")));
    EXPECT_THAT(sound_.calls,
                testing::Contains("BASS_ChannelSlideAttributes(1, -1, 0, -101, 7000)"));
    EXPECT_EQ(view_.last.caption, " T2");
}

TEST_F(TrackAdvance, aMissingFadeTimeGoesToTheGuardEvenWithoutCrossfade) {
    addRows(3, {.seconds = 65});
    takeOut("CFDT");
    advance_.Next_track();
    advance_.last_track();
    expectNothing();
    EXPECT_THAT(logged(), ElementsAre("Invalid use of Null" + settingPlace(host_.folder, "CFDT") +
                                          ",94,Player,Next_track",
                                      "Invalid use of Null" + settingPlace(host_.folder, "CFDT") +
                                          ",94,Player,Last_track"));
    ASSERT_EQ(host_.dialogs.boxes.size(), 2U);
    EXPECT_EQ(host_.dialogs.boxes[0].title, " in sub Next_Track");
    EXPECT_EQ(host_.dialogs.boxes[1].title, " in sub Last_Track");
}

} // namespace
} // namespace tovik::test
