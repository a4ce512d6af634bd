// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlaybackClock.h"

#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

using player::ChannelSlot;
using testing::ElementsAre;
using testing::IsEmpty;

class Clock : public PlayerRig {
protected:
    Clock() {
        static_cast<void>(sound_.BASS_Init(1, 44100, 0, 0, 0));
        sound_.files["f"] = {.seconds = 200};
        state_.PrimaryChannel = sound_.BASS_StreamCreateFile(false, "f", 0, 0, 0);
        state_.ActiveChannel = ChannelSlot::primary;
        state_.IsPlaying = true;
    }
};

TEST_F(Clock, theDigitsShowTheTimePlayed) {
    sound_.setSeconds(state_.PrimaryChannel, 75);
    clock_.Timer1();
    EXPECT_THAT(view_.told, ElementsAre("time"));
    EXPECT_EQ(view_.last.time, "01:15");
    EXPECT_FALSE(view_.last.countsDown);
}

TEST_F(Clock, orTheTimeLeft) {
    state_.TimeDisplayMode = 1;
    sound_.setSeconds(state_.PrimaryChannel, 75);
    clock_.Timer1();
    EXPECT_EQ(view_.last.time, "02:05");
    EXPECT_TRUE(view_.last.countsDown);
}

TEST_F(Clock, anyOtherModeShowsTheTimePlayedBehindAMinus) {
    state_.TimeDisplayMode = 2;
    sound_.setSeconds(state_.PrimaryChannel, 75);
    clock_.Timer1();
    EXPECT_EQ(view_.last.time, "01:15");
    EXPECT_TRUE(view_.last.countsDown);
}

TEST_F(Clock, hoursAreCutAway) {
    sound_.files["f"].seconds = 5000;
    state_.PrimaryChannel = sound_.BASS_StreamCreateFile(false, "f", 0, 0, 0);
    sound_.setSeconds(state_.PrimaryChannel, 4500);
    clock_.Timer1();
    EXPECT_EQ(view_.last.time, "15:00");
}

TEST_F(Clock, theMarkIsAtTheRoundedPercent) {
    for (const auto& [seconds, percent] : {std::pair{0, 0}, {1, 0}, {3, 2}, {100, 50}, {198, 99}}) {
        sound_.setSeconds(state_.PrimaryChannel, seconds);
        clock_.Timer3();
        EXPECT_EQ(view_.last.percent, percent) << seconds;
    }
}

TEST_F(Clock, nothingMovesWhileNothingPlays) {
    state_.IsPlaying = false;
    clock_.Timer1();
    clock_.Timer3();
    EXPECT_THAT(view_.told, IsEmpty());
}

TEST_F(Clock, withoutAnActiveChannelTheDigitsStay) {
    state_.ActiveChannel = ChannelSlot::none;
    clock_.Timer1();
    EXPECT_THAT(view_.told, IsEmpty());
    clock_.Timer3();
    EXPECT_EQ(view_.last.percent, 0);
}

TEST_F(Clock, theSecondaryChannelIsReadWhenItIsTheActiveOne) {
    state_.SecondaryChannel = sound_.BASS_StreamCreateFile(false, "f", 0, 0, 0);
    sound_.setSeconds(state_.SecondaryChannel, 20);
    state_.ActiveChannel = ChannelSlot::secondary;
    clock_.Timer1();
    clock_.Timer3();
    EXPECT_EQ(view_.last.time, "00:20");
    EXPECT_EQ(view_.last.percent, 10);
}

TEST_F(Clock, aDeadChannelShowsNoTime) {
    state_.PrimaryChannel = 99;
    clock_.Timer1();
    EXPECT_EQ(view_.last.time, "00:00");
    EXPECT_EQ(state_.TracksStarted, 0);
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(Clock, aFailureIsReportedUnderTheWordsOfItsTimer) {
    // Some position, but no length: not the overflow that ends a track.
    sound_.channel(state_.PrimaryChannel).file.seconds = 0;
    sound_.channel(state_.PrimaryChannel).position = 44100 * 4;
    clock_.Timer3();
    EXPECT_THAT(logged(), ElementsAre("Division by zero,11,Player,timer3"));
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].title, " in Sub Timer3_Timer");
    EXPECT_EQ(state_.TracksStarted, 0);
}

TEST_F(Clock, theWordsAreShownAnew) {
    state_.TrackInfoMode = "Mono";
    state_.TrackInfoText = "128 kbps  44 KHZ";
    playing_.volumeText = "Volume 80%";
    playing_.balanceText = "Centre";
    clock_.Timer2();
    EXPECT_THAT(view_.told, ElementsAre("format", "volume", "balance"));
    EXPECT_EQ(view_.last.mode, "Mono");
    EXPECT_EQ(view_.last.infoText, "128 kbps  44 KHZ");
}

TEST_F(Clock, theTimersRestWhileNothingPlays) {
    state_.IsPlaying = false;
    clock_.begin();
    EXPECT_FALSE(clock_.rests());
    advance(1000);
    EXPECT_TRUE(clock_.rests());
    view_.told.clear();
    advance(1000);
    EXPECT_THAT(view_.told, IsEmpty());
    EXPECT_TRUE(clock_.movesDigits()) << "as soon as there is something to move";
}

TEST_F(Clock, theTimersTickAgainOnceSomethingIsShown) {
    state_.IsPlaying = false;
    clock_.begin();
    advance(1000);
    core_.screen.showVolume();
    view_.told.clear();
    advance(player::PlaybackClock::kTimer2Ms);
    EXPECT_THAT(view_.told, ElementsAre("format", "volume", "balance"));
    advance(1000);
    core_.screen.showFacts(); // a track starts
    state_.IsPlaying = true;
    sound_.setSeconds(state_.PrimaryChannel, 75);
    advance(1000);
    EXPECT_EQ(playing_.time, "01:15");
    EXPECT_FALSE(clock_.rests());
}

TEST_F(Clock, aHandOnThePositionBarIsNotDisturbed) {
    clock_.begin();
    clock_.moveDigits(false);
    playing_.time = "00:42";
    core_.screen.showFacts();
    advance(1000);
    EXPECT_EQ(playing_.time, "00:42");
}

TEST_F(Clock, theBalanceIsLeftAloneWhileThePointerIsOverIt) {
    playing_.balanceHover = true;
    clock_.Timer2();
    EXPECT_THAT(view_.told, ElementsAre("format", "volume"));
}

} // namespace
} // namespace tovik::test
