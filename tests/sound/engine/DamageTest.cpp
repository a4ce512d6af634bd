// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are not what they should be, or that change while they play: whatever comes, it ends.
#include "sound/engine/Buffers.h"

#include <array>
#include <filesystem>
#include <gtest/gtest.h>
#include <string_view>

namespace tovik::sound {

namespace {

using test::EngineRig;
using test::mediaPath;

constexpr std::array kOneOfEach = {"wav_s16_44100_stereo.wav",
                                   "wav_s24_48000_stereo.wav",
                                   "aiff_s16_44100_stereo.aif",
                                   "mp3_cbr128.mp3",
                                   "mp3_vbr_no_xing.mp3",
                                   "ogg_44100.ogg",
                                   "flac_16_44100.flac",
                                   "wma_44100.wma",
                                   "song.mod",
                                   "song.s3m",
                                   "song.xm",
                                   "song.it",
                                   "song.mtm",
                                   "song.umx"};

/// Offers the file to all four operations and plays what is taken to its end. How many took it.
int offerAndPlay(const std::string& path) {
    EngineRig rig({.blockFrames = 4096});
    SoundLibrary& e = rig.engine;
    int taken = 0;
    for (const Handle channel :
         {e.BASS_StreamCreateFile(false, path, 0, 0, 0), e.BASS_MusicLoad(false, path, 0, 0, 0, 0),
          e.BASS_WMA_StreamCreateFile(false, path, 0, 0, 0),
          e.BASS_FLAC_StreamCreateFile(false, path, 0, 0, 0)}) {
        if (channel == kNoHandle) {
            continue;
        }
        ++taken;
        EXPECT_TRUE(rig.start(channel)) << path;
        rig.render(4096);
        EXPECT_TRUE(e.BASS_ChannelSetPosition(channel, rig.length(channel) / 2)) << path;
        // Random bytes may make a module of hours: a minute of it is enough.
        constexpr int kMostBlocks = 650;
        int blocks = 0;
        while (e.BASS_ChannelIsActive(channel) != Activity::stopped && ++blocks < kMostBlocks) {
            rig.render(4096);
            EXPECT_LE(e.BASS_ChannelGetPosition(channel), rig.length(channel)) << path;
        }
        if (blocks < kMostBlocks) {
            EXPECT_EQ(e.BASS_ChannelGetPosition(channel), rig.length(channel)) << path;
        }
    }
    return taken;
}

} // namespace

TEST(Damage, EveryFormatCutOffAtEveryTenth) {
    const test::TemporaryFolder folder;
    const std::string path = folder / "cut";
    for (const char* name : kOneOfEach) {
        const std::vector<std::byte> whole = test::fileBytes(mediaPath(name));
        int taken = 0;
        for (std::size_t tenth = 0; tenth < 10; ++tenth) {
            test::writeBytes(path, std::span(whole).first(whole.size() * tenth / 10));
            taken += offerAndPlay(path);
        }
        // The tables of a package lie at its end.
        EXPECT_EQ(taken > 0, name != std::string_view("song.umx")) << name;
    }
}

TEST(Damage, NoiseBehindEveryMagic) {
    int offered = 0;
    for (const test::MediaFile& file : test::allMedia()) {
        if (file.name.starts_with("noise")) {
            EXPECT_LE(offerAndPlay(mediaPath(file.name)), 1) << file.name;
            ++offered;
        }
    }
    EXPECT_GT(offered, 10);
}

TEST(Damage, HolesInTheMiddle) {
    const test::TemporaryFolder folder;
    const std::string path = folder / "hole";
    for (const char* name : kOneOfEach) {
        std::vector<std::byte> bytes = test::fileBytes(mediaPath(name));
        for (std::size_t i = bytes.size() / 3; i < bytes.size() / 3 + 700; ++i) {
            bytes[i] = static_cast<std::byte>(i * 7919U >> 3U);
        }
        test::writeBytes(path, bytes);
        offerAndPlay(path);
    }
}

TEST(Damage, AFileThatIsDeletedPlaysOn) {
    const test::TemporaryFolder folder;
    const std::string path = folder / "gone.wav";
    std::filesystem::copy_file(mediaPath("wav_s16_44100_stereo.wav"), path);
    EngineRig rig;
    const Handle channel = rig.playStream(path);
    rig.render(2000);
    std::filesystem::remove(path);
    test::expectSame(rig.render(100000),
                     test::cut(test::wavSamples("wav_s16_44100_stereo.wav"), 2000, 102000));
    rig.renderToEnd(channel);
}

TEST(Damage, AFileThatShrinksEndsEarly) {
    for (const char* name : {"wav_s16_44100_stereo.wav", "mp3_cbr128.mp3", "ogg_44100.ogg"}) {
        const test::TemporaryFolder folder;
        const std::string path = folder / "shrinks";
        std::filesystem::copy_file(mediaPath(name), path);
        EngineRig rig;
        const Handle channel = rig.playStream(path);
        const std::int64_t told = rig.length(channel);
        rig.render(2000);
        std::filesystem::resize_file(path, std::filesystem::file_size(path) / 3);
        rig.renderToEnd(channel);
        const std::int64_t length = rig.length(channel);
        EXPECT_LT(length, told) << name;
        EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), length) << name;
        ASSERT_TRUE(rig.engine.BASS_StreamPlay(channel, true, 0)) << "it can be played again";
        rig.render(2000);
        EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 8000) << name;
    }
}

TEST(Damage, AFileThatIsEmptiedEnds) {
    const test::TemporaryFolder folder;
    const std::string path = folder / "emptied.wav";
    std::filesystem::copy_file(mediaPath("wav_s16_44100_stereo.wav"), path);
    EngineRig rig;
    const Handle channel = rig.playStream(path);
    rig.render(2000);
    std::filesystem::resize_file(path, 0);
    rig.renderToEnd(channel);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), rig.length(channel));
    rig.engine.BASS_ChannelSetPosition(channel, 0);
    rig.render(5000);
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::stopped);
}

} // namespace tovik::sound
