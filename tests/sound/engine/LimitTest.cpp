// SPDX-License-Identifier: GPL-3.0-or-later
// Many channels, many orders, and a device that takes nothing.
#include "sound/engine/Buffers.h"

#include <gtest/gtest.h>

namespace tovik::sound {

namespace {

using test::EngineRig;

constexpr const char* kFile = "wav_s16_44100_mono.wav";

std::vector<Handle> fill(EngineRig& rig) {
    std::vector<Handle> channels;
    for (std::size_t i = 0; i < Mixer::kMaxVoices; ++i) {
        channels.push_back(rig.open(kFile));
    }
    return channels;
}

} // namespace

TEST(Limit, SixtyFourChannelsAndNoMore) {
    EngineRig rig;
    const std::vector<Handle> channels = fill(rig);
    const std::string path = test::mediaPath(kFile);
    EXPECT_EQ(rig.engine.BASS_StreamCreateFile(false, path, 0, 0, 0), kNoHandle);
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::noFreeChannel);
    EXPECT_NE(rig.engine.BASS_StreamCreateFile(false, path, 0, 0, BASS_STREAM_DECODE), kNoHandle);
    ASSERT_TRUE(rig.engine.BASS_StreamFree(channels.front()));
    rig.render(1024);
    EXPECT_NE(rig.engine.BASS_StreamCreateFile(false, path, 0, 0, 0), kNoHandle);
}

TEST(Limit, FreedChannelsMakeRoomAlsoWhileNothingIsTaken) {
    EngineRig rig;
    rig.device.stall(true);
    for (int round = 0; round < 3; ++round) {
        for (const Handle channel : fill(rig)) {
            ASSERT_TRUE(rig.start(channel));
            ASSERT_TRUE(rig.engine.BASS_StreamFree(channel));
        }
    }
    rig.device.stall(false);
    rig.render(1024);
    EXPECT_TRUE(test::silent(rig.render(1024)));
}

TEST(Limit, SixtyFourAreHeardTogether) {
    EngineRig rig;
    for (const Handle channel : fill(rig)) {
        ASSERT_TRUE(rig.engine.BASS_ChannelSetAttributes(channel, -1, 1, 0));
        ASSERT_TRUE(rig.start(channel));
    }
    const test::Stereo expected =
        test::scaled(test::cut(test::wavSamples(kFile), 0, 20000), 0.64F, 0.64F);
    EXPECT_LE(test::largestDifference(rig.render(20000), expected), 1e-4F);
}

TEST(Limit, FiveThousandOrdersBetweenTwoBlocks) {
    for (const FeederMode mode : {FeederMode::inCaller, FeederMode::ownThread}) {
        EngineRig rig({.feeder = mode});
        const Handle channel = rig.play(kFile);
        const Handle effect = rig.engine.BASS_ChannelSetFX(channel, BASS_FX_PARAMEQ);
        rig.render(1024);
        for (int i = 0; i < 5000; ++i) {
            if (i % 50 == 0) {
                ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, 1000 + i));
            } else if (i % 2 == 0) {
                ASSERT_TRUE(rig.engine.BASS_ChannelSetAttributes(channel, -1, i % 101, 0));
            } else {
                ASSERT_TRUE(rig.engine.BASS_FXSetParameters(effect, {1000.0F, 15.0F, 3.0F}));
            }
        }
        ASSERT_TRUE(rig.engine.BASS_FXSetParameters(effect, {1000.0F, 15.0F, 0.0F}));
        ASSERT_TRUE(rig.engine.BASS_ChannelSetAttributes(channel, -1, 50, 0));
        ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, 2 * 20000));
        rig.render(2048);
        const std::int64_t at = rig.engine.BASS_ChannelGetPosition(channel) / 2;
        EXPECT_GE(at, 20000);
        EXPECT_LE(at, 22048);
        if (mode == FeederMode::inCaller) {
            const auto frame = static_cast<std::size_t>(at);
            rig.render(20000); // the band rings out
            const test::Stereo source = test::wavSamples(kFile);
            test::expectSame(
                rig.render(2000),
                test::scaled(test::cut(source, frame + 20000, frame + 22000), 0.5F, 0.5F));
        }
    }
}

TEST(Limit, AStandstillOfTheDeviceHoldsUpNoOrder) {
    EngineRig rig({.feeder = FeederMode::ownThread});
    const Handle channel = rig.play(kFile);
    rig.render(512);
    rig.device.stall(true);
    for (int i = 0; i < 3000; ++i) {
        ASSERT_TRUE(rig.engine.BASS_ChannelSetAttributes(channel, -1, i % 101, 0));
    }
    ASSERT_TRUE(rig.engine.BASS_RecordInit(0));
    const auto routine = [](Handle, std::span<const std::int16_t>, std::uintptr_t) { return true; };
    EXPECT_NE(rig.engine.BASS_RecordStart(44100, 2, routine, 0), kNoHandle);
    EXPECT_TRUE(rig.engine.BASS_RecordFree());
    ASSERT_TRUE(rig.engine.BASS_Free());
    rig.device.stall(false);
    rig.render(2048);
    EXPECT_TRUE(test::silent(rig.render(1024)));
}

} // namespace tovik::sound
