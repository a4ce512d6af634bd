// SPDX-License-Identifier: GPL-3.0-or-later
// Handles: of two kinds, never given out twice, harmless when dead; and operations that are not
// available.
#include "sound/engine/EngineRig.h"

#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <set>

namespace tovik::sound {

namespace {

using test::EngineRig;

/// What every operation on a channel says of a handle that names none.
void expectDead(SoundLibrary& e, Handle handle) {
    const auto fails = [&e](bool result) {
        return !result && e.BASS_ErrorGetCode() == ErrorCode::invalidHandle;
    };
    int number = 7;
    BASS_CHANNELINFO info;
    BASS_FXPARAMEQ parameters{1000.0F, 15.0F, 3.0F};
    std::array<float, 256> data{};
    EXPECT_EQ(e.BASS_ChannelGetPosition(handle), 0);
    EXPECT_EQ(e.BASS_StreamGetLength(handle), 0);
    EXPECT_EQ(e.BASS_MusicGetLength(handle, true), 0);
    EXPECT_EQ(e.BASS_MusicGetLength(handle, false), 0);
    EXPECT_EQ(e.BASS_ChannelGetLevel(handle), -1);
    EXPECT_EQ(e.BASS_ChannelGetData(handle, data.data(), 16), -1);
    EXPECT_EQ(e.BASS_ChannelGetData(handle, data.data(), BASS_DATA_FFT512), -1);
    EXPECT_EQ(e.BASS_ChannelIsActive(handle), Activity::stopped);
    EXPECT_EQ(e.BASS_ChannelBytes2Seconds(handle, 44100), 0.0);
    EXPECT_EQ(e.BASS_ChannelSeconds2Bytes(handle, 1.0), 0);
    EXPECT_EQ(e.BASS_WMA_GetIWMReader(handle), 0U);
    EXPECT_TRUE(fails(e.BASS_ChannelSetPosition(handle, 0)));
    EXPECT_TRUE(fails(e.BASS_ChannelGetAttributes(handle, number, number, number)));
    EXPECT_EQ(number, 7);
    EXPECT_TRUE(fails(e.BASS_ChannelSetAttributes(handle, -1, 50, 0)));
    EXPECT_TRUE(fails(e.BASS_ChannelSlideAttributes(handle, -1, 50, 0, 100)));
    EXPECT_TRUE(fails(e.BASS_ChannelGetInfo(handle, info)));
    EXPECT_TRUE(fails(e.BASS_ChannelStop(handle)));
    EXPECT_TRUE(fails(e.BASS_ChannelSetSync(handle, 0, 0, {}, 0) != kNoHandle));
    EXPECT_TRUE(fails(e.BASS_ChannelSetFX(handle, BASS_FX_PARAMEQ) != kNoHandle));
    EXPECT_TRUE(fails(e.BASS_FXGetParameters(handle, parameters)));
    EXPECT_TRUE(fails(e.BASS_FXSetParameters(handle, parameters)));
    EXPECT_TRUE(fails(e.BASS_StreamPlay(handle, false, 0)));
    EXPECT_TRUE(fails(e.BASS_MusicPlay(handle)));
    EXPECT_TRUE(fails(e.BASS_StreamFree(handle)));
    EXPECT_TRUE(fails(e.BASS_MusicFree(handle)));
}

} // namespace

TEST(Handles, DeadOnesFailWithoutEffect) {
    EngineRig rig;
    const Handle stream = rig.play("wav_s16_44100_stereo.wav");
    const Handle module = rig.play("song.xm");
    const Handle living = rig.play("wav_s16_44100_mono.wav");
    ASSERT_TRUE(rig.engine.BASS_StreamFree(stream));
    ASSERT_TRUE(rig.engine.BASS_MusicFree(module));
    for (const Handle dead : {kNoHandle, stream, module, Handle{123456}, Handle{0xFFFFFFFF}}) {
        expectDead(rig.engine, dead);
    }
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(living), Activity::playing);
    ASSERT_TRUE(rig.engine.BASS_Free());
    expectDead(rig.engine, living);
}

TEST(Handles, AFilterIsNoChannelAndAChannelNoFilter) {
    EngineRig rig;
    const Handle stream = rig.open("wav_s16_44100_stereo.wav");
    const Handle effect = rig.engine.BASS_ChannelSetFX(stream, BASS_FX_PARAMEQ);
    ASSERT_NE(effect, kNoHandle);
    EXPECT_FALSE(rig.engine.BASS_StreamPlay(effect, false, 0));
    BASS_FXPARAMEQ parameters;
    EXPECT_FALSE(rig.engine.BASS_FXGetParameters(stream, parameters));
    EXPECT_TRUE(rig.engine.BASS_FXGetParameters(effect, parameters));
}

TEST(Handles, AreNeverGivenOutTwice) {
    EngineRig rig;
    std::set<Handle> seen;
    for (int round = 0; round < 20; ++round) {
        const Handle stream = rig.open("wav_s16_8000_mono.wav");
        const Handle effect = rig.engine.BASS_ChannelSetFX(stream, BASS_FX_PARAMEQ);
        const Handle sync = rig.engine.BASS_ChannelSetSync(stream, 2, 0, {}, 0);
        for (const Handle handle : {stream, effect, sync}) {
            EXPECT_NE(handle, kNoHandle);
            EXPECT_TRUE(seen.insert(handle).second);
        }
        rig.engine.BASS_StreamFree(stream);
        if (round % 5 == 4) {
            ASSERT_TRUE(rig.engine.BASS_Free());
            ASSERT_TRUE(rig.init());
        }
    }
}

TEST(Handles, StreamOperationsDoNothingToAModule) {
    EngineRig rig;
    const Handle module = rig.open("song.it");
    EXPECT_FALSE(rig.engine.BASS_StreamPlay(module, true, 0));
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::invalidHandle);
    EXPECT_EQ(rig.engine.BASS_StreamGetLength(module), -1);
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(module), Activity::stopped);
    ASSERT_TRUE(rig.engine.BASS_MusicPlay(module));
    EXPECT_FALSE(rig.engine.BASS_StreamFree(module));
    rig.render(2000);
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(module), Activity::playing);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(module), 8000);
}

TEST(Handles, MusicOperationsDoNothingToAStream) {
    EngineRig rig;
    const Handle stream = rig.open("flac_16_44100.flac");
    EXPECT_FALSE(rig.engine.BASS_MusicPlay(stream));
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::invalidHandle);
    EXPECT_EQ(rig.engine.BASS_MusicGetLength(stream, true), 0);
    EXPECT_FALSE(rig.engine.BASS_MusicFree(stream));
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(stream), Activity::stopped);
    ASSERT_TRUE(rig.engine.BASS_StreamPlay(stream, false, 0));
    rig.render(2000);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(stream), 8000);
}

TEST(Handles, OnlyAWmaStreamHasAReader) {
    EngineRig rig;
    EXPECT_GT(rig.engine.BASS_WMA_GetIWMReader(rig.open("wma_44100.wma")), 0U);
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::ok);
    EXPECT_EQ(rig.engine.BASS_WMA_GetIWMReader(rig.open("mp3_vbr.mp3")), 0U);
    EXPECT_EQ(rig.engine.BASS_WMA_GetIWMReader(rig.open("song.mod")), 0U);
}

TEST(NotAvailable, IsToldByEveryOperationOfTheseFamilies) {
    EngineRig rig;
    SoundLibrary& e = rig.engine;
    const Handle playing = rig.play("wav_s16_44100_stereo.wav");
    const std::vector<std::function<bool()>> calls = {
        [&] { return e.BASS_SONIQUEVIS_CreateFakeSoniqueWnd(); },
        [&] { return e.BASS_SONIQUEVIS_CreateVis("a.svp", "a.ini", 0, 9, 9) != kNoHandle; },
        [&] { return !e.BASS_SONIQUEVIS_GetName(1).empty(); },
        [&] { return e.BASS_SONIQUEVIS_Render(1, playing, {}); },
        [&] { return e.BASS_SONIQUEVIS_Clicked(1, 0, 0); },
        [&] { return e.BASS_SONIQUEVIS_Resize(1, 9, 9); },
        [&] { return e.BASS_SONIQUEVIS_Free(1); },
    };
    for (std::size_t i = 0; i < calls.size(); ++i) {
        EXPECT_FALSE(calls[i]()) << i;
        EXPECT_EQ(e.BASS_ErrorGetCode(), ErrorCode::notAvailable) << i;
        // A success between tells apart what each call has noted.
        EXPECT_EQ(e.BASS_ChannelIsActive(playing), Activity::playing);
        EXPECT_EQ(e.BASS_ErrorGetCode(), ErrorCode::ok) << i;
    }
}

} // namespace tovik::sound
