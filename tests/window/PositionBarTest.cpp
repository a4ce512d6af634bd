// SPDX-License-Identifier: GPL-3.0-or-later
// The hand on the position bar, a bar of 201 pixels at 26: half a percent a pixel.
#include "window/PositionBar.h"

#include "window/ViewRig.h"

namespace tovik::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using window::MainElement;

/// 16 twips, in pixels.
constexpr double kPointer = 16.0 / 15;
constexpr double kLeft = 26;

class PositionBar : public ViewRig {
protected:
    PositionBar() {
        elements_.touch(MainElement::posbar).width = 201;
        clock_.begin();
    }

    void play(double seconds) {
        burn(track("a.mp3", {.seconds = seconds}));
        sound_.calls.clear();
        state_.SilenceTicks = 9;
    }

    [[nodiscard]] double mark() const { return elements_.get(MainElement::track).left; }

    [[nodiscard]] std::int32_t position() { return time_.GetPlayingPos(state_.active()); }

    window::PositionBar& bar_ = positionBar_;
};

TEST_F(PositionBar, aPressTakesTheMarkAndHoldsTheEndOfTrackBack) {
    play(100);
    bar_.Posbar_MouseDown(50);
    EXPECT_DOUBLE_EQ(mark(), kLeft + 50 + kPointer);
    EXPECT_FALSE(clock_.watchesTrack());
    EXPECT_TRUE(clock_.movesDigits());
    EXPECT_EQ(state_.SilenceTicks, 0);
    EXPECT_THAT(sound_.calls, IsEmpty());
}

TEST_F(PositionBar, aPressWhilePausedOrStoppedOnlyClearsTheSilence) {
    play(100);
    transport_.pause();
    const double before = mark();
    bar_.Posbar_MouseDown(50);
    EXPECT_EQ(mark(), before);
    EXPECT_TRUE(clock_.watchesTrack());
    EXPECT_EQ(state_.SilenceTicks, 0);
    transport_.pause();
    transport_.Stop_play();
    state_.SilenceTicks = 9;
    bar_.Posbar_MouseDown(50);
    EXPECT_EQ(mark(), before);
    EXPECT_EQ(state_.SilenceTicks, 0);
}

TEST_F(PositionBar, aDragShowsWhereItWouldGoAndTheTrackSoundsOn) {
    play(3725);
    bar_.Posbar_MouseMove(100);
    EXPECT_DOUBLE_EQ(mark(), kLeft + 100 + kPointer);
    EXPECT_FALSE(clock_.movesDigits());
    EXPECT_FALSE(clock_.watchesTrack());
    EXPECT_EQ(view_.last.time, "31:02"); // 1862.5 s, to the even second
    EXPECT_FALSE(view_.last.countsDown);
    EXPECT_EQ(state_.SilenceTicks, 0);
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_THAT(sound_.calls, IsEmpty());
    bar_.Posbar_MouseMove(200);
    EXPECT_EQ(view_.last.time, "02:05"); // an hour is cut away
}

TEST_F(PositionBar, aDragShowsWhatWouldBeLeft) {
    play(100);
    state_.TimeDisplayMode = 1;
    bar_.Posbar_MouseMove(50);
    EXPECT_EQ(view_.last.time, "01:15");
    EXPECT_TRUE(view_.last.countsDown);
    state_.TimeDisplayMode = 2;
    bar_.Posbar_MouseMove(60);
    EXPECT_EQ(view_.last.time, "01:10");
}

TEST_F(PositionBar, placesBesideTheBarAreItsEnds) {
    play(100);
    bar_.Posbar_MouseMove(-70);
    EXPECT_EQ(view_.last.time, "00:00");
    EXPECT_DOUBLE_EQ(mark(), kLeft + kPointer);
    bar_.Posbar_MouseMove(4000);
    EXPECT_EQ(view_.last.time, "01:40");
    EXPECT_DOUBLE_EQ(mark() + elements_.get(MainElement::track).width, kLeft + 201)
        << "the mark stays inside";
}

TEST_F(PositionBar, aReleaseSeeksAndTheClockGoesOn) {
    play(100);
    bar_.Posbar_MouseDown(10);
    bar_.Posbar_MouseMove(61);
    state_.SilenceTicks = 4;
    bar_.Posbar_MouseUp(61);
    EXPECT_EQ(position(), 30); // 30.5 s, to the even second
    EXPECT_DOUBLE_EQ(mark(), kLeft + 61 + kPointer);
    EXPECT_TRUE(clock_.movesDigits());
    EXPECT_TRUE(clock_.watchesTrack());
    EXPECT_EQ(window_.focusTaken, 1);
    EXPECT_EQ(state_.SilenceTicks, 0);
}

TEST_F(PositionBar, aReleaseAtTheFarRightIsTheEnd) {
    play(1000);
    bar_.Posbar_MouseDown(199);
    bar_.Posbar_MouseUp(200);
    EXPECT_EQ(position(), 1000);
    bar_.Posbar_MouseUp(0);
    EXPECT_EQ(position(), 0);
}

TEST_F(PositionBar, theActiveChannelIsSought) {
    play(100);
    state_.SecondaryChannel = state_.PrimaryChannel;
    state_.PrimaryChannel = 0;
    state_.ActiveChannel = player::ChannelSlot::secondary;
    bar_.Posbar_MouseUp(100);
    EXPECT_EQ(position(), 50);
}

TEST_F(PositionBar, aClickWhilePausedSeeksNothing) {
    play(100);
    transport_.pause();
    clock_.watchTrack(false);
    bar_.Posbar_MouseDown(100);
    bar_.Posbar_MouseMove(100);
    bar_.Posbar_MouseUp(100);
    EXPECT_EQ(position(), 0);
    EXPECT_FALSE(clock_.watchesTrack());
    EXPECT_EQ(window_.focusTaken, 0);
    EXPECT_THAT(view_.told, Not(Contains("time")));
}

TEST_F(PositionBar, theClockGoesOnWhenTheTrackWasStoppedDuringTheDrag) {
    play(100);
    bar_.Posbar_MouseDown(10);
    bar_.Posbar_MouseMove(20);
    transport_.Stop_play();
    sound_.calls.clear();
    bar_.Posbar_MouseUp(20);
    EXPECT_TRUE(clock_.movesDigits());
    EXPECT_TRUE(clock_.watchesTrack());
    EXPECT_THAT(sound_.calls, Not(Contains(StartsWith("BASS_ChannelSetPosition"))));
}

TEST_F(PositionBar, aDragIsOverWithItsRelease) {
    play(100);
    for (const bool stopped : {false, true}) {
        bar_.Posbar_MouseDown(10);
        bar_.Posbar_MouseMove(20);
        if (stopped) {
            transport_.Stop_play();
        }
        bar_.Posbar_MouseUp(20);
        transport_.Stop_play();
        clock_.watchTrack(false);
        window_.focusTaken = 0;
        // A release without a drag: nothing plays, and the clock stays as it is.
        bar_.Posbar_MouseUp(20);
        EXPECT_FALSE(clock_.watchesTrack()) << stopped;
        EXPECT_EQ(window_.focusTaken, 0) << stopped;
        play(100);
    }
}

} // namespace
} // namespace tovik::test
