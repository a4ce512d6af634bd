// SPDX-License-Identifier: GPL-3.0-or-later
// When a track counts as over, on virtual time.
#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

using testing::IsEmpty;

class EndOfTrack : public PlayerRig {
protected:
    /// Two rows, of which the first plays.
    void play(const FakeFile& file) {
        addRows(2, file);
        list_.SelectedIndex = 1;
        list_.GetData(1);
        burn(list_.OutFileName);
    }

    /// The milliseconds until the second row plays, up to `most`.
    std::int64_t untilNext(std::int64_t most) {
        const std::int64_t start = host_.clock.monotonicMs();
        while (list_.SelectedIndex == 1 && host_.clock.monotonicMs() - start < most) {
            advance(10);
        }
        return host_.clock.monotonicMs() - start;
    }
};

struct Length {
    double seconds;
    std::int64_t endsAtMs;
};

class Lengths : public EndOfTrack, public testing::WithParamInterface<Length> {};

TEST_P(Lengths, theTickAtWhichTheTrackIsOver) {
    play({.seconds = GetParam().seconds});
    EXPECT_EQ(untilNext(GetParam().endsAtMs + 5000), GetParam().endsAtMs);
    EXPECT_EQ(offered(), "2");
}

INSTANTIATE_TEST_SUITE_P(All, Lengths,
                         testing::Values(Length{1, 1000}, Length{10, 10000}, Length{10.3, 10000},
                                         Length{10.5, 10000}, // a length of 10: halves to even
                                         Length{10.7, 11000}, Length{11.5, 12000},
                                         Length{199, 199000}, Length{200, 199000},
                                         Length{201, 200000}, Length{3600, 3582000}));

TEST_F(EndOfTrack, nothingFollowsWhileADiscIsRipped) {
    play({.seconds = 1});
    state_.RippingNow = true;
    EXPECT_EQ(untilNext(3000), 3000);
    state_.RippingNow = false;
    EXPECT_LE(untilNext(3000), 1000);
}

/// Between two tracks only the rip itself runs.
TEST_F(EndOfTrack, nothingIsOfferedNorMarkedWhileARipRuns) {
    play({.seconds = 1});
    addRows(2, {.seconds = 1});
    state_.RipRunning = true;
    const playlist::Row before = list_.SelectedIndex;
    advance_.endTrack();
    EXPECT_EQ(list_.SelectedIndex, before);
    state_.RipRunning = false;
    advance_.endTrack();
    EXPECT_NE(list_.SelectedIndex, before);
}

TEST_F(EndOfTrack, nothingIsStartedWhileARipRuns) {
    addRows(2, {.seconds = 1});
    state_.RipRunning = true;
    sound_.calls.clear();
    list_.GetData(1);
    EXPECT_FALSE(burn(list_.OutFileName));
    EXPECT_FALSE(fade(list_.OutFileName, 100));
    EXPECT_THAT(sound_.calls, IsEmpty());
    EXPECT_FALSE(state_.IsPlaying);
    state_.RipRunning = false;
    EXPECT_TRUE(burn(list_.OutFileName));
}

TEST_F(EndOfTrack, aTrackTooShortForASecondCountsAsDead) {
    play({.seconds = 0.4});
    EXPECT_EQ(untilNext(5000), 1000);
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(EndOfTrack, thePercentIsRoundedToEven) {
    EXPECT_EQ(player::percentPlayed(198, 199), 99);
    EXPECT_EQ(player::percentPlayed(199, 200), 100);
    EXPECT_EQ(player::percentPlayed(1, 200), 0);
    EXPECT_EQ(player::percentPlayed(3, 200), 2);
    EXPECT_FALSE(player::isEndOfTrack(99));
    EXPECT_TRUE(player::isEndOfTrack(100));
    EXPECT_FALSE(player::isEndOfTrack(101));
}

TEST_F(EndOfTrack, beyond32767SecondsTheDigitsEndIt) {
    play({.seconds = 40000});
    clock_.moveDigits(true);
    sound_.setSeconds(1, 32767);
    advance(400);
    EXPECT_EQ(list_.SelectedIndex, 1);
    advance(100); // half a second on, and rounded up
    advance(500);
    EXPECT_EQ(list_.SelectedIndex, 2);
    EXPECT_THAT(logged(), IsEmpty());
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(EndOfTrack, orThePositionMark) {
    play({.seconds = 40000});
    sound_.setSeconds(1, 32768);
    advance(1000);
    EXPECT_EQ(list_.SelectedIndex, 2);
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(EndOfTrack, aRowThatCannotBePlayedIsPassedWhileTheTimerRuns) {
    play({.seconds = 10});
    sound_.files.erase(host_.folder / "2");
    addRows(1, {.seconds = 10});
    advance(10000);
    EXPECT_EQ(list_.SelectedIndex, 2);
    EXPECT_EQ(state_.PrimaryChannel, sound::kNoHandle);
    advance(1000);
    EXPECT_EQ(list_.SelectedIndex, 3);
    EXPECT_TRUE(sound_.lives(state_.PrimaryChannel));
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(EndOfTrack, theLastRowIsPolledOnWithoutEffect) {
    play({.seconds = 10});
    list_.SelectedIndex = 2;
    advance(15000);
    EXPECT_EQ(state_.TracksStarted, 1);
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_TRUE(clock_.watchesTrack());
    EXPECT_TRUE(sound_.lives(1));
    EXPECT_EQ(view_.last.percent, 100);
}

TEST_F(EndOfTrack, stopAfterTheCurrentOne) {
    play({.seconds = 10});
    state_.StopAfterCurrent = true;
    advance(10000);
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_EQ(list_.SelectedIndex, 1);
    EXPECT_EQ(view_.last.percent, 0);
    EXPECT_EQ(view_.last.time, "00:00");
    advance(5000);
    EXPECT_EQ(state_.TracksStarted, 1);
}

TEST_F(EndOfTrack, aModuleEndsWhereATickMeetsItsEnd) {
    play({.kind = FakeKind::music, .seconds = 10});
    advance(10000);
    EXPECT_EQ(list_.SelectedIndex, 1); // it began anew just then
    sound_.setSeconds(1, 8.7);
    advance(1000);
    EXPECT_EQ(list_.SelectedIndex, 2); // 9.7 s count as 10
}

TEST_F(EndOfTrack, aPausedTrackWaits) {
    play({.seconds = 10});
    advance(9400);
    transport_.pause();
    advance(5000);
    EXPECT_EQ(list_.SelectedIndex, 1);
    transport_.pause();
    advance(1000);
    EXPECT_EQ(list_.SelectedIndex, 2);
}

TEST_F(EndOfTrack, seekingToTheEndMovesOnAtTheNextTick) {
    play({.seconds = 10});
    time_.SetPlayingPos(1, 10, false);
    advance(990);
    EXPECT_EQ(list_.SelectedIndex, 1);
    advance(10);
    EXPECT_EQ(list_.SelectedIndex, 2);
}

TEST_F(EndOfTrack, theTimeLeftAtTheEnd) {
    play({.seconds = 10});
    state_.TimeDisplayMode = 1;
    sound_.setSeconds(1, 9);
    clock_.Timer1();
    EXPECT_EQ(view_.last.time, "00:01");
    sound_.setSeconds(1, 10);
    clock_.Timer1();
    EXPECT_EQ(view_.last.time, "00:00");
}

} // namespace
} // namespace tovik::test
