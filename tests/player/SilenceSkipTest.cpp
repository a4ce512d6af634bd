// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SilenceSkip : public PlayerRig {
protected:
    void play(double seconds, const char* threshold = nullptr) {
        addRows(2, {.seconds = seconds});
        list_.SelectedIndex = 1;
        list_.GetData(1);
        burn(list_.OutFileName);
        if (threshold != nullptr) {
            set("SLDT", threshold);
            silenceSkip_.button_sld();
        }
        clock_.watchTrack(false); // only silence ends a track here
    }

    void level(std::int32_t level) { sound_.channel(state_.active()).level = level; }
};

TEST_F(SilenceSkip, oneSecondOfSilenceMovesOn) {
    play(60, "50");
    level(0);
    advance(900);
    EXPECT_EQ(list_.SelectedIndex, 1);
    advance(100);
    EXPECT_EQ(list_.SelectedIndex, 2);
    EXPECT_EQ(state_.SilenceTicks, 0);
}

TEST_F(SilenceSkip, soundOnOneSideIsNoSilence) {
    play(60, "50");
    level(0x10000);
    advance(5000);
    level(1);
    advance(5000);
    EXPECT_EQ(list_.SelectedIndex, 1);
}

TEST_F(SilenceSkip, piecesOfSilenceAddUp) {
    play(60, "50");
    for (int piece = 0; piece < 9; ++piece) {
        level(0);
        advance(100);
        level(1);
        advance(1000);
    }
    EXPECT_EQ(list_.SelectedIndex, 1);
    level(0);
    advance(100);
    EXPECT_EQ(list_.SelectedIndex, 2);
}

TEST_F(SilenceSkip, theThresholdIsRoundedToTheStartOrTheEnd) {
    for (const auto& [percent, share] :
         {std::pair(0, 0), {50, 0}, {51, 1}, {100, 1}, {150, 2}, {250, 2}, {-50, 0}, {-51, -1}}) {
        EXPECT_EQ(player::silenceCountsFrom(static_cast<std::int16_t>(percent)), share) << percent;
    }
}

TEST_F(SilenceSkip, with51OnlyTheVeryEndCounts) {
    play(10, "51");
    level(0);
    advance(9400);
    EXPECT_EQ(state_.SilenceTicks, 0);
    // From 9.5 s on the position counts as 10; an ended channel is silent.
    advance(900);
    EXPECT_EQ(state_.SilenceTicks, 9);
    advance(100);
    EXPECT_EQ(list_.SelectedIndex, 2);
}

TEST_F(SilenceSkip, aModeLeftOnWorksWithThresholdZero) {
    set("SLDT", "100");
    state_.SilenceSkipOn = true;
    silenceSkip_.watch();
    play(60);
    level(0);
    advance(1000);
    EXPECT_EQ(list_.SelectedIndex, 2);
}

TEST_F(SilenceSkip, theThresholdIsReadWhenTheModeIsSwitchedOn) {
    play(60, "100");
    silenceSkip_.button_sld();
    set("SLDT", "20");
    level(0);
    advance(2000);
    EXPECT_EQ(list_.SelectedIndex, 1);
    silenceSkip_.button_sld();
    advance(1000);
    EXPECT_EQ(list_.SelectedIndex, 2);
}

TEST_F(SilenceSkip, theTimerRestsWhileTheModeIsOff) {
    play(60, "50");
    EXPECT_TRUE(silenceSkip_.watches());
    silenceSkip_.button_sld();
    EXPECT_FALSE(silenceSkip_.watches());
    EXPECT_FALSE(state_.SilenceSkipOn);
}

TEST_F(SilenceSkip, theTailOfACrossfadeIsNoSilence) {
    play(60, "50");
    level(0);
    CrossFade_->setEnabled(true);
    advance(3000);
    EXPECT_EQ(state_.SilenceTicks, 0);
}

TEST_F(SilenceSkip, behindACrossfadeOfNoTimeSilenceIsNotCountedAnyMore) {
    play(60, "50");
    level(0);
    CrossFade_->setInterval(0);
    CrossFade_->setEnabled(true);
    advance(20000);
    EXPECT_EQ(state_.SilenceTicks, 0);
    CrossFade_->setEnabled(false);
    advance(500);
    EXPECT_EQ(state_.SilenceTicks, 5);
}

TEST_F(SilenceSkip, nothingPlaysNorIsAnythingCounted) {
    play(60, "50");
    level(0);
    state_.IsPlaying = false;
    advance(3000);
    EXPECT_EQ(state_.SilenceTicks, 0);
}

TEST_F(SilenceSkip, aPausedOutputIsNoSilence) {
    play(60, "50");
    level(0);
    transport_.pause();
    advance(3000);
    EXPECT_EQ(state_.SilenceTicks, 0);
}

TEST_F(SilenceSkip, everyStartClearsTheCount) {
    play(60, "50");
    state_.SilenceTicks = 9;
    burn(list_.OutFileName);
    EXPECT_EQ(state_.SilenceTicks, 0);
    state_.SilenceTicks = 9;
    fade(list_.OutFileName, 0);
    EXPECT_EQ(state_.SilenceTicks, 0);
}

TEST_F(SilenceSkip, stopsWhereThatWasAskedFor) {
    play(60, "50");
    state_.StopAfterCurrent = true;
    level(0);
    advance(1000);
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_EQ(list_.SelectedIndex, 1);
}

TEST_F(SilenceSkip, ofAnEmptyListKeepsCounting) {
    play(60, "50");
    list_.Clear();
    level(0);
    advance(2000);
    EXPECT_EQ(state_.SilenceTicks, 20);
    EXPECT_TRUE(state_.IsPlaying);
    state_.SilenceTicks = 32767;
    advance(100);
    EXPECT_EQ(state_.SilenceTicks, 32767);
}

TEST_F(SilenceSkip, carriesOnBehindAnErrorWhichCountsAsTheStart) {
    play(60, "50");
    sound_.setSeconds(1, 0);
    sound_.channel(1).file.seconds = 0; // 0 of 0
    level(0);
    silenceSkip_.SLD_Timer();
    EXPECT_EQ(state_.SilenceTicks, 1);
    EXPECT_THAT(logged(), IsEmpty());
    EXPECT_TRUE(host_.dialogs.boxes.empty());
}

TEST_F(SilenceSkip, withoutAnActiveChannelTheShareIsZero) {
    play(60, "100");
    state_.ActiveChannel = player::ChannelSlot::none;
    silenceSkip_.SLD_Timer();
    EXPECT_EQ(state_.SilenceTicks, 0);
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(SilenceSkip, aThresholdThatIsNoNumberKeepsTheOneBefore) {
    play(60, "100");
    silenceSkip_.button_sld();
    set("SLDT", "much");
    EXPECT_THROW(silenceSkip_.button_sld(), base::RuntimeError);
    EXPECT_TRUE(state_.SilenceSkipOn);
    level(0);
    advance(2000);
    EXPECT_EQ(state_.SilenceTicks, 0);
}

} // namespace
} // namespace tovik::test
