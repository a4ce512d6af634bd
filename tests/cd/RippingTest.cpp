// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that rip.
#include "cd/RipRig.h"

#include "tags/cMP3ID3v1.h"
#include "tags/cMP3ID3v2.h"
#include "tags/ShownField.h"

#include <gtest/gtest.h>

namespace tovik::cd {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class RippingTest : public test::RipRig {
protected:
    /// The files that encoders were told to write.
    [[nodiscard]] std::vector<std::string> outputs() const {
        std::vector<std::string> paths;
        for (const auto& encoder : sound_.encoders) {
            paths.push_back(encoder.command.output);
        }
        return paths;
    }

    /// Encoders leave some bytes, so that there is something to tag.
    void leaveFiles() {
        sound_.onEncoder = [this](const auto& encoder) {
            std::ofstream(encoder.command.output) << std::string(2000, 'm');
        };
    }
};

} // namespace

TEST_F(RippingTest, AllTracksBecomeFilesOfTheAlbum) {
    leaveFiles();
    ripping_.Rip_All();
    EXPECT_THAT(outputs(),
                ElementsAre(album("Song 1.mp3"), album("Song 2.mp3"), album("Song 3.mp3")));
    const std::vector<std::string> first(sound_.calls.begin(), sound_.calls.begin() + 4);
    EXPECT_THAT(first,
                ElementsAre("rip runs", "Init_CD_Ripper", "other disc forgotten", "Stop_play"));
    const std::vector<std::string> last(sound_.calls.end() - 3, sound_.calls.end());
    EXPECT_THAT(last, ElementsAre("rip over", "BASS_Init(1, 44100, 0, 77, 0)", "disc unloaded"));
    EXPECT_TRUE(sound_.initialized);
    EXPECT_FALSE(state_.RipRunning);
    EXPECT_THAT(told(), IsEmpty());
    EXPECT_THAT(logged(), IsEmpty());
    EXPECT_TRUE(statuses_.front().running);
    EXPECT_EQ(statuses_.front().tracks, 3);
    EXPECT_FALSE(statuses_.back().running);
}

TEST_F(RippingTest, OggHasNoTagsOfOurs) {
    set("DOF", "OGG Vorbis CBR");
    leaveFiles();
    ripping_.Rip_All();
    EXPECT_EQ(outputs().at(1), album("Song 2.ogg"));
    EXPECT_EQ(host_.folder.read("Music/Artist-Album/Song 2.ogg").size(), 2000U);
    EXPECT_NE(sound_.calls.back(), "disc unloaded");
    EXPECT_THAT(callsOf("BASS_Encode_Start").at(0),
                HasSubstr("oggenc.exe --managed -b 130 -  -o "));
}

TEST_F(RippingTest, WavAndWmaNeedNoProgram) {
    host_.programs.present.clear();
    set("DOF", "wav");
    ripping_.Rip_All();
    for (const char* name : {"TRACK1.WAV", "TRACK2.WAV", "TRACK3.WAV"}) {
        EXPECT_EQ(std::filesystem::file_size(album(name)), 44U + kTrackBytes);
    }
    set("DOF", "WMA");
    host_.dialogs.answers = {host::MessageAnswer::Yes};
    ripping_.Rip_All();
    EXPECT_THAT(outputs(),
                ElementsAre(album("Song 1.WMA"), album("Song 2.WMA"), album("Song 3.WMA")));
}

TEST_F(RippingTest, AnAlbumWithoutANameGetsOneWithTheTime) {
    form_.Text1 = {};
    form_.Text2 = {};
    ripping_.Rip_All();
    const std::string folder =
        std::filesystem::path(outputs().at(0)).parent_path().filename().string();
    EXPECT_THAT(folder,
                testing::MatchesRegex("Label 4 \\([0-9]+-[0-9]+-[0-9]+ [0-9]+-[0-9]+-[0-9]+\\)"));
}

TEST_F(RippingTest, NamesNeverLeaveTheFolder) {
    form_.Text1[0] = "../../x";
    form_.Text2[0] = "";
    form_.List1 = {"..", "/etc/x", "a\"b"};
    ripping_.Rip_All();
    const std::string folder = music() + "/-..-..-x/";
    EXPECT_THAT(outputs(),
                ElementsAre(folder + ".._.mp3", folder + "-etc-x.mp3", folder + "a\"b.mp3"));
    EXPECT_EQ(sound_.encoders[2].command.arguments.back(), folder + "a\"b.mp3");
}

TEST_F(RippingTest, AsksBeforeAFolderThatIsThere) {
    std::filesystem::create_directories(music() + "/Artist-Album");
    ripping_.Rip_All();
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    const host::MessageBox& box = host_.dialogs.boxes[0];
    EXPECT_EQ(box.text, music() + "/Artist-Album is there");
    EXPECT_EQ(box.title, "Overwrite");
    EXPECT_EQ(box.icon, host::MessageIcon::Question);
    EXPECT_EQ(box.buttons, host::MessageButtons::YesNo);
    EXPECT_EQ(box.defaultAnswer, host::MessageAnswer::No);
    EXPECT_TRUE(sound_.encoders.empty());
    EXPECT_EQ(sound_.calls.back(), "disc shown");
    EXPECT_EQ(form_.Text1[0], "Album"); // what was entered stays
    EXPECT_TRUE(callsOf("Stop_play").empty());
    EXPECT_FALSE(state_.RipRunning);

    host_.dialogs.answers = {host::MessageAnswer::Yes};
    ripping_.Rip_All();
    EXPECT_EQ(sound_.encoders.size(), 3U);
}

TEST_F(RippingTest, TheDialogThatComesBackMayRipAgain) {
    std::filesystem::create_directories(music() + "/Artist-Album");
    ripping_.hooks.showDisc = [this] {
        form_.Text1[0] = "Other";
        ripping_.Rip_All();
    };
    ripping_.Rip_All();
    EXPECT_EQ(sound_.encoders.size(), 3U);
    EXPECT_EQ(outputs().at(0), music() + "/Artist-Other/Song 1.mp3");
}

TEST_F(RippingTest, OneTrackAloneIsNamedOtherwise) {
    tracks_.SelectIndex(2);
    ripping_.mnuRipSel();
    EXPECT_THAT(outputs(), ElementsAre(album("Song 2.MP3")));
    EXPECT_TRUE(callsOf("Init_CD_Ripper").empty());
    EXPECT_TRUE(callsOf("disc unloaded").empty());
    form_.List1.clear();
    set("DOF", "OGG Vorbis VBR");
    host_.dialogs.answers = {host::MessageAnswer::Yes};
    ripping_.mnuRipSel();
    EXPECT_EQ(outputs().back(), album("Track 2.OGG"));
    set("DOF", "WAV");
    host_.dialogs.answers = {host::MessageAnswer::Yes};
    ripping_.mnuRipSel();
    EXPECT_TRUE(std::filesystem::exists(album("TRACK2.WAV")));
    EXPECT_FALSE(std::filesystem::exists(album("TRACK1.WAV")));
}

TEST_F(RippingTest, NothingIsRippedWithoutATrack) {
    ripping_.mnuRipSel();
    tracks_.Clear();
    ripping_.Rip_All();
    EXPECT_TRUE(sound_.calls.empty());
    EXPECT_FALSE(std::filesystem::exists(music()));
}

TEST_F(RippingTest, NothingIsRippedOfADiscThatWent) {
    ripping_.hooks.Init_CD_Ripper = [this] { tracks_.Clear(); };
    ripping_.Rip_All();
    EXPECT_THAT(sound_.calls, ElementsAre("rip runs", "rip over"));
    EXPECT_FALSE(std::filesystem::exists(music()));
}

TEST_F(RippingTest, OnlyOneRipRuns) {
    pump_.inStep = [this] {
        ripping_.Rip_All();
        ripping_.mnuRipSel();
        ripping_.mnuRipAll();
        return true;
    };
    ripping_.Rip_All();
    EXPECT_EQ(sound_.encoders.size(), 3U);
    EXPECT_TRUE(callsOf("disc shown").empty());
}

TEST_F(RippingTest, TheMenuOpensTheDialog) {
    ripping_.mnuRipAll();
    EXPECT_THAT(sound_.calls, ElementsAre("disc shown"));
}

TEST_F(RippingTest, CancelAsksFirst) {
    ripping_.cancelrip();
    EXPECT_FALSE(disc_.CancelRip);
    EXPECT_EQ(host_.dialogs.boxes[0].text, "Cancel?");
    EXPECT_EQ(host_.dialogs.boxes[0].title, "Cancel rip");
    EXPECT_EQ(host_.dialogs.boxes[0].defaultAnswer, host::MessageAnswer::No);
    host_.dialogs.answers = {host::MessageAnswer::Yes};
    ripping_.cancelrip();
    EXPECT_TRUE(disc_.CancelRip);
}

TEST_F(RippingTest, TracksBehindACancelBecomeFilesOfOneBlock) {
    for (auto& [number, track] : sound_.discTracks) {
        track.seconds = 100;
    }
    int steps = 0;
    pump_.inStep = [&] {
        disc_.CancelRip = disc_.CancelRip || ++steps == 4;
        return true;
    };
    ripping_.Rip_All();
    ASSERT_EQ(sound_.encoders.size(), 3U);
    EXPECT_GT(sound_.encoders[0].bytes, 262144U);
    EXPECT_EQ(sound_.encoders[1].bytes, 262144U);
    EXPECT_EQ(sound_.encoders[2].bytes, 262144U);
    // The next job begins anew.
    pump_.inStep = nullptr;
    host_.dialogs.answers = {host::MessageAnswer::Yes};
    ripping_.Rip_All();
    EXPECT_EQ(sound_.encoders.back().bytes, 100U * kTrackBytes);
}

TEST_F(RippingTest, TooFewRatesAreLogged) {
    set("DOF", "MP3 VBR");
    set("DOB", "1411,128");
    ripping_.Rip_All();
    tracks_.SelectIndex(1);
    host_.dialogs.answers = {host::MessageAnswer::Yes};
    ripping_.mnuRipSel();
    EXPECT_THAT(logged(), ElementsAre(HasSubstr(",9,TSR,RipAll"), HasSubstr(",9,TSR,RipSel")));
    EXPECT_TRUE(sound_.encoders.empty());
    EXPECT_FALSE(state_.RipRunning);
    set("DOF", "WMA");
    host_.dialogs.answers = {host::MessageAnswer::Yes};
    ripping_.mnuRipSel();
    EXPECT_THAT(logged().back(), HasSubstr(",9,TSR,RipSel"));
}

TEST_F(RippingTest, AFolderThatCannotBeMadeIsTold) {
    host_.folder.write("Music", "a file");
    ripping_.Rip_All();
    EXPECT_THAT(told(), ElementsAre(HasSubstr(music() + "/Artist-Album")));
    EXPECT_THAT(logged(), ElementsAre(HasSubstr("TSR,RipAll")));
}

TEST_F(RippingTest, AProgramThatIsMissingEndsTheJob) {
    host_.programs.present.clear();
    ripping_.Rip_All();
    EXPECT_EQ(told().size(), 1U);
    EXPECT_EQ(converted().size(), 1U);
    EXPECT_FALSE(state_.RipRunning);
}

TEST_F(RippingTest, AnEncoderThatDiesEndsItsTrackAlone) {
    sound_.onEncoder = [this](auto& encoder) {
        if (sound_.encoders.size() == 2 && encoder.bytes > 0) {
            encoder.report = {.stage = sound::EncodeStage::failed};
        }
    };
    ripping_.Rip_All();
    EXPECT_EQ(sound_.encoders.size(), 3U);
    // The box of the tags that could not be written for want of files is not among them.
    EXPECT_THAT(told(), testing::Contains(album("Song 2.mp3") + " cannot be written."));
    EXPECT_EQ(sound_.encoders[2].bytes, static_cast<std::size_t>(kTrackBytes));
}

TEST_F(RippingTest, TheProgramMayEndWithinATrack) {
    host_.dialogs.answers = {host::MessageAnswer::Yes, host::MessageAnswer::Yes};
    for (const char* const format : {"MP3 CBR", "WAV", "WMA"}) {
        set("DOF", format);
        sound_.calls.clear();
        sound_.driveCalls.clear();
        sound_.encoders.clear();
        // Steps before that are those of the search for the folder.
        pump_.inStep = [this] { return callsOf("BASS_CD_StreamCreate").empty(); };
        ripping_.Rip_All();
        EXPECT_EQ(callsOf("BASS_CD_StreamCreate").size(), 1U) << format;
        EXPECT_EQ(sound_.encoders.size(), format == std::string("WAV") ? 0U : 1U) << format;
        EXPECT_TRUE(callsOf("disc unloaded").empty()) << format;
        EXPECT_TRUE(callsOf("BASS_StreamFree(1)").empty()) << "the library is gone by then";
        if (format != std::string("MP3 CBR")) { // encoders leave the door alone
            EXPECT_THAT(sound_.driveCalls, ElementsAre(HasSubstr("BASS_CD_Door(0, 2)"),
                                                       HasSubstr("BASS_CD_Door(0, 3)")))
                << format;
        }
        EXPECT_THAT(told().size(), testing::Le(2U)) << "nothing but the questions";
    }
}

TEST_F(RippingTest, BothTagsAreWrittenEachWithItsFields) {
    form_.V1Genre = 17;
    form_.V2Genre = 20;
    form_.Text2[0] = "Bj\xc3\xb6rk";
    leaveFiles();
    ripping_.Rip_All();
    const std::string path = music() + "/Bj\xc3\xb6rk-Album/Song 3.mp3";
    tags::cMP3ID3v1 first(tagWarning_);
    first.MP3File(path);
    EXPECT_EQ(tags::shownField(first.Artist()), "Bj\xf6rk");
    EXPECT_EQ(tags::shownField(first.Title()), "Song 3");
    EXPECT_EQ(tags::shownField(first.Album()), ""); // only the other one has it
    EXPECT_EQ(tags::shownField(first.Year()), "1999");
    EXPECT_EQ(first.genre(), 17);
    EXPECT_EQ(first.track(), 3);
    tags::cMP3ID3v2 second(tagWarning_);
    second.MP3File(path);
    EXPECT_EQ(second.Album(), "Album");
    EXPECT_EQ(second.Artist(), "");
    EXPECT_EQ(second.Title(), "Song 3");
    EXPECT_EQ(second.Year(), "1999");
    EXPECT_EQ(second.track(), "3");
    EXPECT_EQ(second.EncodedBy(), "Tovik");
    EXPECT_EQ(second.OtherGenreName(), "Alternative");
    EXPECT_THAT(host_.folder.read("Music/Bj\xc3\xb6rk-Album/Song 3.mp3"),
                HasSubstr(std::string(2000, 'm')));
}

TEST_F(RippingTest, TagsThatFailAreLogged) {
    host_.folder.write("empty.mp3", "");
    ripping_.WriteMp3Tag(host_.folder / "empty.mp3", 0);
    EXPECT_THAT(logged(), ElementsAre(HasSubstr("TSR,WriteMp3Tag")));
}

} // namespace tovik::cd
