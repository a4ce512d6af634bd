// SPDX-License-Identifier: GPL-3.0-or-later
// One track through an encoder program.
#include "cd/EncoderRig.h"

#include <gtest/gtest.h>

namespace tovik::cd {

namespace {

using sound::EncodeStage;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class EncoderTest : public test::EncoderRig {};

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

TEST_F(EncoderTest, ReadsTheChosenDriveWhereThatIsWanted) {
    disc_.CDDrive = 1;
    sound_.drives.resize(2, sound_.drives.front());
    state_.comfort.encodesSelectedDrive = true;
    EXPECT_EQ(encode(), RipEnd::failed); // there is nothing in it
    EXPECT_THAT(callsOf("BASS_CD_StreamCreate"),
                ElementsAre("BASS_CD_StreamCreate(1, 1, 2359296)"));
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

// A stream that ends before its length, though the disc is there and nobody has cancelled.
TEST_F(EncoderTest, TellsOfATrackThatBreaksOff) {
    breakOff(1);
    EXPECT_EQ(encode(), RipEnd::failed);
    EXPECT_THAT(told(), ElementsAre(path_ + " is not complete."));
    EXPECT_THAT(converted(), ElementsAre("Track 2: " + path_ + " is not complete."));
    EXPECT_FALSE(state_.RippingNow);
}

TEST_F(EncoderTest, IsNotWaitedForForEverAfterACancel) {
    sound_.discTracks[1].seconds = 100;
    sound_.encodersEnd = false;
    std::int64_t asked = 0;
    pump_.inStep = [&] {
        if (sound_.encoders.at(0).closed) {
            disc_.CancelRip = true;
            host_.clock.advanceTo(host_.clock.monotonicMs() + 1000);
            ++asked;
        } else {
            disc_.CancelRip = sound_.encoders[0].bytes > 0;
        }
        return true;
    };
    EXPECT_EQ(encode(), RipEnd::hopeless);
    EXPECT_GE(asked, 10); // seconds
    EXPECT_LE(asked, 12);
    EXPECT_THAT(told(), ElementsAre(path_ + " cannot be written."));
    EXPECT_THAT(converted(), ElementsAre(path_ + " cannot be written."));
    EXPECT_EQ(sound_.calls.back(), "BASS_Free()");
    EXPECT_FALSE(state_.RippingNow);
}

TEST_F(EncoderTest, IsWaitedForWithoutACancel) {
    sound_.encodersEnd = false;
    int seconds = 0;
    pump_.inStep = [&] {
        host_.clock.advanceTo(host_.clock.monotonicMs() + 1000);
        if (sound_.encoders.at(0).closed && ++seconds == 25) {
            sound_.encoders[0].report.stage = EncodeStage::finished;
        }
        return true;
    };
    EXPECT_EQ(encode(), RipEnd::done);
    EXPECT_EQ(seconds, 25);
}

} // namespace tovik::cd
