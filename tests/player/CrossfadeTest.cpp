// SPDX-License-Identifier: GPL-3.0-or-later
// A start beside the track that sounds.
#include "player/PlayerRig.h"
#include "support/host/SettingPlace.h"

namespace tovik::test {
namespace {

using player::ChannelSlot;
using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Not;

class Crossfade : public PlayerRig {
protected:
    Crossfade() {
        first_ = track("first", {.seconds = 60});
        second_ = track("second", {.seconds = 60});
        fetchRow(second_, "Second");
    }

    /// A plain start, from which fades begin.
    void playFirst() {
        burn(first_);
        forget();
    }

    void forget() {
        sound_.calls.clear();
        events_.told.clear();
        view_.told.clear();
    }

    void fadeTo(const std::string& path, std::int32_t milliseconds = 5000) {
        fade(path, milliseconds);
    }

    std::string first_;
    std::string second_;
};

TEST_F(Crossfade, theOrderOfThings) {
    playFirst();
    state_.SilenceTicks = 5;
    state_.RadioMode = true;
    fadeTo(second_, 3000);
    // The balance is the new channel's, and behind the volume, which centres it.
    EXPECT_THAT(sound_.calls, ElementsAre("BASS_StreamFree(0)", "BASS_MusicFree(0)",
                                          "BASS_StreamCreateFile(0, " + second_ + ", 0, 0, 128)",
                                          "BASS_Start()", "BASS_WMA_GetIWMReader(3)", "Set_EQ",
                                          "BASS_ChannelSetAttributes(3, -1, 80, 0)",
                                          "BASS_ChannelSetAttributes(3, -1, -1, -25)",
                                          "BASS_MusicPlay(3)", "BASS_StreamPlay(3, 0, 0)",
                                          "BASS_ChannelSlideAttributes(1, -1, 0, -101, 3000)",
                                          "BASS_ChannelSlideAttributes(3, -1, 80, -101, 3000)"));
    EXPECT_EQ(state_.CrossfadeLeg, 1);
    EXPECT_EQ(state_.SecondaryChannel, 3U);
    EXPECT_EQ(state_.ActiveChannel, ChannelSlot::secondary);
    EXPECT_EQ(state_.TracksStarted, 2);
    EXPECT_EQ(state_.SilenceTicks, 0);
    EXPECT_FALSE(state_.RadioMode);
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_TRUE(clock_.watchesTrack());
    EXPECT_TRUE(CrossFade_->enabled());
    EXPECT_EQ(CrossFade_->interval(), 5000); // the setting, read anew
    EXPECT_EQ(sound_.BASS_ChannelIsActive(1), sound::Activity::playing);
    EXPECT_EQ(sound_.BASS_ChannelIsActive(3), sound::Activity::playing);
    EXPECT_THAT(view_.told, ElementsAre("source", "facts", "titles", "facts"));
    EXPECT_EQ(state_.CurrentTitle, "Second");
    EXPECT_EQ(list_.seconds(1), 60);
    EXPECT_EQ(events_.report.path, second_);
}

TEST_F(Crossfade, theOldChannelIsFreedWhenItIsSilent) {
    playFirst();
    fadeTo(second_);
    advance(4990);
    EXPECT_TRUE(sound_.lives(1));
    advance(10);
    EXPECT_FALSE(sound_.lives(1));
    EXPECT_TRUE(sound_.lives(state_.SecondaryChannel));
    EXPECT_FALSE(CrossFade_->enabled());
}

TEST_F(Crossfade, theLegsTakeTurns) {
    playFirst();
    for (const int leg : {1, 2, 1, 2}) {
        fadeTo(leg == 1 ? second_ : first_);
        EXPECT_EQ(state_.CrossfadeLeg, leg);
        EXPECT_EQ(state_.ActiveChannel, leg == 1 ? ChannelSlot::secondary : ChannelSlot::primary);
        const sound::Handle old = leg == 1 ? state_.PrimaryChannel : state_.SecondaryChannel;
        EXPECT_TRUE(sound_.lives(old));
        advance(5000);
        EXPECT_FALSE(sound_.lives(old));
        EXPECT_TRUE(sound_.lives(state_.active()));
    }
}

TEST_F(Crossfade, aPlainStartBeginsAnewWithTheFirstLeg) {
    playFirst();
    fadeTo(second_);
    playFirst();
    EXPECT_EQ(state_.CrossfadeLeg, 2);
    fadeTo(second_);
    EXPECT_EQ(state_.CrossfadeLeg, 1);
}

TEST_F(Crossfade, aSecondFadeFreesTheFirstOnesOldChannelAtOnce) {
    playFirst();
    fadeTo(second_);
    advance(1000);
    fadeTo(first_);
    EXPECT_FALSE(sound_.lives(1));
    advance(4000);
    EXPECT_TRUE(sound_.lives(3)); // the count of the timer began anew
    advance(1000);
    EXPECT_FALSE(sound_.lives(3));
}

TEST_F(Crossfade, withATimeOfZeroTheOldChannelIsFreedAtOnce) {
    playFirst();
    set("CFDT", "0");
    fadeTo(second_, 0);
    EXPECT_FALSE(sound_.lives(1));
    EXPECT_FALSE(CrossFade_->enabled());
    EXPECT_EQ(sound_.BASS_ChannelIsActive(state_.active()), sound::Activity::playing);
}

TEST_F(Crossfade, theBalanceIsHeardInTheNewTrack) {
    for (const char* const volumeMode : {"0", "1"}) {
        set("EV2", volumeMode);
        for (const FakeKind kind : {FakeKind::stream, FakeKind::music, FakeKind::wma}) {
            playFirst();
            fadeTo(track("other", {.kind = kind, .seconds = 60}));
            EXPECT_EQ(sound_.channel(state_.SecondaryChannel).pan, -25);
            EXPECT_EQ(sound_.channel(state_.PrimaryChannel).pan, *volumeMode == '0' ? 0 : -25);
        }
    }
}

TEST_F(Crossfade, theLookFollowsTheSound) {
    addRows(2, {.seconds = 60});
    list_.SelectedIndex = 2;
    playFirst();
    EXPECT_TRUE(list_.isPlayed(2));
    list_.SelectIndex(3);
    fadeTo(second_);
    EXPECT_TRUE(list_.isPlayed(3));
    list_.SelectIndex(1);
    fadeTo(host_.folder.write("none", "text"));
    EXPECT_TRUE(list_.isPlayed(3)) << "the old track plays on";
}

TEST_F(Crossfade, aFileThatDoesNotOpenGivesItsTitleAndTheClockGoesOn) {
    playFirst();
    playing_.time = "00:20";
    list_.AddItem("", host_.folder.write("none", "text"), "Broken", "00:00", 0);
    list_.SelectedIndex = 2;
    list_.GetData(2);
    fadeTo(list_.OutFileName);
    EXPECT_EQ(view_.last.caption, " Broken");
    EXPECT_EQ(view_.last.scrollerText, " Broken");
    EXPECT_EQ(state_.CurrentTitle, "Broken");
    EXPECT_EQ(playing_.time, "00:20");
}

TEST_F(Crossfade, whereNothingSoundedTheClockGoesToTheStart) {
    playing_.time = "00:20";
    playing_.percent = 30;
    fadeTo(host_.folder.write("none", "text"));
    EXPECT_EQ(view_.last.time, "00:00");
    EXPECT_EQ(view_.last.percent, 0);
}

TEST_F(Crossfade, aFileThatNobodyTakesLeavesTheOldTrackAlone) {
    playFirst();
    fadeTo(host_.folder.write("none", "text"));
    EXPECT_EQ(state_.CrossfadeLeg, 1);
    EXPECT_EQ(state_.TracksStarted, 2);
    EXPECT_EQ(state_.ActiveChannel, ChannelSlot::primary);
    EXPECT_EQ(sound_.BASS_ChannelIsActive(1), sound::Activity::playing);
    EXPECT_FALSE(CrossFade_->enabled());
    EXPECT_THAT(sound_.calls, Not(Contains(testing::HasSubstr("Slide"))));
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(Crossfade, aWmaIsOpenedTwiceAndTheSecondStreamIsFreedAtOnce) {
    const std::string path = track("a.wma", {.kind = FakeKind::wma, .seconds = 60});
    playFirst();
    fadeTo(path);
    const auto reader = std::ranges::find(sound_.calls, "BASS_WMA_GetIWMReader(3)");
    ASSERT_NE(reader, sound_.calls.end());
    EXPECT_THAT(std::vector(reader + 1, sound_.calls.end()),
                ElementsAre("BASS_WMA_StreamCreateFile(0, " + path + ", 0, 0, 128)",
                            "BASS_StreamFree(4)", "Set_EQ",
                            "BASS_ChannelSetAttributes(3, -1, 80, 0)",
                            "BASS_ChannelSetAttributes(3, -1, -1, -25)", "BASS_StreamPlay(3, 0, 0)",
                            "BASS_ChannelSlideAttributes(1, -1, 0, -101, 5000)",
                            "BASS_ChannelSlideAttributes(3, -1, 80, -101, 5000)"));
    EXPECT_TRUE(state_.IsWmaStream);
    EXPECT_EQ(state_.ActiveChannel, ChannelSlot::secondary);
    EXPECT_TRUE(clock_.watchesTrack());
    fadeTo(first_);
    EXPECT_FALSE(state_.IsWmaStream);
}

TEST_F(Crossfade, aTrackOfACd) {
    sound_.drives.resize(1);
    sound_.discTracks[6] = {.kind = FakeKind::disc, .seconds = 100};
    playFirst();
    clock_.watchTrack(false);
    state_.IsWmaStream = true;
    list_.SelectedIndex = 1;
    fadeTo("D:\\Track07.cda");
    const auto disc = std::ranges::find(sound_.calls, "BASS_CD_StreamCreate(0, 6, 327680)");
    ASSERT_NE(disc, sound_.calls.end());
    EXPECT_THAT(std::vector(disc + 1, sound_.calls.end()),
                ElementsAre("BASS_Start()", "Set_EQ", "BASS_ChannelSetAttributes(3, -1, 80, 0)",
                            "BASS_ChannelSetAttributes(3, -1, -1, -25)", "BASS_StreamPlay(3, 1, 0)",
                            "BASS_ChannelSlideAttributes(1, -1, 0, -101, 5000)",
                            "BASS_ChannelSlideAttributes(3, -1, 80, -101, 5000)"));
    EXPECT_EQ(state_.ActiveChannel, ChannelSlot::secondary);
    EXPECT_TRUE(clock_.watchesTrack());
    EXPECT_TRUE(CrossFade_->enabled());
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_FALSE(state_.IsWmaStream);
    EXPECT_THAT(view_.last.fields, ElementsAre("N/A", "N/A", "N/A", "N/A", "N/A"));
    EXPECT_THAT(view_.told, ElementsAre("source", "facts"));
}

TEST_F(Crossfade, aTrackThatTheCdDoesNotHaveStartsNoFade) {
    playFirst();
    fadeTo("D:\\Track07.cda");
    EXPECT_EQ(sound_.calls.back(), "BASS_StreamPlay(0, 1, 0)");
    EXPECT_FALSE(CrossFade_->enabled());
    EXPECT_EQ(state_.ActiveChannel, ChannelSlot::secondary);
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(Crossfade, aTrackThatTheCdDoesNotHaveLeavesAPausedOutputPaused) {
    playFirst();
    transport_.pause();
    fadeTo("D:\\Track07.cda");
    EXPECT_TRUE(state_.IsPaused);
    EXPECT_TRUE(sound_.paused);
}

TEST_F(Crossfade, ontoTheSecondaryChannelTheVisualisationRestartsBeforeTheFileIsOpened) {
    playFirst();
    fadeTo(second_);
    EXPECT_THAT(events_.told,
                ElementsAre("visualisation", "visualisation", "visualisation", "track"));
    forget();
    fadeTo(first_);
    EXPECT_THAT(events_.told, ElementsAre("visualisation", "visualisation", "track"));
}

TEST_F(Crossfade, aPausedOutputSoundsAgain) {
    playFirst();
    transport_.pause();
    fadeTo(second_);
    EXPECT_FALSE(state_.IsPaused);
    EXPECT_FALSE(sound_.paused);
}

TEST_F(Crossfade, alsoWhenTheButtonClearedTheFlagBefore) {
    state_.CrossfadeOn = true;
    list_.AddItem("", first_, "First", "00:00", 0);
    playFirst();
    list_.SelectedIndex = 1;
    transport_.pause();
    advance_.button_next();
    EXPECT_EQ(offered(), "first");
    EXPECT_FALSE(sound_.paused);
}

TEST_F(Crossfade, stopFreesBothChannels) {
    playFirst();
    fadeTo(second_);
    transport_.button_stop();
    EXPECT_FALSE(sound_.lives(1));
    EXPECT_FALSE(sound_.lives(3));
    EXPECT_FALSE(state_.IsPlaying);
}

TEST_F(Crossfade, withTheVolumeOfTheWholeOutputTheNewChannelSlidesDown) {
    set("EV2", "1");
    playFirst();
    fadeTo(second_);
    EXPECT_EQ(std::ranges::count(sound_.calls, "BASS_SetVolume(80)"), 1);
    EXPECT_EQ(sound_.channel(3).volume, 100);
    EXPECT_THAT(sound_.calls, Contains("BASS_ChannelSlideAttributes(3, -1, 80, -101, 5000)"));
}

TEST_F(Crossfade, failuresGoToTheGuards) {
    playFirst();
    set("EV2", "loud");
    fadeTo(second_);
    EXPECT_THAT(logged(), ElementsAre("Type mismatch" + settingPlace(host_.folder, "EV2", "loud") +
                                      ",13,Player,Crossfade_BurnBaby"));
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].title, " in function Crossfade_burnbaby");
    EXPECT_EQ(state_.TracksStarted, 1);
}

TEST_F(Crossfade, otherLegsFreeNothing) {
    playFirst();
    state_.CrossfadeLeg = 0;
    CrossFade_->setEnabled(true);
    crossfade_.crossfade_Timer();
    EXPECT_THAT(sound_.calls, IsEmpty());
    EXPECT_FALSE(CrossFade_->enabled());
}

TEST_F(Crossfade, aHundredFadesLeaveTwoChannels) {
    playFirst();
    const std::string wma = track("a.wma", {.kind = FakeKind::wma, .seconds = 60});
    for (int fade = 0; fade < 100; ++fade) {
        fadeTo(fade % 2 == 0 ? wma : first_);
    }
    std::size_t living = 0;
    for (sound::Handle handle = 1; handle < 1000; ++handle) {
        living += sound_.lives(handle) ? 1U : 0U;
    }
    EXPECT_EQ(living, 2U);
}

} // namespace
} // namespace tovik::test
