// SPDX-License-Identifier: GPL-3.0-or-later
// What the player does otherwise with comfort; the oddities themselves are tested where they stand.
#include "player/PlayerRig.h"
#include "support/host/SettingPlace.h"

#include <set>

namespace tovik::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class ComfortPlay : public PlayerRig {
protected:
    base::Comfort& comfort() { return state_.comfort; }

    void begin(playlist::Row row) { advance_.selectItem(row - 1), rowPlayer_.List1_DblClick(); }

    void level(std::int32_t level) { sound_.channel(state_.active()).level = level; }

    [[nodiscard]] std::int64_t second() {
        return sound_.channel(state_.active()).position / (44100 * 4);
    }

    /// A row whose file is not there.
    void addBadRow() { list_.AddItem("", host_.folder / "none.mp3", "bad", "00:00", 0); }
};

// Silence -----------------------------------------------------------------------------------------

class ComfortSilence : public ComfortPlay {
protected:
    void play(double seconds, const char* threshold) {
        set("SLDT", threshold);
        addRows(2, {.seconds = seconds});
        begin(1);
        silenceSkip_.button_sld();
        clock_.watchTrack(false);
    }
};

TEST_F(ComfortSilence, piecesDoNotAddUp) {
    comfort().countsUnbrokenSilence = true;
    play(60, "50");
    for (int piece = 0; piece < 20; ++piece) {
        level(0);
        advance(900);
        level(1);
        advance(100);
    }
    EXPECT_EQ(list_.SelectedIndex, 1);
    level(0);
    advance(1000);
    EXPECT_EQ(list_.SelectedIndex, 2);
}

TEST_F(ComfortSilence, aPauseBreaksIt) {
    comfort().countsUnbrokenSilence = true;
    play(60, "0");
    level(0);
    advance(900);
    state_.IsPaused = true;
    advance(5000);
    state_.IsPaused = false;
    advance(900);
    EXPECT_EQ(list_.SelectedIndex, 1);
    advance(200);
    EXPECT_EQ(list_.SelectedIndex, 2);
}

TEST_F(ComfortSilence, thePercentageIsTakenAsItIs) {
    comfort().takesSilenceShareAsIs = true;
    play(100, "40");
    level(0);
    advance(39'000);
    EXPECT_EQ(list_.SelectedIndex, 1);
    advance(2000);
    EXPECT_EQ(list_.SelectedIndex, 2);
}

TEST_F(ComfortSilence, aModeThatWasLeftOnReadsItsThreshold) {
    comfort().readsThreshold = true;
    set("SLDT", "100");
    state_.SilenceSkipOn = true;
    silenceSkip_.watch();
    addRows(2, {.seconds = 60});
    begin(1);
    level(0);
    advance(2000);
    EXPECT_EQ(list_.SelectedIndex, 1);
}

// The clock ---------------------------------------------------------------------------------------

TEST_F(ComfortPlay, theClockTellsHours) {
    comfort().clockShowsHours = true;
    addRows(1, {.seconds = 7300});
    begin(1);
    clock_.begin();
    EXPECT_EQ(playing_.caption, " T1 (2:01:40)");
    seek_.seek(50);
    advance(600);
    EXPECT_EQ(playing_.time.substr(0, 6), "1:00:5");
    state_.TimeDisplayMode = 1;
    advance(2000);
    EXPECT_EQ(playing_.time.substr(0, 6), "1:00:4");
}

// From which row, and from where ------------------------------------------------------------------

TEST_F(ComfortPlay, aClickDoesNotChangeWhatFollows) {
    addRows(9, {.seconds = 65});
    for (const bool kind : {false, true}) {
        comfort().goesOnFromSoundingRow = kind;
        begin(2);
        list_.SelectIndex(6);
        advance_.Next_track();
        EXPECT_EQ(offered(), kind ? "3" : "7");
        list_.SelectIndex(9);
        advance_.last_track();
        EXPECT_EQ(offered(), kind ? "2" : "8");
        list_.SelectIndex(9);
        EXPECT_EQ(advance_.hasNext(), kind);
        transport_.Stop_play();
        list_.SelectIndex(5);
        advance_.Next_track();
        EXPECT_EQ(offered(), "6") << "what does not play is no place to go on from";
    }
}

TEST_F(ComfortPlay, stopTakesTheLookAway) {
    addRows(2, {.seconds = 65});
    for (const bool kind : {false, true}) {
        comfort().clearsLookAtStop = kind;
        begin(2);
        EXPECT_TRUE(list_.isPlayed(2));
        transport_.Stop_play();
        EXPECT_EQ(list_.isPlayed(2), !kind);
    }
}

TEST_F(ComfortPlay, nextAtTheEndLeavesAPauseAsItIs) {
    addRows(2, {.seconds = 65});
    for (const bool kind : {false, true}) {
        comfort().keepsPauseAtEnd = kind;
        begin(2);
        transport_.pause();
        advance_.button_next();
        EXPECT_EQ(state_.IsPaused, kind);
        begin(1);
        transport_.pause();
        advance_.button_previous();
        EXPECT_EQ(state_.IsPaused, kind);
        advance_.button_next();
        EXPECT_FALSE(state_.IsPaused);
        EXPECT_EQ(offered(), "2");
        EXPECT_EQ(sound_.channel(state_.active()).activity, sound::Activity::playing);
    }
}

TEST_F(ComfortPlay, theEndOfTheListStops) {
    addRows(2, {.seconds = 3});
    for (const bool kind : {false, true}) {
        comfort().stopsAtListEnd = kind;
        clock_.begin();
        begin(1);
        advance(10'000);
        EXPECT_EQ(list_.SelectedIndex, 2);
        EXPECT_EQ(state_.IsPlaying, !kind);
        EXPECT_EQ(playing_.time, kind ? "00:00" : "00:03");
    }
}

TEST_F(ComfortPlay, previousStartsTheOnlyRowAnew) {
    addRows(1, {.seconds = 65});
    state_.RepeatOn = true;
    for (const bool kind : {false, true}) {
        comfort().restartsOnlyTrack = kind;
        begin(1);
        advance(5000);
        advance_.last_track();
        EXPECT_EQ(offered(), kind ? "1" : "");
        EXPECT_EQ(list_.isPlayed(1), kind);
    }
}

// Shuffle -----------------------------------------------------------------------------------------

TEST_F(ComfortPlay, shufflePlaysEachRowOnceAndGoesBackTheSameWay) {
    comfort().remembersPicks = true;
    addRows(5, {.seconds = 65});
    state_.ShuffleOn = true;
    begin(3);
    std::vector<std::string> heard{offered()};
    while (advance_.hasNext()) {
        advance_.Next_track();
        heard.push_back(offered());
    }
    EXPECT_EQ(heard.size(), 5U);
    EXPECT_EQ(std::set<std::string>(heard.begin(), heard.end()).size(), 5U);
    EXPECT_FALSE(advance_.neverEnds());
    for (std::size_t i = heard.size() - 1; i > 0; --i) {
        advance_.last_track();
        EXPECT_EQ(offered(), heard[i - 1]);
    }
    advance_.last_track();
    EXPECT_EQ(offered(), heard.front()) << "the first one begins anew";
    state_.RepeatOn = true;
    for (std::size_t i = 1; i < heard.size(); ++i) {
        advance_.Next_track();
        EXPECT_EQ(offered(), heard[i]);
    }
    EXPECT_TRUE(advance_.hasNext());
    advance_.Next_track();
    EXPECT_NE(offered(), heard.back()) << "another round";
}

TEST_F(ComfortPlay, theRowThatSoundsHadItsTurnWhenShuffleIsSwitchedOn) {
    comfort().remembersPicks = true;
    addRows(5, {.seconds = 65});
    begin(3);
    const std::string first = offered();
    advance_.button_shuffle();
    int followed = 0;
    while (advance_.hasNext()) {
        advance_.Next_track();
        EXPECT_NE(offered(), first);
        ++followed;
    }
    EXPECT_EQ(followed, 4);
    for (; followed > 0; --followed) {
        advance_.last_track();
    }
    EXPECT_EQ(offered(), first);
}

TEST_F(ComfortPlay, theEndOfAShuffleStops) {
    comfort().remembersPicks = comfort().stopsAtListEnd = true;
    addRows(3, {.seconds = 2});
    state_.ShuffleOn = true;
    clock_.begin();
    begin(1);
    advance(20'000);
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_EQ(state_.TracksStarted, 3);
}

// Rows that cannot be played ----------------------------------------------------------------------

TEST_F(ComfortPlay, rowsThatCannotBePlayedAreMarkedAndSkipped) {
    comfort().skipsUnplayable = true;
    addRows(1, {.seconds = 65});
    addBadRow();
    addBadRow();
    list_.AddItem("", track("good", {.seconds = 65}), "good", "00:00", 0);
    begin(1);
    advance_.Next_track();
    EXPECT_TRUE(list_.isUnplayable(2));
    advance(50);
    EXPECT_TRUE(list_.isUnplayable(3));
    EXPECT_EQ(list_.SelectedIndex, 4);
    EXPECT_TRUE(list_.isPlayed(4));
    EXPECT_FALSE(list_.isUnplayable(4));
    EXPECT_TRUE(state_.IsPlaying);
    advance_.last_track();
    advance(50);
    EXPECT_TRUE(list_.isPlayed(1)) << "backwards, too";
}

TEST_F(ComfortPlay, withoutItTheListStandsAtSuchARow) {
    addRows(1, {.seconds = 65});
    addBadRow();
    list_.AddItem("", track("good", {.seconds = 65}), "good", "00:00", 0);
    begin(1);
    clock_.watchTrack(false);
    advance_.Next_track();
    advance(50);
    EXPECT_EQ(list_.SelectedIndex, 2);
}

TEST_F(ComfortPlay, aListOfNothingButSuchRowsStops) {
    comfort().skipsUnplayable = true;
    for (int row = 0; row < 4; ++row) {
        addBadRow();
    }
    for (const bool repeat : {false, true}) {
        state_.RepeatOn = repeat;
        state_.IsPlaying = true;
        list_.SelectedIndex = 1;
        const auto before = sound_.calls.size();
        advance_.Next_track();
        advance(2000);
        EXPECT_FALSE(state_.IsPlaying);
        const auto opened = sound_.calls.size();
        EXPECT_GT(opened, before);
        advance(5000);
        EXPECT_EQ(sound_.calls.size(), opened) << "nothing goes on trying";
    }
}

TEST_F(ComfortPlay, stopEndsTheSkipping) {
    comfort().skipsUnplayable = true;
    addRows(1, {.seconds = 65});
    addBadRow();
    list_.AddItem("", track("good", {.seconds = 65}), "good", "00:00", 0);
    begin(1);
    advance_.Next_track();
    transport_.button_stop();
    advance(1000);
    EXPECT_FALSE(state_.IsPlaying);
}

TEST_F(ComfortPlay, aRowThatPlaysAgainIsNotMarkedAnyMore) {
    addBadRow();
    begin(1);
    EXPECT_TRUE(list_.isUnplayable(1));
    static_cast<void>(track("none.mp3", {.seconds = 65}));
    begin(1);
    EXPECT_FALSE(list_.isUnplayable(1));
}

// Going on ----------------------------------------------------------------------------------------

TEST_F(ComfortPlay, playGoesOnAfterAPause) {
    addRows(2, {.seconds = 65});
    for (const bool kind : {false, true}) {
        comfort().goesOnAfterPause = kind;
        begin(1);
        advance(5000);
        const std::int32_t started = state_.TracksStarted;
        transport_.pause();
        list_.SelectIndex(2);
        rowPlayer_.button_play();
        EXPECT_FALSE(state_.IsPaused);
        EXPECT_EQ(state_.TracksStarted - started, kind ? 0 : 1);
        EXPECT_EQ(offered(), kind ? "1" : "2");
        list_.SelectIndex(1);
        rowPlayer_.button_play();
        EXPECT_EQ(second(), 0) << "without a pause it starts anew";
    }
}

TEST_F(ComfortPlay, playBeginsAtThePlaceThatWaits) {
    comfort().readsEveryFormat = false; // which brings the length behind the title
    addRows(2, {.seconds = 100});
    list_.RefreshTime(2, 100, "01:40");
    rowPlayer_.waitAt({2, 25});
    EXPECT_EQ(list_.SelectedIndex, 2);
    EXPECT_EQ(mirror_.ListIndex(), 1);
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_EQ(playing_.time, "00:25");
    EXPECT_EQ(playing_.percent, 25);
    EXPECT_EQ(playing_.scrollerText, " T2");
    EXPECT_EQ(playing_.miniCaption, " T2");
    EXPECT_THAT(sound_.calls, IsEmpty()) << "no file is touched";
    ASSERT_TRUE(rowPlayer_.place());
    EXPECT_EQ(rowPlayer_.place()->seconds, 25);
    rowPlayer_.button_play();
    EXPECT_EQ(offered(), "2");
    EXPECT_EQ(second(), 25);
    rowPlayer_.button_play();
    EXPECT_EQ(second(), 0) << "once";
}

TEST_F(ComfortPlay, anotherRowOrAStopForgetsThePlace) {
    addRows(2, {.seconds = 100});
    rowPlayer_.waitAt({2, 25});
    list_.SelectIndex(1);
    rowPlayer_.button_play();
    EXPECT_EQ(second(), 0);
    list_.SelectIndex(2);
    rowPlayer_.button_play();
    EXPECT_EQ(second(), 0);
    transport_.Stop_play();
    rowPlayer_.waitAt({2, 25});
    begin(2);
    EXPECT_EQ(second(), 0);
}

TEST_F(ComfortPlay, thePlaceIsThatOfWhatSounds) {
    EXPECT_FALSE(rowPlayer_.place().has_value());
    addRows(3, {.seconds = 100});
    begin(2);
    advance(7000);
    list_.SelectIndex(3);
    ASSERT_TRUE(rowPlayer_.place());
    EXPECT_EQ(rowPlayer_.place()->row, 2);
    EXPECT_EQ(rowPlayer_.place()->seconds, 7);
    transport_.Stop_play();
    EXPECT_EQ(rowPlayer_.place()->row, 3);
    EXPECT_EQ(rowPlayer_.place()->seconds, 0);
}

} // namespace
} // namespace tovik::test
