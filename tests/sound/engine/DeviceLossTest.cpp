// SPDX-License-Identifier: GPL-3.0-or-later
// No device, a device that goes and comes back, and one that stands still.
#include "sound/engine/Buffers.h"

#include <gtest/gtest.h>

namespace tovik::sound {

namespace {

using test::cut;
using test::EngineRig;
using test::kStereo;
using test::wavSamples;

void lose(EngineRig& rig) {
    const int before = rig.observer.lost;
    rig.device.vanish();
    ASSERT_TRUE(eventually([&] { return rig.observer.lost == before + 1; }));
}

void bring(EngineRig& rig) {
    const int before = rig.observer.back;
    rig.device.arrive();
    ASSERT_TRUE(eventually([&] { return rig.observer.back == before + 1; }));
}

} // namespace

TEST(DeviceLoss, WithoutADeviceTheFirstInitFails) {
    EngineRig rig({.initialize = false});
    rig.device.vanish();
    EXPECT_FALSE(rig.init());
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::noDriver);
    EXPECT_FALSE(rig.init());
    rig.device.arrive();
    EXPECT_TRUE(rig.init());
}

TEST(DeviceLoss, AfterOneSuccessInitSucceedsWithoutADevice) {
    EngineRig rig;
    rig.play(kStereo);
    rig.render(1000);
    lose(rig);
    ASSERT_TRUE(rig.engine.BASS_Free());
    ASSERT_TRUE(rig.init());
    const Handle channel = rig.play(kStereo);
    EXPECT_EQ(rig.device.advance(1000), 0U);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 0);
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::playing);
    bring(rig);
    test::expectSame(rig.render(2000), cut(wavSamples(kStereo), 0, 2000));
}

TEST(DeviceLoss, HoldsThePositionAndGoesOnThere) {
    EngineRig rig({.latencyFrames = 1000});
    const Handle channel = rig.play(kStereo);
    rig.render(5000);
    lose(rig);
    const std::int64_t position = rig.engine.BASS_ChannelGetPosition(channel);
    EXPECT_GE(position, 4000 * 4);
    EXPECT_LE(position, 5000 * 4);
    EXPECT_EQ(rig.device.advance(5000), 0U);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), position);
    bring(rig);
    test::expectSame(cut(rig.render(3000), 220), cut(wavSamples(kStereo), 5220, 8000));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), (8000 - 1000) * 4);
}

TEST(DeviceLoss, IsToldOnceEachTime) {
    KeeperTimes times = kNever;
    times.retry = std::chrono::milliseconds(1);
    EngineRig rig({.times = times});
    rig.play(kStereo);
    for (int round = 1; round <= 3; ++round) {
        rig.render(500);
        lose(rig);
        ASSERT_TRUE(rig.device.waitFor(DeviceCall::refused, 3 * round));
        bring(rig);
        EXPECT_EQ(rig.observer.lost, round);
        EXPECT_EQ(rig.observer.back, round);
    }
}

TEST(DeviceLoss, OrdersMeanwhileAreKept) {
    EngineRig rig;
    const Handle channel = rig.play(kStereo);
    rig.render(5000);
    lose(rig);
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, 80000));
    ASSERT_TRUE(rig.engine.BASS_ChannelSetAttributes(channel, -1, 50, 0));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 80000);
    const Handle other = rig.play("song.xm");
    ASSERT_TRUE(rig.engine.BASS_MusicFree(other));
    bring(rig);
    // The ramps of the return and of the volume lie in its first 5 ms.
    test::expectSame(cut(rig.render(2000), 220),
                     test::scaled(cut(wavSamples(kStereo), 20220, 22000), 0.5F, 0.5F));
}

TEST(DeviceLoss, WhileFadingOutLeavesNothingBehind) {
    EngineRig rig({.blockFrames = 64});
    const Handle channel = rig.play(kStereo);
    rig.render(4096);
    ASSERT_TRUE(rig.engine.BASS_StreamFree(channel));
    rig.render(64);
    lose(rig);
    bring(rig);
    EXPECT_TRUE(test::silent(rig.render(2000)));
}

TEST(DeviceLoss, PausedChannelsStayPausedAcrossIt) {
    EngineRig rig;
    const Handle channel = rig.play(kStereo);
    rig.render(5000);
    ASSERT_TRUE(rig.engine.BASS_Pause());
    rig.render(1024);
    lose(rig);
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::paused);
    bring(rig);
    EXPECT_TRUE(test::silent(rig.render(2000)));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 5220 * 4);
}

} // namespace tovik::sound
