// SPDX-License-Identifier: GPL-3.0-or-later
// Images of discs in drives, by libcdio.
#include "sound/cd/DiscRig.h"
#include "sound/cd/FindDrives.h"
#include "sound/cd/libcdio/CdText.h"
#include "sound/cd/libcdio/TocSheet.h"
#include "sound/engine/Buffers.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tovik::sound {

using test::EngineRig;
using test::fileBytes;
using test::kHeard;
using test::kRip;
using test::mediaPath;
using test::Stereo;
using test::takeAll;

namespace {

/// An engine whose first drive holds an image of the media. Drives of the machine stand behind it,
/// so that a test means the same everywhere.
struct ImageRig {
    explicit ImageRig(const std::string& name) : rig(setup(name)) { test::awaitLook(rig.engine); }

    static test::RigSetup setup(const std::string& name) {
        test::RigSetup setup;
        setup.drives.images = {name.starts_with("/") ? name : mediaPath(name)};
        setup.drives.find = [](const auto& images) {
            auto found = findDrives(images);
            std::ranges::reverse(found);
            return found;
        };
        return setup;
    }

    EngineRig rig;
    SoundLibrary& engine = rig.engine;
};

/// Bytes of sectors of a file.
std::vector<std::byte> sectorsOfFile(const std::string& name, std::size_t first,
                                     std::size_t count) {
    const auto bytes = fileBytes(mediaPath(name));
    const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(first * kSectorBytes);
    return {begin, begin + static_cast<std::ptrdiff_t>(count * kSectorBytes)};
}

std::vector<std::int32_t> lengthsOf(const DiscToc& toc) {
    std::vector<std::int32_t> lengths;
    for (const DiscTrack& track : toc.tracks) {
        lengths.push_back(track.isData ? -track.sectors : track.sectors);
    }
    return lengths;
}

/// CD-Text with bars instead of NULs.
std::string barred(std::string text) {
    std::ranges::replace(text, '\0', '|');
    return text;
}

} // namespace

class EachKindOfImage : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(DiscImages, EachKindOfImage,
                         testing::Values("cd_tones.cue", "cd_toc.toc", "cd_nrg.nrg"));

TEST_P(EachKindOfImage, IsADriveWithTheSameDisc) {
    ImageRig rig(GetParam());
    EXPECT_EQ(rig.engine.BASS_CD_GetDriveDescription(0), GetParam());
    ASSERT_TRUE(rig.engine.BASS_CD_IsReady(0));
    const auto toc = rig.engine.discToc(0);
    ASSERT_TRUE(toc);
    EXPECT_EQ(lengthsOf(*toc), (std::vector<std::int32_t>{225, 307, 151}));
    EXPECT_EQ(toc->firstNumber, 1);
    EXPECT_EQ(toc->tracks[1].firstSector, 225);
    EXPECT_EQ(toc->leadOut, 683);
    EXPECT_FALSE(rig.engine.BASS_CD_GetID(0, BASS_CDID_TEXT));
}

TEST_P(EachKindOfImage, GivesItsSamplesToWhoRips) {
    ImageRig rig(GetParam());
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 1, kRip);
    EXPECT_EQ(takeAll(rig.engine, track), sectorsOfFile("cd_tones.bin", 225, 307));
    EXPECT_EQ(rig.engine.discReport(track)->lostSectors, 0);
}

TEST_P(EachKindOfImage, GivesItsSamplesToWhoListens) {
    ImageRig rig(GetParam());
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 2, kHeard);
    ASSERT_TRUE(rig.engine.BASS_StreamPlay(track, true, 0));
    Stereo heard = rig.rig.renderToEnd(track);
    heard.resize(std::size_t{151} * kSectorFrames * 2);
    test::expectSame(heard, test::soundOf(sectorsOfFile("cd_tones.bin", 532, 151)));
}

TEST(DiscImages, TellCdText) {
    ImageRig rig("cd_text.cue");
    const auto text = rig.engine.BASS_CD_GetID(0, BASS_CDID_TEXT);
    ASSERT_TRUE(text);
    EXPECT_EQ(barred(*text), "TITLE0=Größe|PERFORMER0=Various|TITLE1=Première|PERFORMER1=Ann|"
                             "TITLE2=Второй|PERFORMER2=Björk & Co|TITLE3=A = B||");
}

TEST(DiscImages, TellCdTextOfASheetInLatin1) {
    ImageRig rig("cd_latin.cue");
    const auto text = rig.engine.BASS_CD_GetID(0, BASS_CDID_TEXT);
    ASSERT_TRUE(text);
    EXPECT_TRUE(barred(*text).starts_with("TITLE0=Größe|PERFORMER0=Various|TITLE1=Première 0|"));
}

TEST(DiscImages, UndoASecondEncodingAndNothingElse) {
    using libcdio::withoutSecondEncoding;
    EXPECT_EQ(withoutSecondEncoding("GrÃ¶Ã\u009fe"), "Größe");
    EXPECT_EQ(withoutSecondEncoding("Größe"), "Größe");
    EXPECT_EQ(withoutSecondEncoding("plain"), "plain");
    EXPECT_EQ(withoutSecondEncoding("Второй"), "Второй");
    EXPECT_EQ(withoutSecondEncoding("Ã"), "Ã");
    EXPECT_EQ(withoutSecondEncoding("\xc3"), "\xc3");
}

TEST(DiscImages, LeaveOutAHiddenFirstTrack) {
    ImageRig rig("cd_hidden.cue");
    const auto toc = rig.engine.discToc(0);
    ASSERT_TRUE(toc);
    EXPECT_EQ(toc->tracks[0].firstSector, 150);
    EXPECT_EQ(lengthsOf(*toc), (std::vector<std::int32_t>{75, 75}));
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 0, kRip);
    EXPECT_EQ(takeAll(rig.engine, track), sectorsOfFile("cd_hidden.bin", 150, 75));
}

TEST(DiscImages, TellDataTracksFromAudio) {
    ImageRig rig("cd_mixed.cue");
    const auto toc = rig.engine.discToc(0);
    ASSERT_TRUE(toc);
    EXPECT_EQ(lengthsOf(*toc), (std::vector<std::int32_t>{-350, 150, 375, -220}));
    EXPECT_EQ(rig.engine.BASS_CD_StreamCreate(0, 0, kHeard), kNoHandle);
    EXPECT_EQ(rig.engine.BASS_CD_StreamCreate(0, 3, kRip), kNoHandle);
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 1, kRip);
    EXPECT_EQ(takeAll(rig.engine, track), sectorsOfFile("cd_mixed.bin", 350, 150));
    const Handle heard = rig.engine.BASS_CD_StreamCreate(0, 2, kHeard);
    EXPECT_TRUE(rig.engine.BASS_StreamPlay(heard, true, 0));
    EXPECT_FALSE(test::silent(rig.rig.render(4096)));
}

TEST(DiscImages, HoldNinetyNineTracks) {
    ImageRig rig("cd_99.cue");
    EXPECT_EQ(rig.engine.BASS_CD_GetTracks(0), 99);
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 98, kRip);
    EXPECT_EQ(takeAll(rig.engine, track), sectorsOfFile("cd_99.bin", std::size_t{98} * 20, 20));
}

/// A file with a hole: nothing of it but its end lies on the disk.
TEST(DiscImages, HoldOneTrackOf74Minutes) {
    constexpr std::int32_t kSectors = 74 * 60 * kSectorsPerSecond;
    constexpr std::int32_t kEnd = 150; // sectors that are no silence
    const test::TemporaryFolder folder;
    const auto bytes = test::sectorsOf(0, kEnd);
    test::writeBytes(folder / "long.bin", {});
    std::filesystem::resize_file(folder / "long.bin", std::uintmax_t{kSectors - kEnd} * 2352);
    std::ofstream file(folder / "long.bin", std::ios::binary | std::ios::app);
    for (const std::byte byte : bytes) {
        file.put(static_cast<char>(byte));
    }
    file.close();
    std::ofstream(folder / "long.cue")
        << "FILE \"long.bin\" BINARY\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n";
    ImageRig rig(folder / "long.cue");
    EXPECT_EQ(rig.engine.BASS_CD_GetTrackLength(0, 0), std::int64_t{kSectors} * 2352);
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 0, kHeard);
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(track, std::int64_t{kSectors - kEnd} * 2352));
    ASSERT_TRUE(rig.engine.BASS_StreamPlay(track, false, 0));
    constexpr std::size_t kRamp = 512; // from the place before
    Stereo heard = rig.rig.renderToEnd(track);
    heard.resize(std::size_t{kEnd} * kSectorFrames * 2);
    test::expectSame(test::cut(heard, kRamp), test::cut(test::soundOf(bytes), kRamp));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(track), std::int64_t{kSectors} * 2352);
}

TEST(DiscImages, ThatCannotBeReadAreDrivesWithoutADisc) {
    for (const char* const name : {"cd_gone.cue", "cd_broken.cue", "cd_cut.cue", "/no/such.cue",
                                   "noise.mp3", "/no/such.toc"}) {
        ImageRig rig(name);
        EXPECT_TRUE(rig.engine.BASS_CD_GetDriveDescription(0)) << name;
        EXPECT_FALSE(rig.engine.BASS_CD_IsReady(0)) << name;
    }
}

TEST(DiscImages, AreKnownByTheirEndingInCapitalsToo) {
    const test::TemporaryFolder folder;
    std::filesystem::copy_file(mediaPath("cd_toc.toc"), folder / "DISC.TOC");
    std::filesystem::copy_file(mediaPath("cd_toc.bin"), folder / "cd_toc.bin");
    ImageRig rig(folder / "DISC.TOC");
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 1, kRip);
    EXPECT_EQ(takeAll(rig.engine, track), sectorsOfFile("cd_tones.bin", 225, 307));
}

/// A sheet says "SWAP" of samples with the low byte first.
TEST(DiscImages, HaveTheByteOrderThatTheirSheetTells) {
    const test::TemporaryFolder folder;
    std::filesystem::copy_file(mediaPath("cd_tones.bin"), folder / "SWAP.bin");
    const auto low = sectorsOfFile("cd_tones.bin", 225, 307);
    std::vector<std::byte> high = low;
    for (std::size_t i = 0; i + 1 < high.size(); i += 2) {
        std::swap(high[i], high[i + 1]);
    }
    for (const bool swapped : {false, true}) {
        std::ofstream sheet(folder / "disc.toc");
        sheet << "CD_DA\n";
        for (const char* const place : {"0 00:03:00", "00:03:00 00:04:07"}) {
            sheet << "TRACK AUDIO\nFILE \"SWAP.bin\" " << (swapped ? "SWAP " : "") << place << '\n';
        }
        sheet.close();
        ImageRig rig(folder / "disc.toc");
        const Handle track = rig.engine.BASS_CD_StreamCreate(0, 1, kRip);
        ASSERT_NE(track, kNoHandle) << swapped;
        EXPECT_TRUE(takeAll(rig.engine, track) == (swapped ? low : high)) << swapped;
    }
}

TEST(DiscImages, FindTheWordForTheByteOrderWhereItCounts) {
    using libcdio::swapsBytes;
    EXPECT_TRUE(swapsBytes("CD_DA\nTRACK AUDIO\n  FILE \"a.bin\" SWAP 0 00:02:00\n"));
    EXPECT_TRUE(swapsBytes("AUDIOFILE\t\"a \\\" b.bin\"SWAP\r\n"));
    EXPECT_TRUE(swapsBytes("FILE \"a\" 0\nFILE \"b\" SWAP"));
    for (const char* const sheet :
         {"", "CD_TEXT { LANGUAGE 0 { TITLE \"SWAP MEET\" } }\nFILE \"a.bin\" 0\n",
          "FILE \"SWAP\" 0\n", "FILE \"a \\\" SWAP\" 0\n", "FILE \"a.bin\" 0 // SWAP\n",
          "FILE \"a.bin\"\nSWAP\n", "FILE \"a SWAP 0\n", "FILE \"a.bin\" SWAPPED\n",
          "// FILE \"a.bin\" SWAP\n", "FILE \"a\\"}) {
        EXPECT_FALSE(swapsBytes(sheet)) << sheet;
    }
}

TEST(DiscImages, TheWordForTheByteOrderIsTakenOutOfATocSheet) {
    EXPECT_EQ(libcdio::readableSheet(
                  "TRACK AUDIO\nFILE \"SWAP\" SWAP 0 1\r\nAUDIOFILE \"/b\"SWAP\n", "/x/"),
              "TRACK AUDIO\nFILE \"/x/SWAP\" 0 1\r\nAUDIOFILE \"/b\" \n");
    EXPECT_EQ(libcdio::readableSheet("TITLE \"SWAP MEET\"\n", "/x/"), "TITLE \"SWAP MEET\"\n");
}

TEST(DiscImages, NamesInATocSheetBecomeAbsolute) {
    EXPECT_EQ(libcdio::readableSheet("CD_DA\nTRACK AUDIO\nFILE \"a.bin\" 0 1\n  AUDIOFILE "
                                     "\"/b.wav\" 0\nDATAFILE \"c\"",
                                     "/x/"),
              "CD_DA\nTRACK AUDIO\nFILE \"/x/a.bin\" 0 1\n  AUDIOFILE \"/b.wav\" 0\nDATAFILE "
              "\"/x/c\"");
}

} // namespace tovik::sound
