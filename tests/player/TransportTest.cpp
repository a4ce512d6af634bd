// SPDX-License-Identifier: GPL-3.0-or-later
// Stop, pause, the buttons and the small jumps.
#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Transport : public PlayerRig {
protected:
    std::string startRow(const FakeFile& file) {
        std::string path = track("a", file);
        fetchRow(path, "Song");
        burn(path);
        sound_.calls.clear();
        events_.told.clear();
        view_.told.clear();
        return path;
    }
};

TEST_F(Transport, stopFreesBothStreams) {
    startRow({.seconds = 10});
    state_.SecondaryChannel = 40;
    transport_.Stop_play();
    EXPECT_THAT(sound_.calls, ElementsAre("BASS_StreamFree(1)", "BASS_ChannelStop(1)",
                                          "BASS_StreamFree(40)", "BASS_ChannelStop(40)"));
    EXPECT_THAT(events_.told, ElementsAre("no visualisation", "nothing {0} - {1} Music"));
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_FALSE(clock_.watchesTrack());
    EXPECT_FALSE(sound_.lives(1));
    EXPECT_TRUE(sound_.initialized);
}

TEST_F(Transport, stopSilencesAModuleAndLeavesItToTheNextStart) {
    startRow({.kind = FakeKind::music, .seconds = 10});
    transport_.Stop_play();
    EXPECT_EQ(sound_.BASS_ChannelIsActive(1), sound::Activity::stopped);
    EXPECT_TRUE(sound_.lives(1));
    EXPECT_FALSE(state_.IsPlaying);
    burn("");
    EXPECT_FALSE(sound_.lives(1));
}

TEST_F(Transport, stopOfNothingOnlyTellsIt) {
    clock_.watchTrack(true);
    transport_.Stop_play();
    EXPECT_THAT(sound_.calls, IsEmpty());
    EXPECT_THAT(events_.told, ElementsAre("nothing {0} - {1} Music"));
    EXPECT_TRUE(clock_.watchesTrack());
}

TEST_F(Transport, pauseActsOnTheWholeOutput) {
    startRow({.seconds = 10});
    transport_.pause();
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_TRUE(state_.IsPaused);
    EXPECT_TRUE(sound_.paused);
    transport_.pause();
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_FALSE(state_.IsPaused);
    EXPECT_FALSE(sound_.paused);
    EXPECT_THAT(sound_.calls, ElementsAre("BASS_Pause()", "BASS_Start()"));
}

TEST_F(Transport, pauseOfNothingDoesNothing) {
    transport_.pause();
    EXPECT_FALSE(state_.IsPaused);
    EXPECT_THAT(sound_.calls, IsEmpty());
}

TEST_F(Transport, stopWhilePausedKeepsTheFlagUntilTheNextStart) {
    const std::string path = startRow({.seconds = 10});
    transport_.pause();
    transport_.Stop_play();
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_TRUE(state_.IsPaused);
    burn(path);
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_FALSE(state_.IsPaused);
    EXPECT_FALSE(sound_.paused);
}

TEST_F(Transport, playWhilePausedStartsTheRowAnew) {
    startRow({.seconds = 10});
    sound_.setSeconds(1, 5);
    transport_.pause();
    rowPlayer_.button_play();
    EXPECT_FALSE(state_.IsPaused);
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_FALSE(sound_.paused);
    EXPECT_EQ(time_.GetPlayingPos(state_.PrimaryChannel), 0);
    EXPECT_EQ(state_.TracksStarted, 2);
    EXPECT_FALSE(sound_.lives(1));
}

TEST_F(Transport, playOfAnEmptyListDoesNothing) {
    state_.IsPaused = true;
    rowPlayer_.button_play();
    EXPECT_TRUE(state_.IsPaused);
    EXPECT_THAT(sound_.calls, IsEmpty());
    EXPECT_EQ(state_.TracksStarted, 0);
}

TEST_F(Transport, playWithoutASelectionStartsTheFirstRow) {
    addRows(2, {.seconds = 10});
    rowPlayer_.button_play();
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_EQ(state_.TracksStarted, 1);
    EXPECT_EQ(state_.CurrentTitle, "T1");
    EXPECT_EQ(list_.SelectedIndex, 1);
    EXPECT_TRUE(list_.isMarked(1));
}

TEST_F(Transport, theButtonOfPause) {
    startRow({.seconds = 10});
    transport_.button_pause();
    EXPECT_TRUE(state_.IsPaused);
}

TEST_F(Transport, theButtonOfStopSetsDigitsAndMarkBack) {
    startRow({.seconds = 10});
    playing_.time = "00:07";
    playing_.percent = 70;
    transport_.button_stop();
    EXPECT_THAT(view_.told, ElementsAre("time", "position"));
    EXPECT_EQ(view_.last.time, "00:00");
    EXPECT_EQ(view_.last.percent, 0);
    EXPECT_FALSE(state_.IsPlaying);
}

TEST_F(Transport, fiveSecondsOnAndBack) {
    startRow({.seconds = 20});
    transport_.five_seconds_fwd();
    transport_.five_seconds_fwd();
    EXPECT_EQ(time_.GetPlayingPos(1), 10);
    transport_.five_seconds_bck();
    EXPECT_EQ(time_.GetPlayingPos(1), 5);
}

TEST_F(Transport, fiveSecondsBeyondTheEndsAreRefused) {
    startRow({.seconds = 20});
    sound_.setSeconds(1, 4);
    transport_.five_seconds_bck();
    EXPECT_EQ(time_.GetPlayingPos(1), 4);
    sound_.setSeconds(1, 16);
    transport_.five_seconds_fwd();
    EXPECT_EQ(time_.GetPlayingPos(1), 16);
    sound_.setSeconds(1, 15);
    transport_.five_seconds_fwd();
    EXPECT_EQ(time_.GetPlayingPos(1), 20);
    sound_.setSeconds(1, 5);
    transport_.five_seconds_bck();
    EXPECT_EQ(time_.GetPlayingPos(1), 0);
}

TEST_F(Transport, fiveSecondsGoToTheActiveChannel) {
    startRow({.seconds = 20});
    sound_.files["other"] = {.seconds = 30};
    state_.SecondaryChannel = sound_.BASS_StreamCreateFile(false, "other", 0, 0, 0);
    state_.ActiveChannel = player::ChannelSlot::secondary;
    transport_.five_seconds_fwd();
    EXPECT_EQ(time_.GetPlayingPos(state_.SecondaryChannel), 5);
    EXPECT_EQ(time_.GetPlayingPos(1), 0);
}

TEST_F(Transport, fiveSecondsOfNothing) {
    transport_.five_seconds_fwd();
    transport_.five_seconds_bck();
    EXPECT_FALSE(state_.IsPlaying);
}

} // namespace
} // namespace tovik::test
