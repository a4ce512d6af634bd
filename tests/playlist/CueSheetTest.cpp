// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/CueSheet.h"

#include <gmock/gmock.h>

namespace tovik::playlist {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

TEST(CueSheet, aDiscInOneFile) {
    const CueSheet sheet = readCueSheet("REM DATE 1987\r\n"
                                        "PERFORMER \"The Band\"\r\n"
                                        "TITLE \"The Album\"\r\n"
                                        "FILE \"the album.flac\" WAVE\r\n"
                                        "  TRACK 01 AUDIO\r\n"
                                        "    TITLE \"First\"\r\n"
                                        "    INDEX 01 00:00:00\r\n"
                                        "  TRACK 02 AUDIO\r\n"
                                        "    TITLE \"Second\"\r\n"
                                        "    PERFORMER \"A Guest\"\r\n"
                                        "    INDEX 00 03:10:00\r\n"
                                        "    INDEX 01 03:12:40\r\n");
    EXPECT_EQ(sheet.title, "The Album");
    EXPECT_EQ(sheet.performer, "The Band");
    ASSERT_THAT(sheet.files, SizeIs(1));
    EXPECT_EQ(sheet.files.front().name, "the album.flac");
    ASSERT_THAT(sheet.files.front().tracks, SizeIs(2));
    EXPECT_EQ(sheet.files.front().tracks[0].title, "First");
    EXPECT_EQ(sheet.files.front().tracks[1].performer, "A Guest");
    EXPECT_EQ(sheet.files.front().tracks[1].startFrames, (3 * 60 + 12) * 75 + 40);
    EXPECT_EQ(cueTitle(sheet, sheet.files.front()), "The Band - The Album");
}

TEST(CueSheet, aFileForEachTrack) {
    const CueSheet sheet = readCueSheet("performer Someone\n"
                                        "file one song.wav wave\n"
                                        "track 01 audio\n"
                                        "title A song of mine\n"
                                        "file \"two.wav\"\n"
                                        "track 02 audio\n"
                                        "title Two\n"
                                        "performer \"Other\"");
    ASSERT_THAT(sheet.files, SizeIs(2));
    EXPECT_EQ(sheet.files[0].name, "one song.wav");
    EXPECT_EQ(cueTitle(sheet, sheet.files[0]), "Someone - A song of mine");
    EXPECT_EQ(sheet.files[1].name, "two.wav");
    EXPECT_EQ(cueTitle(sheet, sheet.files[1]), "Other - Two");
}

TEST(CueSheet, whatIsMissingIsEmpty) {
    EXPECT_THAT(readCueSheet("").files, IsEmpty());
    EXPECT_THAT(readCueSheet("TRACK 01 AUDIO\nTITLE \"x\"\n").files, IsEmpty());
    const CueSheet sheet = readCueSheet("FILE \"a.wav\nTRACK\nINDEX 01 rubbish\nINDEX 01\nTITLE");
    ASSERT_THAT(sheet.files, SizeIs(1));
    EXPECT_EQ(sheet.files.front().name, "a.wav");
    EXPECT_EQ(sheet.files.front().tracks.front().startFrames, 0);
    EXPECT_EQ(cueTitle(sheet, sheet.files.front()), "");
}

TEST(CueSheet, numbersBeyondAllMeasureCountForNothing) {
    const CueSheet sheet = readCueSheet("FILE a WAVE\nTRACK 1 AUDIO\nINDEX 01 99999999999:00:00\n"
                                        "TRACK 2 AUDIO\nINDEX 01 -1:00:00\n"
                                        "TRACK 3 AUDIO\nINDEX 01 01:02\n");
    for (const CueTrack& track : sheet.files.at(0).tracks) {
        EXPECT_EQ(track.startFrames, 0);
    }
}

TEST(CueSheet, itsLengthIsBounded) {
    std::string text = "FILE a WAVE\n";
    for (std::size_t n = 0; n < 2 * kMostCueTracks; ++n) {
        text += "TRACK 1 AUDIO\n";
    }
    EXPECT_THAT(readCueSheet(text).files.at(0).tracks, SizeIs(kMostCueTracks));
}

} // namespace
} // namespace tovik::playlist
