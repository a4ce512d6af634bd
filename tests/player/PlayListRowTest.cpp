// SPDX-License-Identifier: GPL-3.0-or-later
// Starting rows of the two lists.
#include "player/PlayerRig.h"
#include "support/host/SettingPlace.h"

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PlayListRow : public PlayerRig {
protected:
    PlayListRow() {
        for (const char* name : {"one", "two", "three"}) {
            list_.AddItem("", track(name, {.seconds = 65}), name, "00:00", 0);
        }
    }
};

TEST_F(PlayListRow, theSelectedRowIsPlayedWhateverTheTextSays) {
    list_.SelectedIndex = 2;
    state_.SecondaryChannel = 40;
    state_.SpareChannelC = 41;
    state_.SpareChannelD = 42;
    rowPlayer_.Stdss_Play("3");
    EXPECT_THAT(std::vector(sound_.calls.begin(), sound_.calls.begin() + 7),
                ElementsAre("BASS_StreamFree(40)", "BASS_MusicFree(40)", "BASS_StreamFree(41)",
                            "BASS_MusicFree(41)", "BASS_StreamFree(42)", "BASS_MusicFree(42)",
                            "BASS_Free()"));
    EXPECT_EQ(state_.CurrentTitle, "two");
    EXPECT_EQ(state_.CrossfadeLeg, 2);
    EXPECT_EQ(state_.ActiveChannel, player::ChannelSlot::primary);
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_EQ(events_.report.path, host_.folder / "two");
}

TEST_F(PlayListRow, theLengthGoesIntoTheRowAlsoOfTheFirstTrack) {
    list_.SelectedIndex = 2;
    rowPlayer_.Stdss_Play("");
    EXPECT_EQ(list_.seconds(2), 65);
    EXPECT_EQ(list_.text(2, playlist::RowText::TimeText), "00:01:05");
    EXPECT_EQ(list_.seconds(1), 0);
    EXPECT_EQ(list_.TotalSeconds(), 65);
}

TEST_F(PlayListRow, titlesAreShownOnceMore) {
    list_.SelectedIndex = 3;
    rowPlayer_.Stdss_Play("");
    EXPECT_THAT(view_.told, ElementsAre("source", "facts", "titles", "facts", "titles"));
    EXPECT_EQ(view_.last.caption, " three (01:05)");
}

TEST_F(PlayListRow, aRowThatCannotBePlayedStaysSelectedAndIsNamed) {
    sound_.files.clear();
    list_.SelectedIndex = 1;
    rowPlayer_.Stdss_Play("");
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_EQ(list_.SelectedIndex, 1);
    EXPECT_EQ(list_.seconds(1), 0);
    EXPECT_EQ(view_.last.caption, " one");
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(PlayListRow, aRowThatCannotBePlayedKeepsItsLength) {
    list_.AddItem("", "gone", "Gone", "03:20", 200);
    list_.SelectedIndex = 1;
    rowPlayer_.Stdss_Play("");
    for (const bool crossfade : {true, false}) {
        state_.CrossfadeOn = crossfade;
        list_.SelectedIndex = 4;
        rowPlayer_.Stdss_Play("");
        EXPECT_EQ(list_.seconds(4), 200) << crossfade;
        EXPECT_EQ(view_.last.caption, " Gone") << crossfade;
    }
}

TEST_F(PlayListRow, theLookFollowsTheSoundHoweverItCame) {
    const auto look = [this] {
        std::vector<int> rows;
        for (int row = 1; row <= list_.ListCount(); ++row) {
            if (list_.isPlayed(row)) {
                rows.push_back(row);
            }
        }
        return rows;
    };
    list_.SelectIndex(2);
    rowPlayer_.button_play();
    EXPECT_THAT(look(), ElementsAre(2));
    mirror_.ListIndex(0);
    rowPlayer_.List1_DblClick();
    EXPECT_THAT(look(), ElementsAre(1));
    advance_.button_next();
    EXPECT_THAT(look(), ElementsAre(2));
    advance(66000); // to the end of the track
    EXPECT_EQ(state_.CurrentTitle, "three");
    EXPECT_THAT(look(), ElementsAre(3));
    sound_.files.erase(host_.folder / "two");
    advance_.button_previous();
    EXPECT_THAT(look(), IsEmpty()) << "nothing sounds";
}

TEST_F(PlayListRow, theItemOfThePlainListBecomesTheSelectedRow) {
    mirror_.ListIndex(2);
    rowPlayer_.List1_DblClick();
    EXPECT_EQ(list_.SelectedIndex, 3);
    EXPECT_EQ(state_.CurrentTitle, "three");
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_EQ(sound_.calls.front(), "BASS_Free()");
}

TEST_F(PlayListRow, thePlainListWithoutASelectionSoundsNothing) {
    list_.SelectedIndex = 2;
    rowPlayer_.List1_DblClick();
    EXPECT_EQ(list_.SelectedIndex, 0);
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_EQ(state_.TracksStarted, 1);
}

TEST_F(PlayListRow, rowsOneAfterTheOther) {
    for (std::int32_t item = 0; item < 3; ++item) {
        mirror_.ListIndex(item);
        rowPlayer_.List1_DblClick();
    }
    EXPECT_EQ(state_.TracksStarted, 3);
    EXPECT_EQ(list_.seconds(1), 0); // the first track of a session does not tell its length
    EXPECT_EQ(list_.seconds(2), 65);
    EXPECT_EQ(list_.seconds(3), 65);
}

TEST_F(PlayListRow, withCrossfadeARowOfTheListFadesEvenIfItIsTheFirst) {
    state_.CrossfadeOn = true;
    static_cast<void>(sound_.BASS_Init(1, 44100, 0, 0, 0));
    set("CFDT", "4");
    list_.SelectedIndex = 2;
    rowPlayer_.Stdss_Play("");
    EXPECT_EQ(state_.CrossfadeLeg, 1);
    EXPECT_EQ(state_.ActiveChannel, player::ChannelSlot::secondary);
    EXPECT_THAT(sound_.calls, testing::Not(testing::Contains("BASS_Free()")));
    EXPECT_EQ(sound_.calls.back(), "BASS_ChannelSlideAttributes(1, -1, 80, -101, 4000)");
    EXPECT_EQ(list_.seconds(2), 65);
    EXPECT_EQ(view_.last.caption, " two (01:05)");
}

TEST_F(PlayListRow, aMissingFadeTimeGoesToTheGuardOfTheList) {
    takeOut("CFDT");
    list_.SelectedIndex = 2;
    rowPlayer_.Stdss_Play("");
    EXPECT_THAT(logged(), ElementsAre("Invalid use of Null" + settingPlace(host_.folder, "CFDT") +
                                      ",94,Player,playlist_play"));
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].title, " in sub  Stdss_Play");
    EXPECT_EQ(state_.TracksStarted, 0);
}

TEST_F(PlayListRow, withCrossfadeThePlainListFadesFromTheSecondTrackOn) {
    state_.CrossfadeOn = true;
    mirror_.ListIndex(0);
    rowPlayer_.List1_DblClick();
    EXPECT_EQ(state_.CrossfadeLeg, 2);
    sound_.calls.clear();
    mirror_.ListIndex(1);
    rowPlayer_.List1_DblClick();
    EXPECT_EQ(state_.CrossfadeLeg, 1);
    EXPECT_THAT(sound_.calls,
                testing::Contains("BASS_ChannelSlideAttributes(1, -1, 0, -101, 5000)"));
    EXPECT_EQ(list_.SelectedIndex, 2);
}

TEST_F(PlayListRow, aClearedCountMakesTheNextStartAPlainOne) {
    state_.CrossfadeOn = true;
    state_.ClearCounterOnPlay = true;
    state_.TracksStarted = 3;
    mirror_.ListIndex(1);
    rowPlayer_.List1_DblClick();
    EXPECT_FALSE(state_.ClearCounterOnPlay);
    EXPECT_EQ(state_.TracksStarted, 1);
    EXPECT_EQ(state_.CrossfadeLeg, 2);
    EXPECT_THAT(sound_.calls, testing::Contains("BASS_Free()"));
}

TEST_F(PlayListRow, withoutCrossfadeTheRequestStays) {
    state_.ClearCounterOnPlay = true;
    state_.TracksStarted = 3;
    mirror_.ListIndex(1);
    rowPlayer_.List1_DblClick();
    EXPECT_TRUE(state_.ClearCounterOnPlay);
    EXPECT_EQ(state_.TracksStarted, 4);
}

} // namespace
} // namespace tovik::test
