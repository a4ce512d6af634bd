// SPDX-License-Identifier: GPL-3.0-or-later
// The ten bands through the operations.
#include "sound/engine/Buffers.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tovik::sound {

namespace {

using test::cut;
using test::EngineRig;
using test::Stereo;

constexpr std::array kCentres = {31.25F,  62.5F,   125.0F,  250.0F,  500.0F,
                                 1000.0F, 2000.0F, 4000.0F, 8000.0F, 16000.0F};
constexpr float kBandwidth = 15.0F;
constexpr float kAmplitude = 0.1F;

class Filter : public testing::Test {
protected:
    Handle openSine(double hertz) {
        test::writeWav(path_, test::sine(hertz, kAmplitude, 132300));
        return rig_.openStream(path_);
    }

    /// Gain in dB of what is rendered once the bands have settled.
    double measuredGain() {
        rig_.render(44100);
        return 20.0 * std::log10(test::effectiveSize(rig_.render(44100)) /
                                 (static_cast<double>(kAmplitude) / std::sqrt(2.0)));
    }

    EngineRig rig_;
    SoundLibrary& engine_ = rig_.engine;

private:
    test::TemporaryFolder folder_;

protected:
    const std::string path_ = folder_ / "sine.wav";
};

} // namespace

TEST_F(Filter, RaisesAndLowersItsCentre) {
    for (const float centre : kCentres) {
        for (const float gain : {-15.0F, -3.0F, 6.0F, 15.0F}) {
            const Handle channel = openSine(static_cast<double>(centre));
            const Handle effect = engine_.BASS_ChannelSetFX(channel, BASS_FX_PARAMEQ);
            ASSERT_TRUE(engine_.BASS_FXSetParameters(effect, {centre, kBandwidth, gain}));
            ASSERT_TRUE(rig_.start(channel));
            EXPECT_NEAR(measuredGain(), static_cast<double>(gain), 0.2) << centre << " Hz";
            ASSERT_TRUE(engine_.BASS_StreamFree(channel));
            rig_.render(1024);
        }
    }
}

TEST_F(Filter, TenWorkTogether) {
    const Handle channel = openSine(1000.0);
    double expected = 0.0;
    for (const float centre : kCentres) {
        const Handle effect = engine_.BASS_ChannelSetFX(channel, BASS_FX_PARAMEQ);
        const float gain = centre == 1000.0F ? 6.0F : centre < 1000.0F ? 2.0F : -1.0F;
        ASSERT_TRUE(engine_.BASS_FXSetParameters(effect, {centre, kBandwidth, gain}));
        const BandCoefficients band =
            peakingFilter(static_cast<double>(centre), static_cast<double>(kBandwidth),
                          static_cast<double>(gain), 44100.0);
        expected += gainDbAt(band, 1000.0, 44100.0);
    }
    ASSERT_TRUE(rig_.start(channel));
    EXPECT_NEAR(measuredGain(), expected, 0.05);
}

TEST_F(Filter, AtHalfTheRateOrAboveDoesNothing) {
    for (const float centre : {22050.0F, 30000.0F}) {
        const Handle channel = openSine(15000.0);
        const Handle effect = engine_.BASS_ChannelSetFX(channel, BASS_FX_PARAMEQ);
        ASSERT_TRUE(engine_.BASS_FXSetParameters(effect, {centre, kBandwidth, 15.0F}));
        ASSERT_TRUE(rig_.start(channel));
        test::expectSame(rig_.render(5000), cut(test::sine(15000.0, kAmplitude, 5000), 0));
        ASSERT_TRUE(engine_.BASS_StreamFree(channel));
        rig_.render(1024);
    }
}

TEST_F(Filter, ElevenAreOneTooMany) {
    const Handle channel = openSine(1000.0);
    for (int band = 0; band < 10; ++band) {
        EXPECT_NE(engine_.BASS_ChannelSetFX(channel, BASS_FX_PARAMEQ), kNoHandle);
    }
    EXPECT_EQ(engine_.BASS_ChannelSetFX(channel, BASS_FX_PARAMEQ), kNoHandle);
    EXPECT_EQ(engine_.BASS_ErrorGetCode(), ErrorCode::noFreeChannel);
}

TEST_F(Filter, NeedsTheRightChannelAndType) {
    const Handle plain = rig_.open("wav_s16_44100_mono.wav", 0);
    EXPECT_EQ(engine_.BASS_ChannelSetFX(plain, BASS_FX_PARAMEQ), kNoHandle);
    EXPECT_EQ(engine_.BASS_ErrorGetCode(), ErrorCode::effectsNotEnabled);
    const Handle decoding =
        rig_.open("wav_s16_44100_mono.wav", BASS_STREAM_DECODE | BASS_SAMPLE_FX);
    EXPECT_EQ(engine_.BASS_ChannelSetFX(decoding, BASS_FX_PARAMEQ), kNoHandle);
    EXPECT_EQ(engine_.BASS_ErrorGetCode(), ErrorCode::decodingChannel);
    const Handle ready = rig_.open("wav_s16_44100_mono.wav", BASS_SAMPLE_FX);
    EXPECT_EQ(engine_.BASS_ChannelSetFX(ready, 0), kNoHandle);
    EXPECT_EQ(engine_.BASS_ErrorGetCode(), ErrorCode::illegalType);
}

TEST_F(Filter, KeepsItsParametersAndRefusesNonsense) {
    const Handle channel = openSine(1000.0);
    const Handle effect = engine_.BASS_ChannelSetFX(channel, BASS_FX_PARAMEQ);
    BASS_FXPARAMEQ read;
    ASSERT_TRUE(engine_.BASS_FXGetParameters(effect, read));
    EXPECT_EQ(read.fGain, 0.0F) << "flat at first";
    ASSERT_TRUE(engine_.BASS_FXSetParameters(effect, {125.0F, 15.0F, -7.5F}));
    constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
    for (const BASS_FXPARAMEQ bad :
         {BASS_FXPARAMEQ{0.0F, 15.0F, 1.0F}, BASS_FXPARAMEQ{125.0F, 0.0F, 1.0F},
          BASS_FXPARAMEQ{125.0F, 15.0F, kNone}, BASS_FXPARAMEQ{kNone, 15.0F, 1.0F}}) {
        EXPECT_FALSE(engine_.BASS_FXSetParameters(effect, bad));
        EXPECT_EQ(engine_.BASS_ErrorGetCode(), ErrorCode::illegalParameter);
    }
    ASSERT_TRUE(engine_.BASS_FXGetParameters(effect, read));
    EXPECT_EQ(read.fCenter, 125.0F);
    EXPECT_EQ(read.fBandwidth, 15.0F);
    EXPECT_EQ(read.fGain, -7.5F);
    ASSERT_TRUE(engine_.BASS_StreamFree(channel));
    EXPECT_FALSE(engine_.BASS_FXSetParameters(effect, {125.0F, 15.0F, 1.0F}));
    EXPECT_EQ(engine_.BASS_ErrorGetCode(), ErrorCode::invalidHandle);
}

TEST_F(Filter, StaysAcrossASeekAndARestart) {
    const Handle channel = openSine(1000.0);
    const Handle effect = engine_.BASS_ChannelSetFX(channel, BASS_FX_PARAMEQ);
    ASSERT_TRUE(engine_.BASS_FXSetParameters(effect, {1000.0F, kBandwidth, 6.0F}));
    ASSERT_TRUE(rig_.start(channel));
    rig_.render(5000);
    ASSERT_TRUE(engine_.BASS_ChannelSetPosition(channel, 4 * 20000));
    EXPECT_NEAR(measuredGain(), 6.0, 0.2);
    ASSERT_TRUE(engine_.BASS_ChannelStop(channel));
    rig_.render(2000);
    ASSERT_TRUE(engine_.BASS_StreamPlay(channel, false, 0));
    EXPECT_NEAR(measuredGain(), 6.0, 0.2);
}

TEST_F(Filter, IsNeutralAgainWhenSetToNothing) {
    const Handle channel = openSine(1000.0);
    const Handle effect = engine_.BASS_ChannelSetFX(channel, BASS_FX_PARAMEQ);
    ASSERT_TRUE(engine_.BASS_FXSetParameters(effect, {1000.0F, kBandwidth, 6.0F}));
    ASSERT_TRUE(rig_.start(channel));
    rig_.render(20000);
    ASSERT_TRUE(engine_.BASS_FXSetParameters(effect, {1000.0F, kBandwidth, 0.0F}));
    rig_.render(20000);
    test::expectSame(rig_.render(5000), cut(test::sine(1000.0, kAmplitude, 45000), 40000));
}

TEST_F(Filter, WorksOnModules) {
    const Handle plain = rig_.play("song.xm", 0);
    rig_.render(2000);
    const double before = test::effectiveSize(rig_.render(44100));
    ASSERT_TRUE(engine_.BASS_MusicFree(plain));
    rig_.render(1024);
    const Handle module = rig_.open("song.xm", 0);
    for (const float centre : kCentres) {
        const Handle effect = engine_.BASS_ChannelSetFX(module, BASS_FX_PARAMEQ);
        ASSERT_NE(effect, kNoHandle);
        ASSERT_TRUE(engine_.BASS_FXSetParameters(effect, {centre, kBandwidth, -12.0F}));
    }
    ASSERT_TRUE(rig_.start(module));
    rig_.render(2000);
    EXPECT_LT(test::effectiveSize(rig_.render(44100)), 0.25 * before);
}

} // namespace tovik::sound
