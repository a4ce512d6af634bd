// SPDX-License-Identifier: GPL-3.0-or-later
// Tracks that play to their last sample, what follows them, and crossfades that overlap.
#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class Seamless : public PlayerRig {
protected:
    Seamless() { state_.comfort.endsExactly = true; }

    /// Rows of that kind, of which the first plays.
    void play(int rows, const FakeFile& file) {
        addRows(rows, file);
        list_.SelectedIndex = 1;
        rowPlayer_.PlayRow(1, 0);
        sound_.calls.clear();
    }

    [[nodiscard]] bool sounds(sound::Handle channel) {
        return sound_.BASS_ChannelIsActive(channel) == sound::Activity::playing;
    }

    [[nodiscard]] std::string title() const { return playing_.caption; }
};

TEST_F(Seamless, theNextTrackStartsBehindTheLastSample) {
    play(3, {.seconds = 10.3});
    const sound::Handle first = state_.active();
    advance(7000);
    EXPECT_THAT(sound_.calls, Contains(StartsWith("playBehind(")));
    EXPECT_EQ(state_.active(), first);
    EXPECT_EQ(title(), " T1");
    advance(3290);
    EXPECT_TRUE(sounds(first));
    EXPECT_EQ(state_.active(), first);
    advance(30);
    EXPECT_NE(state_.active(), first);
    EXPECT_TRUE(sounds(state_.active()));
    EXPECT_FALSE(sound_.lives(first));
    EXPECT_EQ(list_.SelectedIndex, 2);
    EXPECT_EQ(list_.SoundingRow(), 2);
    EXPECT_EQ(title(), " T2");
    EXPECT_LE(sound_.channel(state_.active()).position, 30 * 44100 * 4 / 1000) << "no gap";
    EXPECT_THAT(sound_.calls, Not(Contains(StartsWith("BASS_Free"))));
    advance(10300);
    EXPECT_EQ(list_.SelectedIndex, 3) << "and back onto the first channel";
    EXPECT_TRUE(sounds(state_.active()));
    EXPECT_EQ(state_.active(), state_.PrimaryChannel);
}

TEST_F(Seamless, markAndDigitsAreAtTheBeginningOfTheNextTrackAtOnce) {
    clock_.begin();
    play(3, {.seconds = 10.3});
    advance(10290);
    EXPECT_GT(playing_.percent, 90);
    EXPECT_EQ(playing_.time, "00:10");
    advance(30);
    ASSERT_EQ(list_.SoundingRow(), 2);
    EXPECT_EQ(playing_.percent, 0);
    EXPECT_EQ(playing_.time, "00:00");
    // A hand on the bar has the digits.
    clock_.moveDigits(false);
    playing_.time = "held";
    advance(10300);
    ASSERT_EQ(list_.SoundingRow(), 3);
    EXPECT_EQ(playing_.time, "held");
}

TEST_F(Seamless, theyAreSoAlsoForATrackThatTheUserGoesOnTo) {
    clock_.begin();
    play(3, {.seconds = 10});
    for (const bool fades : {false, true}) {
        state_.CrossfadeOn = fades;
        state_.TimeDisplayMode = fades ? 1 : 0;
        advance(7100);
        ASSERT_GT(playing_.percent, 60);
        rowPlayer_.PlayRow(3, 0);
        EXPECT_EQ(view_.last.percent, 0);
        EXPECT_EQ(view_.last.time, fades ? "00:10" : "00:00");
        EXPECT_EQ(view_.last.countsDown, fades);
    }
}

TEST_F(Seamless, aHandOnTheBarKeepsThemWhileAnotherTrackStarts) {
    clock_.begin();
    play(3, {.seconds = 10});
    advance(7100);
    clock_.moveDigits(false);
    const double held = playing_.percent;
    rowPlayer_.PlayRow(3, 0);
    EXPECT_EQ(playing_.percent, held);
}

TEST_F(Seamless, withoutTheSwitchTheMarkFollowsWithTheNextTick) {
    state_.comfort.endsExactly = false;
    clock_.begin();
    play(3, {.seconds = 10});
    advance(7100);
    const double before = playing_.percent;
    ASSERT_GT(before, 60);
    rowPlayer_.PlayRow(3, 0);
    EXPECT_EQ(playing_.percent, before);
    advance(1000);
    EXPECT_EQ(playing_.percent, 10);
}

TEST_F(Seamless, aTrackThatGoesOnAtAPlaceShowsItAtOnce) {
    clock_.begin();
    addRows(1, {.seconds = 100});
    list_.RefreshTime(1, 100, "01:40");
    rowPlayer_.waitAt({1, 25});
    rowPlayer_.button_play();
    EXPECT_EQ(view_.last.percent, 25);
    EXPECT_EQ(view_.last.time, "00:25");
}

TEST_F(Seamless, itHasVolumeAndBalanceBeforeItSounds) {
    play(2, {.seconds = 10});
    state_.comfort.keepsBalance = true;
    advance(7000);
    const sound::Handle next = state_.SecondaryChannel;
    ASSERT_TRUE(sound_.lives(next));
    EXPECT_FALSE(sounds(next));
    EXPECT_EQ(sound_.channel(next).volume, 80);
    EXPECT_EQ(sound_.channel(next).pan, -25);
    EXPECT_EQ(state_.CrossfadeLeg, 2) << "the first is still the current one";
}

TEST_F(Seamless, theEndOfTheListIsTheEnd) {
    play(1, {.seconds = 5.5});
    advance(8000);
    EXPECT_EQ(list_.SelectedIndex, 1);
    EXPECT_THAT(sound_.calls, Not(Contains(StartsWith("playBehind("))));
}

TEST_F(Seamless, aStopBehindTheTrackGivesTheNextOneUp) {
    play(2, {.seconds = 10});
    advance(8000);
    const sound::Handle next = state_.SecondaryChannel;
    ASSERT_TRUE(sound_.lives(next));
    state_.StopAfterCurrent = true;
    advance(2100);
    EXPECT_FALSE(sound_.lives(next));
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_EQ(list_.SelectedIndex, 1);
}

TEST_F(Seamless, whoSeeksBackWaitsLonger) {
    play(2, {.seconds = 20});
    advance(18000);
    const sound::Handle next = state_.SecondaryChannel;
    ASSERT_TRUE(sound_.lives(next));
    seek_.goTo(2);
    advance(2000);
    EXPECT_FALSE(sound_.lives(next));
    advance(14000);
    EXPECT_EQ(list_.SelectedIndex, 1);
    advance(3000);
    EXPECT_EQ(list_.SelectedIndex, 2);
}

TEST_F(Seamless, anotherRowInItsPlaceFollowsInstead) {
    play(3, {.seconds = 10});
    advance(7500);
    ASSERT_TRUE(sound_.lives(state_.SecondaryChannel));
    list_.Remove(2);
    list_.SelectedIndex = 1;
    sound_.calls.clear();
    advance(1500);
    EXPECT_THAT(sound_.calls, Contains(AllOf(StartsWith("openAhead"), HasSubstr("/3,"))));
    advance(1100);
    EXPECT_EQ(title(), " T3");
}

TEST_F(Seamless, nextBeforeTheEndStartsItAtItsBeginning) {
    play(3, {.seconds = 10});
    advance(8000);
    advance_.Next_track();
    EXPECT_EQ(title(), " T2");
    EXPECT_EQ(sound_.channel(state_.active()).position, 0);
    EXPECT_TRUE(sounds(state_.active()));
    advance(3000);
    EXPECT_EQ(title(), " T2") << "what had waited is gone";
}

TEST_F(Seamless, theTrackThatShufflePickedIsTheOneThatFollows) {
    state_.ShuffleOn = true;
    state_.comfort.alwaysPicksRow = true;
    play(9, {.seconds = 10});
    advance(7500);
    const std::string picked = offered();
    ASSERT_FALSE(picked.empty());
    advance(2520);
    EXPECT_EQ(title(), " T" + picked);
}

TEST_F(Seamless, oneThatDoesNotOpenIsLeftToTheAdvance) {
    addRows(1, {.seconds = 10});
    list_.AddItem("", host_.folder.write("broken", "no sound"), "Broken", "00:00", 0);
    list_.SelectedIndex = 1;
    rowPlayer_.PlayRow(1, 0);
    sound_.calls.clear();
    advance(9000);
    const auto offers = std::ranges::count_if(
        sound_.calls, [](const std::string& call) { return call.starts_with("openAhead"); });
    EXPECT_EQ(offers, 1) << "once, not with each tick";
    EXPECT_EQ(title(), " T1");
    advance(1100);
    EXPECT_EQ(title(), " Broken");
}

TEST_F(Seamless, nobodyWaitsForTheDiskOfTheNextTrack) {
    addRows(1, {.seconds = 10});
    addRows(1, {.seconds = 10, .stalls = true});
    rowPlayer_.PlayRow(1, 0);
    sound_.calls.clear();
    advance(9900);
    EXPECT_THAT(sound_.calls, Contains(StartsWith("openAhead(")));
    EXPECT_THAT(sound_.calls, Not(Contains(StartsWith("BASS_StreamCreateFile("))));
    const sound::Handle ahead = state_.SecondaryChannel;
    ASSERT_TRUE(sound_.lives(ahead));
    // At the end it still does not answer: it is started the usual way, and sounds once.
    advance(1000);
    EXPECT_THAT(sound_.calls, Contains(StartsWith("BASS_StreamCreateFile(")));
    EXPECT_FALSE(sound_.lives(ahead));
    EXPECT_EQ(title(), " T2");
    EXPECT_TRUE(sounds(state_.active()));
}

TEST_F(Seamless, withoutTheSwitchNothingIsPrepared) {
    state_.comfort.endsExactly = false;
    play(2, {.seconds = 10.7});
    advance(10900);
    EXPECT_THAT(sound_.calls, Not(Contains(StartsWith("playBehind("))));
    advance(200);
    EXPECT_EQ(title(), " T2");
}

TEST_F(Seamless, aModuleEndsBehindItsFirstPassAndFades) {
    state_.comfort.endsModules = true;
    play(2, {.kind = FakeKind::music, .seconds = 10});
    advance(9900);
    EXPECT_THAT(sound_.calls, Contains(StartsWith("BASS_ChannelSlideAttributes(1, -1, 0, -101, ")));
    advance(200);
    EXPECT_EQ(title(), " T2");
}

TEST_F(Seamless, aCrossfadeBeginsAsLongBeforeTheEndAsItTakes) {
    set("CFDT", "3");
    state_.comfort.crossesBeforeEnd = true;
    state_.comfort.fadesIn = true;
    state_.CrossfadeOn = true;
    play(2, {.seconds = 13});
    const sound::Handle first = state_.active();
    advance(9990);
    EXPECT_EQ(title(), " T1");
    advance(40);
    EXPECT_EQ(title(), " T2");
    EXPECT_TRUE(sounds(first));
    EXPECT_THAT(sound_.calls, Contains("crossfade(3, 1, 3000)"));
    EXPECT_THAT(sound_.calls, Not(Contains(StartsWith("BASS_ChannelSlideAttributes"))));
    advance(3100);
    EXPECT_FALSE(sound_.lives(first));
    EXPECT_TRUE(sounds(state_.active()));
}

TEST_F(Seamless, aFileThatFailsLeavesTheOtherAlone) {
    set("CFDT", "3");
    state_.comfort.crossesBeforeEnd = true;
    state_.comfort.keepsTitleOfOldTrack = true;
    state_.CrossfadeOn = true;
    addRows(1, {.seconds = 13});
    list_.AddItem("", host_.folder.write("broken", "no sound"), "Broken", "00:00", 0);
    addRows(1, {.seconds = 13});
    list_.SelectedIndex = 1;
    rowPlayer_.PlayRow(1, 0);
    const sound::Handle first = state_.active();
    advance(11500);
    EXPECT_EQ(title(), " T1");
    EXPECT_TRUE(sounds(first));
    EXPECT_EQ(state_.active(), first);
    EXPECT_EQ(list_.SelectedIndex, 2) << "tried once";
    advance(1600);
    EXPECT_EQ(title(), " T3");
}

TEST_F(Seamless, whatStillFadesIsNotCutOffForTheNext) {
    state_.CrossfadeOn = true; // of five seconds
    addRows(1, {.seconds = 60});
    addRows(2, {.seconds = 8});
    rowPlayer_.PlayRow(1, 0);
    const sound::Handle first = state_.active();
    advance(1000);
    rowPlayer_.PlayRow(2, 5);
    state_.CrossfadeOn = false;
    advance(4900);
    EXPECT_TRUE(sounds(first)) << "three seconds before the end of the second";
    advance(3200);
    EXPECT_FALSE(sound_.lives(first));
    EXPECT_EQ(title(), " T3");
    EXPECT_TRUE(sounds(state_.active()));
    EXPECT_THAT(sound_.calls, Contains(StartsWith("playBehind(")));
}

TEST_F(Seamless, oneThatWasFreedMeanwhileIsStartedAnew) {
    play(2, {.seconds = 10});
    advance(8000);
    ASSERT_TRUE(sound_.BASS_StreamFree(state_.SecondaryChannel));
    advance(2100);
    EXPECT_EQ(title(), " T2");
    EXPECT_TRUE(sounds(state_.active()));
}

TEST_F(Seamless, tracksOfOneDiscFollowWithoutACrossfade) {
    set("CFDT", "3");
    state_.comfort.crossesBeforeEnd = true;
    state_.CrossfadeOn = true;
    sound_.discTracks = {{0, {.kind = FakeKind::disc, .seconds = 10}},
                         {1, {.kind = FakeKind::disc, .seconds = 10}}};
    for (const char* name : {"Track01.cda", "Track02.cda"}) {
        list_.AddItem("", name, name, "00:00", 0);
    }
    state_.comfort.watchesCdTracks = true;
    rowPlayer_.PlayRow(1, 0);
    advance(7500);
    EXPECT_EQ(title(), " Track01.cda");
    EXPECT_THAT(sound_.calls, Contains(StartsWith("playBehind(")));
    advance(2600);
    EXPECT_EQ(title(), " Track02.cda");
    EXPECT_TRUE(sounds(state_.active()));
}

TEST_F(Seamless, aDiscsTrackSoundsLikeAnyOther) {
    state_.comfort.watchesCdTracks = true;
    sound_.discTracks = {{0, {.kind = FakeKind::disc, .seconds = 10}}};
    list_.AddItem("", "Track01.cda", "One", "00:00", 0);
    rowPlayer_.PlayRow(1, 0);
    EXPECT_EQ(sound_.channel(state_.active()).volume, 80);
    EXPECT_EQ(sound_.channel(state_.active()).pan, -25);
    EXPECT_TRUE(clock_.watchesTrack());
}

TEST_F(Seamless, fiveSecondsNearTheEndsGoToThem) {
    state_.comfort.clampsSkips = true;
    play(1, {.seconds = 20});
    advance(2000);
    transport_.five_seconds_bck();
    EXPECT_EQ(sound_.channel(state_.active()).position, 0);
    advance(18000);
    transport_.five_seconds_fwd();
    EXPECT_EQ(time_.GetPlayingPos(state_.active()), 19);
}

TEST_F(Seamless, whereTheOutputHasTheVolumeTheChannelKeepsItsLevel) {
    set("EV2", "1");
    state_.comfort.keepsOutputLevel = true;
    state_.CrossfadeOn = true;
    play(2, {.seconds = 20});
    advance_.Next_track();
    EXPECT_THAT(sound_.calls, Contains("BASS_SetVolume(80)"));
    EXPECT_EQ(sound_.channel(state_.active()).volume, 100);
}

} // namespace
} // namespace tovik::test
