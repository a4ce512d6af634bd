// SPDX-License-Identifier: GPL-3.0-or-later
// One track through an encoder program, and to WAV and WMA.
#include "cd/RipRig.h"

#include "sound/api/PcmHeader.h"

#include <gtest/gtest.h>

namespace tovik::cd {

namespace {

using sound::EncodeStage;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class EncoderTest : public test::RipRig {
protected:
    EncoderTest() { std::filesystem::create_directories(music()); }

    [[nodiscard]] RipEnd encode(std::string_view type = "MP3C", const std::string& source = "1") {
        return ripper_.Encoder(source, type, 128, path_, true, 1);
    }

    /// What a disc says of the stream that is read.
    void discSays(const sound::DiscReport& report) {
        pump_.inStep = [this, report] {
            sound_.discReports[lastStream()] = report;
            return true;
        };
    }

    [[nodiscard]] sound::Handle lastStream() {
        sound::Handle last = 1;
        while (sound_.lives(last + 1)) {
            ++last;
        }
        return last;
    }

    const std::string path_ = music() + "/x.mp3";
};

using ExtractTest = EncoderTest;

} // namespace

TEST_F(EncoderTest, CallsTheLibraryInItsOrder) {
    EXPECT_EQ(encode(), RipEnd::done);
    const std::string command =
        host_.folder.path() + "\\lame.exe -b  128 --priority 2  - \"" + path_ + "\"";
    EXPECT_THAT(sound_.calls,
                ElementsAre("BASS_Free()", "BASS_Init(1, 44100, 0, 77, 0)", "BASS_SetConfig(9, 0)",
                            "BASS_Encode_Stop(0)", "BASS_CD_StreamCreate(0, 1, 2359296)",
                            "BASS_Encode_Start(1, " + command + ", 0)", "BASS_Encode_Stop(1)",
                            "BASS_StreamFree(1)", "BASS_Free()"));
    ASSERT_EQ(sound_.encoders.size(), 1U);
    EXPECT_EQ(sound_.encoders[0].command.program, "/helpers/lame.exe");
    EXPECT_THAT(sound_.encoders[0].command.arguments, ElementsAre("-b", "128", "-", path_));
    EXPECT_EQ(sound_.encoders[0].bytes, static_cast<std::size_t>(kTrackBytes));
    EXPECT_EQ(title(2), "Track 2 100%");
    EXPECT_FALSE(state_.RippingNow);
    EXPECT_THAT(converted(), IsEmpty());
    sound_.calls.clear();
    EXPECT_EQ(encode("OGGV"), RipEnd::done);
    EXPECT_EQ(sound_.calls[3], "BASS_Encode_Stop(1)"); // of the channel before
}

TEST_F(EncoderTest, AlwaysReadsTheFirstDrive) {
    disc_.CDDrive = 3;
    EXPECT_EQ(encode(), RipEnd::done);
    EXPECT_THAT(callsOf("BASS_CD_StreamCreate"),
                ElementsAre("BASS_CD_StreamCreate(0, 1, 2359296)"));
}

TEST_F(EncoderTest, TakesAFileToo) {
    sound_.files["/a.mp3"] = {.seconds = 1};
    sound_.files["/a.wma"] = {.kind = test::FakeKind::wma, .seconds = 1};
    EXPECT_EQ(ripper_.Encoder("/a.mp3", "OGGV", 96, path_, false, 0), RipEnd::done);
    EXPECT_EQ(ripper_.Encoder("/a.wma", "OGGV", 96, path_, false, 0), RipEnd::done);
    EXPECT_THAT(callsOf("BASS_WMA_StreamCreateFile"),
                ElementsAre("BASS_WMA_StreamCreateFile(0, /a.wma, 0, 0, 2359296)"));
    EXPECT_EQ(sound_.encoders.size(), 2U);
    EXPECT_EQ(ripper_.Encoder("/none.mp3", "OGGV", 96, path_, false, 0), RipEnd::failed);
}

TEST_F(EncoderTest, StartsNothingForAnUnknownType) {
    EXPECT_EQ(encode("FLAC"), RipEnd::done);
    EXPECT_TRUE(sound_.encoders.empty());
    EXPECT_EQ(sound_.calls.back(), "BASS_Free()");
}

TEST_F(EncoderTest, SaysWhichProgramIsMissingAndWhereItComesFrom) {
    host_.programs.present.clear();
    EXPECT_EQ(encode("OGGC"), RipEnd::hopeless);
    const std::string words =
        "The program oggenc is missing. It comes with the package vorbis-tools.";
    EXPECT_THAT(told(), ElementsAre(words));
    EXPECT_THAT(converted(), ElementsAre(words));
    EXPECT_TRUE(sound_.calls.empty());
}

TEST_F(EncoderTest, LogsWhatGoesWrongByItsSource) {
    sound_.discTracks.erase(1);
    sound_.error = sound::ErrorCode::cannotOpenFile;
    EXPECT_EQ(encode(), RipEnd::failed);
    EXPECT_THAT(converted(),
                ElementsAre("Can't Open the File 2 occured when Tovik tried to play/convert: 1"));
    EXPECT_TRUE(sound_.encoders.empty());
    EXPECT_EQ(sound_.calls.back(), "BASS_Free()");
}

TEST_F(EncoderTest, TellsOfAnEncoderThatDies) {
    sound_.onEncoder = [](auto& encoder) {
        if (encoder.bytes > 0) {
            encoder.report = {.stage = EncodeStage::failed, .words = "Error writing mp3 output"};
        }
    };
    EXPECT_EQ(encode(), RipEnd::failed);
    EXPECT_THAT(told(), ElementsAre(path_ + " cannot be written.\nError writing mp3 output"));
    EXPECT_THAT(
        converted(),
        ElementsAre("Couldn't create the file 33 occured when Tovik tried to play/convert: 1"));
    EXPECT_FALSE(state_.RippingNow);
}

TEST_F(EncoderTest, TellsOfAnEncoderThatCannotStart) {
    sound_.programsRun = false;
    EXPECT_EQ(encode(), RipEnd::failed);
    EXPECT_THAT(told(), ElementsAre(HasSubstr(path_)));
    EXPECT_EQ(converted().size(), 1U);
}

TEST_F(EncoderTest, WaitsForRoomAndForTheEncodersEnd) {
    int rounds = 0;
    sound_.onEncoder = [](auto& encoder) { encoder.report.takesMore = false; };
    pump_.inStep = [&] {
        if (++rounds == 5) {
            EXPECT_EQ(sound_.encoders[0].bytes, 0U);
            EXPECT_TRUE(state_.RippingNow);
            sound_.encoders[0].report.takesMore = true;
        }
        return true;
    };
    EXPECT_EQ(encode(), RipEnd::done);
    EXPECT_GE(rounds, 5);
    EXPECT_EQ(sound_.encoders[0].bytes, static_cast<std::size_t>(kTrackBytes));
}

TEST_F(EncoderTest, StopsWithinATrack) {
    sound_.discTracks[1].seconds = 100;
    pump_.inStep = [&] { return disc_.CancelRip = true; };
    EXPECT_EQ(encode(), RipEnd::done);
    EXPECT_EQ(sound_.encoders[0].bytes, 262144U);
    EXPECT_TRUE(sound_.encoders[0].closed);
}

TEST_F(EncoderTest, LeavesEverythingWhenTheProgramEnds) {
    pump_.inStep = [] { return false; };
    EXPECT_EQ(encode(), RipEnd::abandoned);
    EXPECT_EQ(sound_.calls.back().substr(0, 17), "BASS_Encode_Start");
}

TEST_F(EncoderTest, NotesWhatTheDriveCouldNotRead) {
    discSays({.trouble = sound::DiscTrouble::unreadable, .lostSectors = 3, .repaired = 7});
    EXPECT_EQ(encode(), RipEnd::done);
    EXPECT_THAT(converted(), ElementsAre("Track 2: 3 sectors lost, 7 places repaired: " + path_));
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(EncoderTest, EndsWhenTheDiscIsGone) {
    discSays({.trouble = sound::DiscTrouble::noDisc});
    EXPECT_EQ(encode(), RipEnd::hopeless);
    EXPECT_THAT(told(), ElementsAre("The disc is gone: " + path_ + " is not complete."));
    EXPECT_EQ(converted().size(), 1U);

    host_.dialogs.boxes.clear();
    sound_.drives.front().ready = false;
    sound_.drives.front().toc = {};
    sound_.discTracks.clear();
    EXPECT_EQ(encode(), RipEnd::hopeless);
    EXPECT_EQ(told().size(), 1U);
}

TEST_F(ExtractTest, WritesWavAsItStandsOnTheDisc) {
    disc_.CDDrive = 0;
    disc_.CDStream = 55;
    EXPECT_EQ(ripper_.ExtractAudioTrackToWav(2, music()), RipEnd::done);
    EXPECT_THAT(sound_.driveCalls, ElementsAre("BASS_CD_Door(0, 2)", "BASS_CD_Door(0, 3)"));
    EXPECT_THAT(sound_.calls,
                ElementsAre("BASS_StreamFree(55)", "BASS_CD_StreamCreate(0, 2, 2359296)",
                            "BASS_ChannelStop(1)", "BASS_StreamFree(1)"));
    const std::string file = host_.folder.read("Music/TRACK3.WAV");
    ASSERT_EQ(file.size(), 44U + kTrackBytes);
    EXPECT_EQ(file.substr(0, 44), sound::pcmHeader(44100, 2, 16, kTrackBytes + 36, kTrackBytes));
    for (std::int64_t i = 0; i < kTrackBytes; ++i) {
        ASSERT_EQ(static_cast<std::byte>(file[static_cast<std::size_t>(44 + i)]),
                  test::FakeSoundLibrary::discByte(i))
            << i;
    }
    EXPECT_EQ(title(3), "Track 3 100%");
    EXPECT_FALSE(state_.RippingNow);
}

TEST_F(ExtractTest, WavUsesTheSelectedDriveAndSaysWhatFails) {
    disc_.CDDrive = 1;
    sound_.drives.resize(2, sound_.drives.front());
    sound_.discTracks.clear();
    EXPECT_EQ(ripper_.ExtractAudioTrackToWav(0, music()), RipEnd::failed);
    EXPECT_THAT(told(), ElementsAre("Unable to Create CD Stream!"));
    EXPECT_THAT(sound_.driveCalls, ElementsAre("BASS_CD_Door(1, 2)", "BASS_CD_Door(1, 3)"));
}

TEST_F(ExtractTest, WavOnAFullDiskNamesTheFile) {
    std::filesystem::create_symlink("/dev/full", music() + "/TRACK1.WAV");
    EXPECT_EQ(ripper_.ExtractAudioTrackToWav(0, music()), RipEnd::failed);
    EXPECT_THAT(told(),
                ElementsAre(music() + "/TRACK1.WAV cannot be written.\nNo space left on device"));
}

TEST_F(ExtractTest, WavOfACancelledTrackStaysAndHasItsSizes) {
    sound_.discTracks[0].seconds = 100;
    pump_.inStep = [&] { return disc_.CancelRip = true; };
    EXPECT_EQ(ripper_.ExtractAudioTrackToWav(0, music()), RipEnd::done);
    const std::string file = host_.folder.read("Music/TRACK1.WAV");
    EXPECT_EQ(file.size(), 20044U);
    EXPECT_EQ(file.substr(0, 44), sound::pcmHeader(44100, 2, 16, 20036, 20000));
}

TEST_F(ExtractTest, WmaIsNamedAndTagged) {
    form_.List1[0] = "A/B";
    EXPECT_EQ(ripper_.ExtractAudioTrackToWMA(0), RipEnd::done);
    ASSERT_EQ(sound_.encoders.size(), 1U);
    const auto& encoder = sound_.encoders[0];
    EXPECT_EQ(encoder.command.output, album("A-B.WMA"));
    EXPECT_EQ(encoder.bytes, static_cast<std::size_t>(kTrackBytes));
    EXPECT_THAT(encoder.tags,
                ElementsAre(testing::Pair("WM/AlbumTitle", "Album"),
                            testing::Pair("Author", "Artist"), testing::Pair("WM/Year", "1999"),
                            testing::Pair("WM/Genre", "Rock"), testing::Pair("Title", "A/B"),
                            testing::Pair("", "")));
    EXPECT_THAT(callsOf("BASS_WMA"), ElementsAre("BASS_WMA_EncodeOpenFile(44100, 65536, 132000, " +
                                                     album("A-B.WMA") + ")",
                                                 "BASS_WMA_EncodeClose(2)"));
    EXPECT_THAT(sound_.driveCalls, ElementsAre("BASS_CD_Door(0, 2)", "BASS_CD_Door(0, 3)"));
    EXPECT_EQ(title(1), "Track 1 100%");
}

TEST_F(ExtractTest, WmaOfAnUnnamedAlbumGoesWithoutItsFolder) {
    form_ = {};
    EXPECT_EQ(ripper_.ExtractAudioTrackToWMA(1), RipEnd::done);
    EXPECT_EQ(sound_.encoders[0].command.output, music() + "/Track 2.WMA");
    EXPECT_EQ(ripper_.ExtractAudioTrackToWMA(1, "/elsewhere"), RipEnd::done);
    EXPECT_EQ(sound_.encoders[1].command.output, "/elsewhere/TRACK2.WMA");
}

TEST_F(ExtractTest, WmaSaysWhatFails) {
    sound_.onEncoder = [](auto& encoder) {
        encoder.report = {.stage = EncodeStage::failed, .words = "No space left on device"};
    };
    EXPECT_EQ(ripper_.ExtractAudioTrackToWMA(0), RipEnd::failed);
    sound_.onEncoder = [](auto& encoder) {
        if (encoder.bytes > 0) {
            encoder.report.stage = EncodeStage::failed;
        }
    };
    EXPECT_EQ(ripper_.ExtractAudioTrackToWMA(0), RipEnd::failed);
    sound_.discTracks.clear();
    sound_.error = sound::ErrorCode::unsupportedFormat;
    EXPECT_EQ(ripper_.ExtractAudioTrackToWMA(0), RipEnd::failed);
    EXPECT_THAT(told(),
                ElementsAre("An error occured while opening output file.\n" + album("Song 1.WMA") +
                                "\nNo space left on device",
                            "An error occured while encoding WMA data.\n" + album("Song 1.WMA"),
                            "Unable to Create CD Stream!\r\n\r\nError Code : 6"));
}

} // namespace tovik::cd
