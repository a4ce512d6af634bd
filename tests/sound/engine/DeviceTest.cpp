// SPDX-License-Identifier: GPL-3.0-or-later
// The output as a whole: begin, end, pause, stop and what is told about it.
#include "sound/engine/Buffers.h"

#include <functional>
#include <gtest/gtest.h>

namespace tovik::sound {

namespace {

using test::cut;
using test::EngineRig;
using test::kStereo;
using test::silent;
using test::wavSamples;

} // namespace

TEST(Device, InitRefusesWhatItCannotDo) {
    EngineRig rig({.initialize = false});
    EXPECT_FALSE(rig.engine.BASS_Init(2, 44100, 0, 0, 0));
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::illegalDevice);
    EXPECT_FALSE(rig.engine.BASS_Init(1, 48000, 0, 0, 0));
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::illegalRate);
    EXPECT_TRUE(rig.init());
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::ok);
    EXPECT_FALSE(rig.init());
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::alreadyInitialized);
}

TEST(Device, OperationsNeedInit) {
    EngineRig rig({.initialize = false});
    BASS_INFO info;
    for (const auto& call : std::vector<std::function<bool()>>{
             [&] { return rig.engine.BASS_Free(); }, [&] { return rig.engine.BASS_Start(); },
             [&] { return rig.engine.BASS_Pause(); }, [&] { return rig.engine.BASS_Stop(); },
             [&] { return rig.engine.BASS_GetInfo(info); }}) {
        EXPECT_FALSE(call());
        EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::notInitialized);
    }
}

TEST(Device, TellsOfItself) {
    EngineRig rig({.latencyFrames = 4410});
    EXPECT_EQ(rig.engine.BASS_GetVersion() >> 16U, 0U);
    EXPECT_EQ(rig.engine.BASS_GetVersion() & 0xFFFFU, 2U);
    BASS_INFO info;
    ASSERT_TRUE(rig.engine.BASS_GetInfo(info));
    EXPECT_EQ(info.dsver, 9U);
    EXPECT_EQ(info.latency, 100U);
    EXPECT_EQ(info.freq, 44100U);
    info.size = 59;
    EXPECT_FALSE(rig.engine.BASS_GetInfo(info));
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::illegalParameter);
}

TEST(Device, OptionsKeepTheirValue) {
    EngineRig rig;
    EXPECT_EQ(rig.engine.BASS_SetConfig(9, 5), 0U);
    EXPECT_EQ(rig.engine.BASS_SetConfig(9, 7), 5U);
    EXPECT_EQ(rig.engine.BASS_SetConfig(8, 1), 0xFFFFFFFFU);
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::illegalParameter);
}

TEST(Device, FreeKillsEveryHandleAndSilences) {
    EngineRig rig;
    const Handle stream = rig.play(kStereo);
    const Handle module = rig.play("song.mod");
    const Handle decoding = rig.open("mp3_vbr.mp3", BASS_STREAM_DECODE);
    rig.render(5000);
    ASSERT_TRUE(rig.engine.BASS_Free());
    for (const Handle channel : {stream, module, decoding}) {
        EXPECT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::stopped);
        EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::invalidHandle);
    }
    EXPECT_FALSE(silent(rig.render(200))) << "it fades";
    rig.render(1024);
    EXPECT_TRUE(silent(rig.render(1024)));
    EXPECT_FALSE(rig.engine.BASS_Free());
}

TEST(Device, InitMakesAnUnpausedState) {
    EngineRig rig;
    rig.play(kStereo);
    ASSERT_TRUE(rig.engine.BASS_Pause());
    rig.render(2000);
    ASSERT_TRUE(rig.engine.BASS_Free());
    ASSERT_TRUE(rig.init());
    EXPECT_TRUE(silent(rig.render(1000))) << "the old channel is gone";
    const Handle channel = rig.play(kStereo);
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::playing);
    EXPECT_FALSE(silent(rig.render(1000)));
    EXPECT_TRUE(rig.engine.BASS_Pause()) << "it was not paused any more";
}

TEST(Device, FreeAndInitLeaveTheDeviceOpen) {
    EngineRig rig;
    for (int i = 0; i < 10; ++i) {
        rig.play(kStereo);
        rig.render(1000);
        ASSERT_TRUE(rig.engine.BASS_Free());
        ASSERT_TRUE(rig.init());
    }
    EXPECT_EQ(rig.device.count(DeviceCall::opened), 1);
    EXPECT_EQ(rig.device.count(DeviceCall::closed), 0);
}

TEST(Device, IsClosedWhenIdleForLongAndOpenedAgainForAChannel) {
    KeeperTimes times = kNever;
    times.idleClose = std::chrono::milliseconds(20);
    EngineRig rig({.times = times});
    ASSERT_TRUE(rig.device.waitFor(DeviceCall::closed));
    const Handle channel = rig.play(kStereo);
    ASSERT_TRUE(rig.device.waitFor(DeviceCall::opened, 2));
    test::expectSame(rig.render(2000), cut(wavSamples(kStereo), 0, 2000));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 8000);
}

TEST(Device, PauseKeepsPositionsAndStartGoesOn) {
    EngineRig rig;
    const Handle channel = rig.play(kStereo);
    rig.render(5000);
    ASSERT_TRUE(rig.engine.BASS_Pause());
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::paused);
    EXPECT_FALSE(rig.engine.BASS_Pause());
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::notPlaying);
    rig.render(1024);
    const std::int64_t position = rig.engine.BASS_ChannelGetPosition(channel);
    EXPECT_EQ(position, 5220 * 4);
    EXPECT_TRUE(silent(rig.render(5000)));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), position);
    ASSERT_TRUE(rig.engine.BASS_Start());
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::playing);
    test::expectSame(cut(rig.render(2000), 220), cut(wavSamples(kStereo), 5440, 7220));
}

TEST(Device, PausedForLongRestsAndStillTakesOrders) {
    KeeperTimes times = kNever;
    times.pauseGrace = std::chrono::milliseconds(1);
    EngineRig rig({.times = times});
    const Handle channel = rig.play(kStereo);
    rig.render(5000);
    ASSERT_TRUE(rig.engine.BASS_Pause());
    ASSERT_TRUE(rig.device.waitFor(DeviceCall::paused));
    EXPECT_EQ(rig.device.advance(100), 0U);
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, 80000));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 80000);
    const Handle freed = rig.play("song.xm");
    ASSERT_TRUE(rig.engine.BASS_MusicFree(freed));
    ASSERT_TRUE(rig.engine.BASS_Start());
    ASSERT_TRUE(rig.device.waitFor(DeviceCall::resumed));
    test::expectSame(cut(rig.render(2000), 220), cut(wavSamples(kStereo), 20220, 22000));
}

TEST(Device, StopEndsEveryChannel) {
    EngineRig rig;
    const Handle stream = rig.play(kStereo);
    const Handle module = rig.play("song.it");
    rig.render(5000);
    ASSERT_TRUE(rig.engine.BASS_Stop());
    rig.render(2000);
    ASSERT_TRUE(rig.engine.BASS_Start());
    for (const Handle channel : {stream, module}) {
        EXPECT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::stopped);
        EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 0);
    }
    EXPECT_TRUE(silent(rig.render(2000)));
    ASSERT_TRUE(rig.start(stream));
    test::expectSame(rig.render(2000), cut(wavSamples(kStereo), 0, 2000));
}

TEST(Device, AChannelMadeForFreeingIsFreedByAStop) {
    EngineRig rig;
    const Handle kept = rig.play(kStereo);
    const Handle freed = rig.play(kStereo, BASS_STREAM_AUTOFREE);
    ASSERT_TRUE(rig.engine.BASS_ChannelStop(kept));
    ASSERT_TRUE(rig.engine.BASS_ChannelStop(freed));
    EXPECT_GT(rig.engine.BASS_StreamGetLength(kept), 0);
    EXPECT_EQ(rig.engine.BASS_StreamGetLength(freed), 0);
}

} // namespace tovik::sound
