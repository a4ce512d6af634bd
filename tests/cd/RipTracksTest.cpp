// SPDX-License-Identifier: GPL-3.0-or-later
// Which tracks become which files, and what may change while a rip asks.
#include "cd/RipRig.h"

#include "tags/cMP3ID3v1.h"
#include "tags/ShownField.h"

#include <gtest/gtest.h>

namespace tovik::cd {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class RipTracksTest : public test::RipRig {
protected:
    /// A disc whose first track is data, listed by its CD-Text: that track has no row.
    void putDataFirst() {
        sound_.drives.front().toc = test::FakeDiscs::discOf({0, 1, 1});
        sound_.discTracks.erase(0);
        tracks_.Clear();
        for (const char* const number : {"2", "3"}) {
            const std::string file = "D:\\Track0" + std::string(number) + ".cda";
            tracks_.AddItem(file, file, number, "00:01", 1);
        }
        form_.List1 = {"Data", "Two", "Three"};
    }

    [[nodiscard]] std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& encoder : sound_.encoders) {
            names.push_back(std::filesystem::path(encoder.command.output).filename());
        }
        return names;
    }
};

} // namespace

TEST_F(RipTracksTest, ATrackWithoutARowIsNoneOfThem) {
    putDataFirst();
    sound_.onEncoder = [](const auto& encoder) {
        std::ofstream(encoder.command.output) << std::string(2000, 'm');
    };
    ripping_.Rip_All();
    EXPECT_THAT(
        callsOf("BASS_CD_StreamCreate"),
        ElementsAre("BASS_CD_StreamCreate(0, 1, 2359296)", "BASS_CD_StreamCreate(0, 2, 2359296)"));
    EXPECT_THAT(files(), ElementsAre("Two.mp3", "Three.mp3"));
    EXPECT_THAT(told(), IsEmpty());
    tags::cMP3ID3v1 tag(tagWarning_);
    tag.MP3File(album("Three.mp3"));
    EXPECT_EQ(tag.track(), 3);
    EXPECT_EQ(title(1), "Track 1 100%"); // rows have their own numbers
    EXPECT_EQ(title(2), "Track 2 100%");
}

TEST_F(RipTracksTest, TheSelectedRowsTrackIsRippedInEachFormat) {
    putDataFirst();
    tracks_.SelectIndex(1);
    for (const char* const format : {"MP3 CBR", "WAV", "WMA"}) {
        set("DOF", format);
        host_.dialogs.answers = {host::MessageAnswer::Yes};
        sound_.calls.clear();
        tracks_.RefreshTitle(1, "");
        ripping_.mnuRipSel();
        EXPECT_THAT(callsOf("BASS_CD_StreamCreate"),
                    ElementsAre("BASS_CD_StreamCreate(0, 1, 2359296)"))
            << format;
        EXPECT_EQ(title(1), "Track 1 100%") << format;
        EXPECT_EQ(title(2), "3") << format;
    }
    EXPECT_TRUE(std::filesystem::exists(album("TRACK2.WAV")));
    EXPECT_THAT(files(), ElementsAre("Two.MP3", "Two.WMA"));
}

TEST_F(RipTracksTest, TheSelectedRowIsThatOfTheDriveInTheBox) {
    sound_.drives.resize(2, sound_.drives.front());
    disc_.CDDrive = 1;
    tracks_.SelectIndex(2);
    for (const auto& [format, drive] :
         {std::pair("WAV", "1"), std::pair("WMA", "1"), std::pair("MP3 CBR", "0")}) {
        set("DOF", format);
        sound_.calls.clear();
        host_.dialogs.answers = {host::MessageAnswer::Yes};
        ripping_.mnuRipSel();
        EXPECT_THAT(callsOf("BASS_CD_StreamCreate"),
                    ElementsAre("BASS_CD_StreamCreate(" + std::string(drive) + ", 1, 2359296)"))
            << format;
        EXPECT_THAT(callsOf("Init_CD_Ripper"), IsEmpty());
    }
}

TEST_F(RipTracksTest, ATrackWithoutANameHasItsNumber) {
    form_.List1 = {"One", ""};
    sound_.onEncoder = [](const auto& encoder) {
        std::ofstream(encoder.command.output) << std::string(2000, 'm');
    };
    ripping_.Rip_All();
    EXPECT_THAT(files(), ElementsAre("One.mp3", "Track 2.mp3", "Track 3.mp3"));
    tags::cMP3ID3v1 tag(tagWarning_);
    tag.MP3File(album("Track 2.mp3"));
    EXPECT_EQ(tags::shownField(tag.Title()), "Track 2");
}

TEST_F(RipTracksTest, ARipRunsFromItsFirstQuestionOn) {
    std::filesystem::create_directories(music() + "/Artist-Album");
    tracks_.SelectIndex(1);
    host_.dialogs.onMessage = [this] { EXPECT_TRUE(state_.RipRunning); };
    ripping_.mnuRipSel();
    EXPECT_FALSE(state_.RipRunning);
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(sound_.calls.back(), "disc shown"); // also for one track
    EXPECT_EQ(sound_.calls.at(sound_.calls.size() - 2), "rip over");
    host_.dialogs.onMessage = [this] { EXPECT_TRUE(state_.RipRunning); };
    ripping_.Rip_All();
    EXPECT_EQ(host_.dialogs.boxes.size(), 2U);
    EXPECT_FALSE(state_.RipRunning);
    EXPECT_EQ(form_.Text1[0], "Album");
    EXPECT_EQ(form_.List1.size(), 3U);
}

TEST_F(RipTracksTest, AnotherDiscThatComesWhileItAsksIsNotRipped) {
    std::filesystem::create_directories(music() + "/Artist-Album");
    host_.dialogs.answers = {host::MessageAnswer::Yes};
    host_.dialogs.onMessage = [this] { ++sound_.drives.front().number; };
    ripping_.Rip_All();
    EXPECT_THAT(callsOf("BASS_CD_StreamCreate"), IsEmpty());
    EXPECT_FALSE(state_.RipRunning);
}

TEST_F(RipTracksTest, NamesOfAnotherDiscAreForgottenBeforeTheFolderIsNamed) {
    tracks_.SelectIndex(1);
    ripping_.hooks.forgetOtherDisc = [this] {
        form_.Text1 = {"Other", ""};
        form_.List1.clear();
    };
    ripping_.mnuRipSel();
    EXPECT_EQ(sound_.encoders.at(0).command.output, music() + "/Artist-Other/Track 1.MP3");
}

TEST_F(RipTracksTest, AFormatThatNobodyKnowsIsTold) {
    set("DOF", "FLAC");
    ripping_.Rip_All();
    const std::string words = "The format \"FLAC\" is unknown: nothing is ripped.";
    EXPECT_THAT(told(), ElementsAre(words));
    EXPECT_THAT(converted(), ElementsAre(words));
    EXPECT_FALSE(std::filesystem::exists(music()));
    EXPECT_FALSE(state_.RipRunning);
}

TEST_F(RipTracksTest, ATrackThatBreaksOffDoesNotEndTheJob) {
    sound_.discTracks[1].seconds = 100;
    pump_.inStep = [this] {
        if (sound_.encoders.size() == 2 && sound_.encoders[1].bytes > 0) {
            const auto handle = static_cast<sound::Handle>(2);
            if (sound_.lives(handle)) {
                sound_.channel(handle).activity = sound::Activity::stopped;
            }
        }
        return true;
    };
    sound_.onEncoder = [](const auto& encoder) {
        std::ofstream(encoder.command.output) << std::string(2000, 'm');
    };
    ripping_.Rip_All();
    EXPECT_THAT(told(), ElementsAre(HasSubstr("Song 2.mp3 is not complete.")));
    EXPECT_EQ(sound_.encoders.size(), 3U);
    EXPECT_EQ(std::filesystem::file_size(album("Song 2.mp3")), 2000U) << "it has no tags";
    EXPECT_GT(std::filesystem::file_size(album("Song 3.mp3")), 2000U);
}

} // namespace tovik::cd
