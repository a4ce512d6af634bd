// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/StationPlayer.h"

#include "radio/StationRig.h"

namespace tovik::test {
namespace {

using sound::StreamStage;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::SizeIs;

class StationPlayerTest : public StationRig {
protected:
    /// How many streams were opened so far.
    [[nodiscard]] std::size_t opened() const { return sound_.opened.size(); }
};

TEST_F(StationPlayerTest, aStationTakesTheStateOver) {
    addRows(1, {.seconds = 60});
    rowPlayer_.playItem(0);
    transport_.pause();
    const sound::Handle file = state_.PrimaryChannel;
    state_.SecondaryChannel = file;
    state_.StreamRecording = true;
    const sound::Handle stream = start();
    EXPECT_FALSE(sound_.lives(file));
    EXPECT_FALSE(sound_.paused);
    EXPECT_EQ(state_.PrimaryChannel, stream);
    EXPECT_FALSE(state_.IsPaused);
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_TRUE(state_.RadioMode);
    EXPECT_TRUE(state_.RadioPlaying);
    EXPECT_FALSE(state_.StreamRecording);
    EXPECT_EQ(state_.CrossfadeLeg, 0);
    EXPECT_EQ(state_.ActiveChannel, player::ChannelSlot::primary);
    EXPECT_FALSE(clock_.watchesTrack());
    EXPECT_THAT(sound_.calls, Contains("BASS_StreamCreateURL(http://one.example/, 0, 4194304)"));
    EXPECT_THAT(view_.told, Contains("source"));
    EXPECT_TRUE(RadioLst_.isPlayed(1));
    EXPECT_FALSE(list_.isPlayed(1));
}

TEST_F(StationPlayerTest, itStartsWithFiltersVolumeAndBalanceOfThePlayer) {
    sound_.calls.clear();
    const sound::Handle stream = start();
    EXPECT_EQ(sound_.channel(stream).volume, 80);
    EXPECT_EQ(sound_.channel(stream).pan, -25);
    const auto at = [this](const std::string& call) {
        return std::ranges::find(sound_.calls, call) - sound_.calls.begin();
    };
    EXPECT_LT(at("Set_EQ"), at("BASS_StreamPlay(" + std::to_string(stream) + ", 0, 0)"));
    EXPECT_LT(at("BASS_StreamPlay(" + std::to_string(stream) + ", 0, 0)"),
              std::ssize(sound_.calls));
    volume_.change_volume(33, -1);
    EXPECT_EQ(sound_.channel(stream).volume, 33);
    balance_.Balbar_Click(8);
    EXPECT_EQ(sound_.channel(stream).pan, 100);
}

TEST_F(StationPlayerTest, theDisplaySaysHowItStands) {
    start();
    EXPECT_EQ(view_.last.stationText, "One\nconnecting");
    EXPECT_EQ(view_.last.scrollerText, " connecting");
    sound_.answer(stream(), {"ICY 200 OK", "icy-br:128", "icy-name:Station One"});
    station().report.percent = 40;
    look();
    EXPECT_EQ(playing_.stationText, "Station One\nbuffering 40 %");
    sound_.sounds(stream());
    look();
    EXPECT_EQ(playing_.stationText, "Station One\nOne");
    EXPECT_EQ(playing_.scrollerText, " One");
    heard("StreamTitle='Ann - Song';");
    EXPECT_EQ(playing_.stationText, "Station One\nAnn - Song");
    EXPECT_EQ(playing_.scrollerText, " Ann - Song");
    EXPECT_EQ(playing_.caption, " Ann - Song");
    EXPECT_EQ(playing_.miniCaption, " Ann - Song");
    EXPECT_EQ(state_.CurrentTitle, "Ann - Song");
}

TEST_F(StationPlayerTest, bytesOfATitleAreShownAsText) {
    start();
    sounds();
    heard("StreamTitle='\xC4\x01rger';");
    EXPECT_EQ(playing_.caption, " \xC3\x84rger");
}

TEST_F(StationPlayerTest, metadataWithoutAnEndIsLoggedOnceAndTheTitleStays) {
    start();
    sounds();
    heard("StreamTitle='Song';");
    heard("StreamTitle='no end");
    look();
    look();
    EXPECT_EQ(playing_.caption, " Song");
    EXPECT_THAT(logged(), ElementsAre(HasSubstr(",5,AddStation,DoMeta")));
    heard("StreamTitle='another without end");
    EXPECT_THAT(logged(), SizeIs(1)) << "once a station";
}

TEST_F(StationPlayerTest, aStationWithoutATitleIsShownByItsName) {
    start();
    sounds();
    heard("StreamTitle='';");
    EXPECT_EQ(playing_.caption, " Name");
    EXPECT_EQ(playing_.scrollerText, " Name");
    heard("StreamTitle='Song';");
    EXPECT_EQ(playing_.caption, " Song");
    heard("StreamTitle='';");
    EXPECT_EQ(playing_.caption, " Name") << "between two songs";
    EXPECT_EQ(playing_.stationText, "Name");
}

TEST_F(StationPlayerTest, referencesInATitleAreShownAsCharacters) {
    start();
    sounds({"ICY 200 OK", "icy-name:R &amp; B"});
    heard("StreamTitle='A &amp; B - &#1046;';");
    EXPECT_EQ(playing_.caption, " A & B - \xD0\x96");
    EXPECT_EQ(playing_.stationText, "R & B\nA & B - \xD0\x96");
    heard("StreamTitle='" + std::string(4060, 'x') + "';");
    EXPECT_EQ(playing_.caption, " " + std::string(4060, 'x'));
}

TEST_F(StationPlayerTest, blanksRoundAnAddressDoNotCount) {
    start(" http://one.example/ ");
    EXPECT_EQ(station().url, "http://one.example/");
}

TEST_F(StationPlayerTest, theCaptionTellsWhatOtherPanelsDoNotShow) {
    start();
    EXPECT_EQ(playing_.caption, " One - connecting");
    over(StreamStage::failed, sound::StreamTrouble::badAddress);
    EXPECT_EQ(playing_.caption, " One - no such station");
}

TEST_F(StationPlayerTest, popupAndMessengerHearOfEachTitleThatSounds) {
    set("OSD", "1");
    start();
    EXPECT_THAT(events_.told, testing::Not(Contains("track")));
    sounds();
    EXPECT_THAT(events_.told, IsSupersetOf({"popup One", "track"}));
    events_.told.clear();
    heard("StreamTitle='Song';");
    look();
    EXPECT_THAT(events_.told, ElementsAre("popup Song", "track"));
    EXPECT_EQ(events_.report.listTitle, "Song");
    EXPECT_EQ(events_.report.artist, "");
}

TEST_F(StationPlayerTest, theFormatIsTheStreamsOnceItIsKnown) {
    start();
    EXPECT_EQ(state_.TrackInfoText, "");
    sound_.answer(stream(), {"ICY 200 OK"});
    look();
    EXPECT_EQ(state_.TrackInfoText, "");
    station().report.kbps = 128;
    station().report.rate = 44100;
    sound_.sounds(stream());
    look();
    EXPECT_EQ(state_.TrackInfoText, "128 kbps  44 KHZ");
    EXPECT_EQ(state_.TrackInfoMode, "Stereo");
    EXPECT_EQ(playing_.infoText, "128 kbps  44 KHZ");
    station().report.channels = 1;
    look();
    EXPECT_EQ(state_.TrackInfoMode, "Mono");
}

TEST_F(StationPlayerTest, theClockCountsUpAndDoesNotEnd) {
    state_.TimeDisplayMode = 1;
    state_.RepeatOn = true;
    addRows(2, {.seconds = 60});
    start();
    sounds();
    sound_.setSeconds(stream(), 40000);
    clock_.Timer1();
    clock_.Timer3();
    EXPECT_EQ(playing_.time, "06:40");
    EXPECT_FALSE(playing_.countsDown);
    EXPECT_EQ(playing_.percent, 0);
    EXPECT_TRUE(state_.RadioMode) << "nothing else was started";
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(StationPlayerTest, silenceAndTheEndOfAStationLeadNowhere) {
    addRows(2, {.seconds = 60});
    silenceSkip_.button_sld();
    start();
    sounds();
    sound_.channel(stream()).level = 0;
    advance(5000);
    EXPECT_EQ(state_.SilenceTicks, 0);
    over(StreamStage::ended);
    advance(120'000); // it is opened again and again
    EXPECT_GT(opened(), 1U);
    EXPECT_TRUE(state_.RadioMode);
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_FALSE(list_.isPlayed(1));
}

TEST_F(StationPlayerTest, aStationHasNoOtherPlaceToGoTo) {
    start();
    sounds();
    sound_.setSeconds(stream(), 100);
    sound_.calls.clear();
    transport_.five_seconds_bck();
    transport_.five_seconds_fwd();
    EXPECT_FALSE(seek_.take());
    EXPECT_FALSE(seek_.drag());
    seek_.goTo(5);
    EXPECT_EQ(seek_.length(), 0);
    EXPECT_THAT(sound_.calls, IsEmpty());
}

TEST_F(StationPlayerTest, stopEndsItAndNothingComesBack) {
    start();
    sounds();
    const sound::Handle stream = state_.PrimaryChannel;
    transport_.button_stop();
    EXPECT_FALSE(sound_.lives(stream));
    EXPECT_FALSE(state_.IsPlaying);
    advance(120000);
    EXPECT_EQ(opened(), 1U);
}

TEST_F(StationPlayerTest, anotherTrackEndsIt) {
    addRows(1, {.seconds = 60});
    start();
    sounds();
    over(StreamStage::ended);
    rowPlayer_.playItem(0);
    EXPECT_FALSE(state_.RadioMode);
    EXPECT_FALSE(RadioLst_.isPlayed(1));
    EXPECT_TRUE(list_.isPlayed(1));
    advance(60000);
    EXPECT_EQ(opened(), 1U);
}

TEST_F(StationPlayerTest, aCrossfadeTakesAStationOut) {
    addRows(1, {.seconds = 60});
    state_.CrossfadeOn = true;
    const sound::Handle stream = start();
    sounds();
    list_.SelectedIndex = 1;
    rowPlayer_.Stdss_Play("1");
    EXPECT_FALSE(state_.RadioMode);
    EXPECT_EQ(state_.ActiveChannel, player::ChannelSlot::secondary);
    advance(6000);
    EXPECT_FALSE(sound_.lives(stream)) << "it faded and was freed";
    EXPECT_EQ(opened(), 1U);
}

TEST_F(StationPlayerTest, anotherStationEndsIt) {
    start();
    sounds();
    const sound::Handle first = stream();
    start("http://two.example/", "Two");
    EXPECT_FALSE(sound_.lives(first));
    EXPECT_TRUE(RadioLst_.isPlayed(2));
    EXPECT_EQ(playing_.stationText, "Two\nconnecting");
}

TEST_F(StationPlayerTest, aFileOfTheWebEndsAndTheListGoesOn) {
    list_.AddItem("", "http://one.example/a.mp3", "Web", "00:00", 0);
    addRows(1, {.seconds = 60});
    rowPlayer_.playItem(0);
    EXPECT_TRUE(state_.RadioMode);
    EXPECT_TRUE(list_.isPlayed(1));
    EXPECT_EQ(playing_.stationText, "Web\nconnecting");
    station().report.live = false;
    sounds({"HTTP/1.1 200 OK", "Content-Length: 5"});
    over(StreamStage::ended);
    EXPECT_FALSE(state_.RadioMode);
    EXPECT_TRUE(list_.isPlayed(2));
    EXPECT_EQ(opened(), 1U);
}

TEST_F(StationPlayerTest, aRowWithAnAddressStartsLikeAStationOnEveryWay) {
    list_.AddItem("", "HTTPS://one.example/", "Web", "00:00", 0);
    for (const bool crossfade : {false, true}) {
        state_.CrossfadeOn = crossfade;
        state_.TracksStarted = 1;
        list_.SelectedIndex = 1;
        rowPlayer_.Stdss_Play("1");
        EXPECT_TRUE(state_.RadioMode);
        rowPlayer_.PlayRow(1, 5);
        EXPECT_EQ(playing_.scrollerText, " connecting");
        mirror_.ListIndex(0);
        rowPlayer_.List1_DblClick();
    }
    EXPECT_EQ(opened(), 6U);
    EXPECT_EQ(list_.text(1, playlist::RowText::TimeText), "00:00");
    over(StreamStage::ended);
    EXPECT_EQ(playing_.scrollerText, " reconnecting") << "a live one comes back";
}

TEST_F(StationPlayerTest, aRowThatIsNotThereStartsNothing) {
    player_.playRow(0);
    player_.playRow(1);
    EXPECT_EQ(opened(), 0U);
    EXPECT_FALSE(state_.RadioMode);
}

} // namespace
} // namespace tovik::test
