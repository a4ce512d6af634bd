// SPDX-License-Identifier: GPL-3.0-or-later
// The level of a channel.
#include "sound/engine/Buffers.h"

#include <cmath>
#include <gtest/gtest.h>

namespace tovik::sound {

namespace {

using test::EngineRig;
using test::Stereo;

constexpr std::int32_t packed(int left, int right) {
    return left | right << 16;
}

class Level : public testing::Test {
protected:
    /// The level while a file of this frame alone plays.
    std::int32_t levelOf(float left, float right) {
        Stereo samples(20000);
        for (std::size_t i = 0; i < samples.size(); i += 2) {
            samples[i] = left;
            samples[i + 1] = right;
        }
        test::writeWav(path_, samples);
        channel_ = rig_.playStream(path_);
        rig_.render(1024);
        return rig_.engine.BASS_ChannelGetLevel(channel_);
    }

    EngineRig rig_;
    Handle channel_ = kNoHandle;

private:
    test::TemporaryFolder folder_;

protected:
    const std::string path_ = folder_ / "level.wav";
};

} // namespace

TEST_F(Level, IsRoundedUpSoThatOnlySilenceIsNothing) {
    EXPECT_EQ(levelOf(0.0F, 0.0F), packed(0, 0));
    EXPECT_EQ(levelOf(1.0F, -1.0F), packed(128, 128));
    EXPECT_EQ(levelOf(0.5F, -0.25F), packed(64, 32));
    EXPECT_EQ(levelOf(1e-9F, 0.0F), packed(1, 0));
    EXPECT_EQ(levelOf(1.0F / 128.0F, 1.001F / 128.0F), packed(1, 2));
}

TEST_F(Level, OfADigitallySilentFileIsNothingAllTheTime) {
    const Handle channel = rig_.play("silence.wav");
    for (int i = 0; i < 100; ++i) {
        rig_.render(1000);
        ASSERT_EQ(rig_.engine.BASS_ChannelGetLevel(channel), 0);
    }
}

TEST_F(Level, IsMeasuredBeforeVolumePanAndBands) {
    test::writeWav(path_, Stereo(40000, 0.5F));
    const Handle channel = rig_.openStream(path_);
    const Handle effect = rig_.engine.BASS_ChannelSetFX(channel, BASS_FX_PARAMEQ);
    ASSERT_TRUE(rig_.engine.BASS_FXSetParameters(effect, {60.0F, 15.0F, -15.0F}));
    ASSERT_TRUE(rig_.engine.BASS_ChannelSetAttributes(channel, -1, 0, 100));
    ASSERT_TRUE(rig_.engine.BASS_SetVolume(0));
    ASSERT_TRUE(rig_.start(channel));
    EXPECT_TRUE(test::silent(rig_.render(1024)));
    EXPECT_EQ(rig_.engine.BASS_ChannelGetLevel(channel), packed(64, 64));
}

TEST_F(Level, IsTheLoudestOfTheLastBlock) {
    Stereo samples(4096);
    samples[1600] = -0.75F;
    test::writeWav(path_, samples);
    const Handle channel = rig_.playStream(path_);
    rig_.render(512);
    EXPECT_EQ(rig_.engine.BASS_ChannelGetLevel(channel), 0);
    rig_.render(512);
    EXPECT_EQ(rig_.engine.BASS_ChannelGetLevel(channel), packed(96, 0));
    rig_.render(512);
    EXPECT_EQ(rig_.engine.BASS_ChannelGetLevel(channel), 0);
}

TEST_F(Level, IsNothingBeforeTheStartAtTheEndAndAfterAStop) {
    test::writeWav(path_, Stereo(4000, 0.5F));
    const Handle channel = rig_.openStream(path_);
    EXPECT_EQ(rig_.engine.BASS_ChannelGetLevel(channel), 0);
    ASSERT_TRUE(rig_.start(channel));
    rig_.render(1024);
    EXPECT_EQ(rig_.engine.BASS_ChannelGetLevel(channel), packed(64, 64));
    rig_.render(2048);
    EXPECT_EQ(rig_.engine.BASS_ChannelIsActive(channel), Activity::stopped);
    EXPECT_EQ(rig_.engine.BASS_ChannelGetLevel(channel), 0);
    ASSERT_TRUE(rig_.engine.BASS_StreamPlay(channel, false, 0));
    rig_.render(1024);
    ASSERT_TRUE(rig_.engine.BASS_ChannelStop(channel));
    EXPECT_EQ(rig_.engine.BASS_ChannelGetLevel(channel), 0);
    rig_.render(1024);
    EXPECT_EQ(rig_.engine.BASS_ChannelGetLevel(channel), 0);
}

TEST_F(Level, IsLessThanNothingWhilePaused) {
    EXPECT_GT(levelOf(0.5F, 0.5F), 0);
    ASSERT_TRUE(rig_.engine.BASS_Pause());
    EXPECT_EQ(rig_.engine.BASS_ChannelGetLevel(channel_), -1);
    rig_.render(1024);
    EXPECT_EQ(rig_.engine.BASS_ChannelGetLevel(channel_), -1);
    ASSERT_TRUE(rig_.engine.BASS_Start());
    rig_.render(1024);
    EXPECT_EQ(rig_.engine.BASS_ChannelGetLevel(channel_), packed(64, 64));
}

TEST_F(Level, OfModulesAndOtherRatesIsMeasuredToo) {
    for (const char* name : {"song.xm", "wav_s16_22050_mono.wav", "mp3_48000.mp3"}) {
        const Handle channel = rig_.play(name);
        rig_.render(20480);
        const auto level = static_cast<std::uint32_t>(rig_.engine.BASS_ChannelGetLevel(channel));
        EXPECT_GT(level & 0xFFFFU, 0U) << name;
        EXPECT_LE(level & 0xFFFFU, 128U) << name;
        EXPECT_GT(level >> 16U, 0U) << name;
        EXPECT_LE(level >> 16U, 128U) << name;
    }
}

} // namespace tovik::sound
