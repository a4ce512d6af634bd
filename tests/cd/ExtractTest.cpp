// SPDX-License-Identifier: GPL-3.0-or-later
// One track to WAV and WMA.
#include "cd/EncoderRig.h"

#include "sound/api/PcmHeader.h"

#include <array>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tovik::cd {

namespace {

using sound::EncodeStage;
using testing::ElementsAre;

class ExtractTest : public test::EncoderRig {};

} // namespace

TEST_F(ExtractTest, WavAndWmaTellOfATrackThatBreaksOff) {
    const std::string wav = music() + "/TRACK3.WAV";
    breakOff(1);
    EXPECT_EQ(ripper_.ExtractAudioTrackToWav(2, music()), RipEnd::failed);
    EXPECT_EQ(std::filesystem::file_size(wav), 44U + 20'000U);
    breakOff(2);
    EXPECT_EQ(ripper_.ExtractAudioTrackToWMA(2, music()), RipEnd::failed);
    EXPECT_THAT(told(),
                ElementsAre(wav + " is not complete.", music() + "/TRACK3.WMA is not complete."));
    EXPECT_THAT(converted(), ElementsAre("Track 3: " + wav + " is not complete.",
                                         "Track 3: " + music() + "/TRACK3.WMA is not complete."));
    EXPECT_EQ(sound_.driveCalls.back(), "BASS_CD_Door(0, 3)");
}

// A pipe that nobody reads takes no file, and its opening does not come back.
TEST_F(ExtractTest, WavIsNotWaitedForForEverAfterACancel) {
    const std::string path = music() + "/TRACK1.WAV";
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    pump_.inStep = [&] {
        disc_.CancelRip = true;
        host_.clock.advanceTo(host_.clock.monotonicMs() + 1000);
        return true;
    };
    EXPECT_EQ(ripper_.ExtractAudioTrackToWav(0, music()), RipEnd::hopeless);
    EXPECT_THAT(told(), ElementsAre(path + " cannot be written."));
    EXPECT_EQ(sound_.driveCalls.back(), "BASS_CD_Door(0, 3)");
    EXPECT_FALSE(state_.RippingNow);
    const int reader = ::open(path.c_str(), O_RDONLY | O_CLOEXEC); // lets the writer go
    std::array<char, 4096> some{};
    while (::read(reader, some.data(), some.size()) > 0) {
    }
    ::close(reader);
}

TEST_F(ExtractTest, WmaIsNotWaitedForForEverAfterACancel) {
    sound_.onEncoder = [](auto& encoder) { encoder.report.stage = EncodeStage::starting; };
    pump_.inStep = [&] {
        disc_.CancelRip = true;
        host_.clock.advanceTo(host_.clock.monotonicMs() + 1000);
        return true;
    };
    EXPECT_EQ(ripper_.ExtractAudioTrackToWMA(0), RipEnd::hopeless);
    EXPECT_THAT(told(), ElementsAre(album("Song 1.WMA") + " cannot be written."));
    EXPECT_EQ(sound_.driveCalls.back(), "BASS_CD_Door(0, 3)");
}

TEST_F(ExtractTest, WhatTheDriveCouldNotReadIsNotedOfAWmaTrackThatFailedToo) {
    discSays({.trouble = sound::DiscTrouble::unreadable, .lostSectors = 3, .repaired = 7}, 1);
    sound_.onEncoder = [](auto& encoder) {
        if (encoder.bytes > 0) {
            encoder.report.stage = EncodeStage::failed;
        }
    };
    EXPECT_EQ(ripper_.ExtractAudioTrackToWMA(0), RipEnd::failed);
    EXPECT_THAT(converted(),
                ElementsAre("Track 1: 3 sectors lost, 7 places repaired: " + album("Song 1.WMA")));
    EXPECT_EQ(callsOf("BASS_WMA_EncodeClose").size(), 1U);
}

TEST_F(ExtractTest, AWmaFileThatDoesNotOpenIsClosed) {
    sound_.onEncoder = [](auto& encoder) { encoder.report.stage = EncodeStage::failed; };
    EXPECT_EQ(ripper_.ExtractAudioTrackToWMA(0), RipEnd::failed);
    EXPECT_EQ(callsOf("BASS_WMA_EncodeClose").size(), 1U);
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
