// SPDX-License-Identifier: GPL-3.0-or-later
// What the sound library is told when a track starts, for every kind of file.
#include "player/PlayerRig.h"
#include "support/host/SettingPlace.h"

namespace tovik::test {
namespace {

using player::ChannelSlot;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

using Calls = std::vector<std::string>;

class Burnbaby : public PlayerRig {
protected:
    /// The device is reset, and the two channels before are freed.
    static Calls reset(sound::Handle primary, sound::Handle secondary) {
        const auto free = [](const char* kind, sound::Handle handle) {
            return std::string("BASS_") + kind + "Free(" + std::to_string(handle) + ")";
        };
        return {"BASS_Free()",          "BASS_Init(1, 44100, 0, 77, 0)", free("Stream", primary),
                free("Music", primary), free("Stream", secondary),       free("Music", secondary)};
    }

    static std::string offer(const char* decoder, const std::string& path) {
        return std::string("BASS_") + decoder + "(0, " + path + ", 0, 0, 128)";
    }

    static std::string offerMusic(const std::string& path) {
        return "BASS_MusicLoad(0, " + path + ", 0, 0, 516, 128)";
    }

    static Calls joined(Calls first, const Calls& second) {
        first.insert(first.end(), second.begin(), second.end());
        return first;
    }

    /// From the question for the kind to the syncs, for all but WMA.
    static Calls start(const std::string& handle) {
        return {"BASS_WMA_GetIWMReader(" + handle + ")",
                "Set_EQ",
                "BASS_ChannelSetAttributes(" + handle + ", -1, -1, -25)",
                "BASS_ChannelSetAttributes(" + handle + ", -1, 80, 0)",
                "BASS_MusicPlay(" + handle + ")",
                "BASS_ChannelSetAttributes(" + handle + ", -1, 80, 0)",
                "BASS_StreamPlay(" + handle + ", 0, 0)",
                "BASS_ChannelSetAttributes(" + handle + ", -1, 80, 0)",
                "BASS_ChannelSetSync(" + handle + ", 2147484648, 0, 0)"};
    }

    void play(const std::string& path) { burn(path); }
};

TEST_F(Burnbaby, aStream) {
    const std::string path = track("a.mp3", {.seconds = 10});
    state_.SecondaryChannel = 40;
    state_.SilenceTicks = 7;
    state_.IsPaused = true;
    state_.IsWmaStream = true;
    play(path);
    EXPECT_THAT(sound_.calls,
                ElementsAreArray(
                    joined(joined(reset(0, 40), {offer("StreamCreateFile", path)}), start("1"))));
    EXPECT_EQ(state_.PrimaryChannel, 1U);
    EXPECT_EQ(state_.CrossfadeLeg, 2);
    EXPECT_EQ(state_.SilenceTicks, 0);
    EXPECT_EQ(state_.TracksStarted, 1);
    EXPECT_EQ(state_.ActiveChannel, ChannelSlot::primary);
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_FALSE(state_.IsPaused);
    EXPECT_FALSE(state_.IsWmaStream);
    EXPECT_TRUE(clock_.watchesTrack());
    EXPECT_EQ(sound_.BASS_ChannelIsActive(1), sound::Activity::playing);
}

TEST_F(Burnbaby, theVolumeOfAStartCentresTheBalance) {
    play(track("a.mp3", {.seconds = 10}));
    EXPECT_EQ(sound_.channel(1).volume, 80);
    EXPECT_EQ(sound_.channel(1).pan, 0);
}

TEST_F(Burnbaby, aModule) {
    const std::string path = track("a.xm", {.kind = FakeKind::music, .seconds = 10});
    play(path);
    EXPECT_THAT(
        sound_.calls,
        ElementsAreArray(joined(
            joined(reset(0, 0), {offer("StreamCreateFile", path), offerMusic(path)}), start("1"))));
    EXPECT_EQ(sound_.BASS_ChannelIsActive(1), sound::Activity::playing);
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_TRUE(clock_.watchesTrack());
}

TEST_F(Burnbaby, aWmaIsOpenedTwiceAndSetOnce) {
    const std::string path = track("a.wma", {.kind = FakeKind::wma, .seconds = 10});
    play(path);
    const Calls wma = {"BASS_WMA_GetIWMReader(1)",
                       offer("WMA_StreamCreateFile", path),
                       "BASS_StreamFree(2)",
                       "Set_EQ",
                       "BASS_ChannelSetAttributes(1, -1, -1, -25)",
                       "BASS_ChannelSetAttributes(1, -1, 80, 0)",
                       "BASS_StreamPlay(1, 0, 0)",
                       "BASS_ChannelSetSync(1, 2147484648, 0, 0)"};
    EXPECT_THAT(sound_.calls,
                ElementsAreArray(
                    joined(joined(reset(0, 0), {offer("StreamCreateFile", path), offerMusic(path),
                                                offer("WMA_StreamCreateFile", path)}),
                           wma)));
    EXPECT_EQ(state_.PrimaryChannel, 1U);
    EXPECT_TRUE(state_.IsWmaStream);
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_TRUE(clock_.watchesTrack());
    EXPECT_THAT(events_.told, ElementsAre("visualisation", "visualisation", "track"));
    EXPECT_EQ(state_.TrackInfoMode, "Stereo");
}

TEST_F(Burnbaby, aFlac) {
    const std::string path = track("a.flac", {.kind = FakeKind::flac, .seconds = 10});
    play(path);
    EXPECT_THAT(sound_.calls,
                ElementsAreArray(
                    joined(joined(reset(0, 0), {offer("StreamCreateFile", path), offerMusic(path),
                                                offer("WMA_StreamCreateFile", path),
                                                offer("FLAC_StreamCreateFile", path)}),
                           start("1"))));
    EXPECT_TRUE(state_.IsPlaying);
}

TEST_F(Burnbaby, theNamePlaysNoPart) {
    play(track("song.cda", {.kind = FakeKind::flac, .seconds = 10}));
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_EQ(state_.TrackInfoMode, "Stereo");
}

TEST_F(Burnbaby, aFileThatNobodyTakesIsLeftWithoutAWord) {
    const std::string path = host_.folder.write("a.mp3", "text");
    for (const bool playing : {false, true}) {
        SCOPED_TRACE(playing);
        state_.IsPlaying = playing;
        sound_.calls.clear();
        view_.told.clear();
        play(path);
        EXPECT_THAT(
            sound_.calls,
            ElementsAreArray(joined(reset(0, 0), {offer("StreamCreateFile", path), offerMusic(path),
                                                  offer("WMA_StreamCreateFile", path),
                                                  offer("FLAC_StreamCreateFile", path)})));
        EXPECT_EQ(state_.IsPlaying, playing);
        EXPECT_THAT(view_.told, ElementsAre("source", "time", "position", "facts", "titles"));
    }
    EXPECT_EQ(state_.TracksStarted, 2);
    EXPECT_EQ(state_.PrimaryChannel, sound::kNoHandle);
    EXPECT_FALSE(clock_.watchesTrack());
    EXPECT_THAT(events_.told, IsEmpty());
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(Burnbaby, anUnplayableFileSilencesTheTrackBefore) {
    play(track("a.mp3", {.seconds = 10}));
    play(host_.folder.write("b.mp3", "text"));
    EXPECT_FALSE(sound_.lives(1));
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_EQ(state_.TracksStarted, 2);
    EXPECT_TRUE(clock_.watchesTrack());
}

TEST_F(Burnbaby, aFileThatDoesNotOpenHasTheClockAtTheStartAndItsRowsTitle) {
    const TagTexts tag{.title = "T", .artist = "A"};
    play(track("a.mp3", {.seconds = 10}, 1000, &tag));
    EXPECT_EQ(view_.last.fields[0], "A");
    for (const char* const name : {"b.mp3", "D:\\Track01.cda"}) {
        SCOPED_TRACE(name);
        playing_.time = "00:03";
        playing_.percent = 30;
        fetchRow(name, "Broken");
        play(name);
        EXPECT_EQ(view_.last.time, "00:00");
        EXPECT_EQ(view_.last.percent, 0);
        EXPECT_EQ(view_.last.caption, " Broken");
        EXPECT_EQ(view_.last.scrollerText, " Broken");
        EXPECT_EQ(view_.last.miniCaption, " Broken");
        EXPECT_EQ(state_.CurrentTitle, "Broken");
        EXPECT_THAT(view_.last.fields, testing::Each("N/A"));
    }
}

TEST_F(Burnbaby, anEmptyPath) {
    play("");
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_EQ(state_.TracksStarted, 1);
    EXPECT_EQ(sound_.calls.size(), 10U);
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(Burnbaby, theNextTrackFreesTheOneBefore) {
    play(track("a.xm", {.kind = FakeKind::music, .seconds = 10}));
    sound_.calls.clear();
    const std::string path = track("b.mp3", {.seconds = 10});
    play(path);
    EXPECT_THAT(sound_.calls,
                ElementsAreArray(
                    joined(joined(reset(1, 0), {offer("StreamCreateFile", path)}), start("3"))));
}

TEST_F(Burnbaby, aTrackOfACd) {
    const std::string path = "D:\\Track07.CDA";
    sound_.drives.resize(1);
    sound_.discTracks[6] = {.kind = FakeKind::disc, .seconds = 100};
    state_.IsPaused = true;
    state_.IsWmaStream = true;
    state_.BuiltinVisOn = true;
    play(path);
    const Calls disc = {"BASS_ChannelStop(0)", "BASS_CD_StreamCreate(0, 6, 327680)",
                        "BASS_StreamPlay(1, 1, 0)", "BASS_ChannelSetSync(1, 2147484648, 0, 0)",
                        "BASS_ChannelSetSync(0, 2147483650, 0, 0)"};
    EXPECT_THAT(sound_.calls,
                ElementsAreArray(
                    joined(joined(reset(0, 0), {offer("StreamCreateFile", path), offerMusic(path),
                                                offer("WMA_StreamCreateFile", path),
                                                offer("FLAC_StreamCreateFile", path)}),
                           disc)));
    EXPECT_EQ(state_.PrimaryChannel, 1U);
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_FALSE(state_.IsPaused);
    EXPECT_FALSE(state_.IsWmaStream);
    EXPECT_EQ(state_.ActiveChannel, ChannelSlot::primary);
    EXPECT_FALSE(clock_.watchesTrack());
    EXPECT_THAT(view_.told, ElementsAre("source", "facts"));
    EXPECT_THAT(view_.last.fields, ElementsAre("N/A", "N/A", "N/A", "N/A", "N/A"));
    EXPECT_THAT(events_.told, ElementsAre("visualisation"));
}

TEST_F(Burnbaby, aTrackThatTheCdDoesNotHaveIsLeftWithoutAWord) {
    play("D:\\Track01.cda");
    EXPECT_EQ(sound_.calls.back(), "BASS_StreamPlay(0, 1, 0)");
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_THAT(view_.told, ElementsAre("source", "time", "position", "facts", "titles"));
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(Burnbaby, theLetterOfACdNameSaysWhichDrive) {
    sound_.drives.resize(3);
    sound_.drives[1].letter = 7;
    sound_.drives[2].letter = 4;
    play("h:\\Track02.cda");
    EXPECT_THAT(sound_.calls, testing::Contains("BASS_CD_StreamCreate(1, 1, 327680)"));
    sound_.calls.clear();
    play("E:\\Track02.cda");
    EXPECT_THAT(sound_.calls, testing::Contains("BASS_CD_StreamCreate(2, 1, 327680)"));
    sound_.calls.clear();
    play("G:\\Track02.cda"); // there is no such drive
    EXPECT_THAT(sound_.calls,
                testing::Not(testing::Contains(testing::HasSubstr("BASS_CD_StreamCreate"))));
    play("/mnt/Track02.cda");
    EXPECT_THAT(sound_.calls, testing::Contains("BASS_CD_StreamCreate(0, 1, 327680)"));
}

TEST_F(Burnbaby, aCdNameWithoutANumberGoesToTheGuard) {
    play("D:\\Tracks.cda");
    EXPECT_THAT(logged(), ElementsAre("Type mismatch,13,Player,BurnBaby"));
}

TEST_F(Burnbaby, theVolumeGoesToTheWholeOutputOnDemand) {
    set("EV2", "2");
    play(track("a.mp3", {.seconds = 10}));
    EXPECT_EQ(state_.GlobalVolumeMode, 2);
    EXPECT_EQ(std::count(sound_.calls.begin(), sound_.calls.end(), "BASS_SetVolume(80)"), 3);
    EXPECT_EQ(sound_.masterVolume, 80);
    EXPECT_EQ(sound_.channel(1).volume, 100);
    EXPECT_EQ(sound_.channel(1).pan, -25);
}

TEST_F(Burnbaby, aSettingThatIsNoNumberGoesToTheGuard) {
    set("EV2", "loud");
    play(track("a.mp3", {.seconds = 10}));
    EXPECT_THAT(logged(), ElementsAre("Type mismatch" + settingPlace(host_.folder, "EV2", "loud") +
                                      ",13,Player,BurnBaby"));
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text,
              "Type mismatch" + settingPlace(host_.folder, "EV2", "loud"));
    EXPECT_EQ(host_.dialogs.boxes[0].title, " in Function  function Burnbaby");
    EXPECT_EQ(sound_.calls.back(), "BASS_ChannelSetAttributes(1, -1, -1, -25)");
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_FALSE(clock_.watchesTrack());
    EXPECT_EQ(state_.TracksStarted, 1);
}

TEST_F(Burnbaby, aMissingSettingGoesToTheGuard) {
    takeOut("EV2");
    play(track("a.mp3", {.seconds = 10}));
    EXPECT_THAT(logged(), ElementsAre("Invalid use of Null" + settingPlace(host_.folder, "EV2") +
                                      ",94,Player,BurnBaby"));
}

} // namespace
} // namespace tovik::test
