// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

class FadeOut : public PlayerRig {
protected:
    void play(double seconds) {
        const std::string path = track("a", {.seconds = seconds});
        fetchRow(path, "Song");
        burn(path);
        sound_.calls.clear();
    }
};

TEST_F(FadeOut, slidesToSilenceAndStops) {
    play(60);
    set("CFDT", "3");
    fadeOut_.FadeOutTrack();
    EXPECT_THAT(sound_.calls, ElementsAre("BASS_ChannelSlideAttributes(1, -1, 0, -101, 3000)"));
    advance(2990);
    EXPECT_TRUE(state_.IsPlaying);
    advance(10);
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_EQ(view_.last.percent, 0);
    EXPECT_EQ(view_.last.time, "00:00");
    EXPECT_FALSE(fadeOut_.runs());
    EXPECT_FALSE(sound_.lives(1));
}

TEST_F(FadeOut, slidesTheActiveChannel) {
    play(60);
    state_.SecondaryChannel = 9;
    state_.ActiveChannel = player::ChannelSlot::secondary;
    fadeOut_.FadeOutTrack();
    EXPECT_THAT(sound_.calls, ElementsAre("BASS_ChannelSlideAttributes(9, -1, 0, -101, 5000)"));
}

TEST_F(FadeOut, withATimeOfZeroTheTrackStopsAtOnce) {
    for (const char* const seconds : {"0", "-3"}) {
        SCOPED_TRACE(seconds);
        play(60);
        const sound::Handle channel = state_.PrimaryChannel;
        set("CFDT", seconds);
        fadeOut_.FadeOutTrack();
        EXPECT_FALSE(state_.IsPlaying);
        EXPECT_FALSE(sound_.lives(channel));
        EXPECT_FALSE(fadeOut_.runs());
        EXPECT_EQ(view_.last.time, "00:00");
        EXPECT_THAT(sound_.calls, Not(Contains(testing::HasSubstr("Slide"))));
    }
}

TEST_F(FadeOut, aStartCallsItOff) {
    play(60);
    fadeOut_.FadeOutTrack();
    advance(1000);
    play(60);
    EXPECT_FALSE(fadeOut_.runs());
    advance(10000);
    EXPECT_TRUE(state_.IsPlaying);
}

TEST_F(FadeOut, soDoesACrossfade) {
    play(60);
    fadeOut_.FadeOutTrack();
    advance(1000);
    fade(track("b", {.seconds = 60}), 5000);
    advance(10000);
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_EQ(sound_.BASS_ChannelIsActive(state_.active()), sound::Activity::playing);
}

TEST_F(FadeOut, aCrossfadeThatFailsLetsItGoOn) {
    play(60);
    fadeOut_.FadeOutTrack();
    advance(1000);
    fade(host_.folder.write("none", "text"), 5000);
    advance(4000);
    EXPECT_FALSE(state_.IsPlaying);
}

TEST_F(FadeOut, stopCallsItOff) {
    play(60);
    fadeOut_.FadeOutTrack();
    transport_.button_stop();
    EXPECT_FALSE(fadeOut_.runs());
}

TEST_F(FadeOut, aPauseHoldsItAndItGoesOnFromThere) {
    play(60);
    fadeOut_.FadeOutTrack(); // 5 s
    advance(2000);
    transport_.button_pause();
    advance(60000);
    EXPECT_TRUE(state_.IsPlaying) << "nothing of it is heard meanwhile";
    EXPECT_TRUE(state_.IsPaused);
    EXPECT_TRUE(fadeOut_.runs());
    transport_.button_pause();
    advance(2990);
    EXPECT_TRUE(state_.IsPlaying);
    advance(10);
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_FALSE(fadeOut_.runs());
}

TEST_F(FadeOut, onceHeldItIsCalledOffByWhatStopsOrStarts) {
    play(60);
    fadeOut_.FadeOutTrack();
    advance(1000);
    transport_.button_pause();
    play(60); // as Play does
    EXPECT_FALSE(fadeOut_.runs());
    state_.IsPaused = true;
    transport_.button_pause();
    advance(10000);
    EXPECT_TRUE(state_.IsPlaying);
    fadeOut_.FadeOutTrack();
    transport_.button_pause();
    transport_.button_stop();
    EXPECT_FALSE(fadeOut_.runs());
}

TEST_F(FadeOut, aPauseWithoutAFadeStopsNothing) {
    play(60);
    transport_.button_pause();
    transport_.button_pause();
    advance(10000);
    EXPECT_TRUE(state_.IsPlaying);
}

TEST_F(FadeOut, aTrackThatEndsMeanwhileIsNotFollowed) {
    addRows(2, {.seconds = 4});
    mirror_.ListIndex(0);
    rowPlayer_.List1_DblClick();
    fadeOut_.FadeOutTrack(); // 5 s
    advance(4500);
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_EQ(state_.CurrentTitle, "T1");
    EXPECT_EQ(offered(), "1");
}

TEST_F(FadeOut, aTimeThatIsNoNumberStartsNothing) {
    play(60);
    set("CFDT", "long");
    EXPECT_THROW(fadeOut_.FadeOutTrack(), base::RuntimeError);
    EXPECT_FALSE(fadeOut_.runs());
    EXPECT_THAT(sound_.calls, Not(Contains(testing::HasSubstr("Slide"))));
}

} // namespace
} // namespace tovik::test
