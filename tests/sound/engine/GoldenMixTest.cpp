// SPDX-License-Identifier: GPL-3.0-or-later
// The mix compared with what the numbers of the files give.
#include "sound/engine/Buffers.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace tovik::sound {

namespace {

using test::cut;
using test::EngineRig;
using test::expectSame;
using test::kStereo;
using test::largestDifference;
using test::scaled;
using test::Stereo;
using test::wavSamples;

constexpr const char* kMono = "wav_s16_44100_mono.wav";
constexpr std::size_t kFrames = 30000;
constexpr float kRounding = 1e-6F;

Stereo playedWith(int volume, int pan) {
    EngineRig rig;
    const Handle channel = rig.open(kStereo);
    EXPECT_TRUE(rig.engine.BASS_ChannelSetAttributes(channel, -1, volume, pan));
    EXPECT_TRUE(rig.start(channel));
    return rig.render(kFrames);
}

} // namespace

TEST(GoldenMix, VolumeIsLinear) {
    const Stereo source = cut(wavSamples(kStereo), 0, kFrames);
    for (const int volume : {0, 1, 25, 50, 99}) {
        const float gain = static_cast<float>(volume) / 100.0F;
        EXPECT_LE(largestDifference(playedWith(volume, 0), scaled(source, gain, gain)), kRounding)
            << volume;
    }
}

TEST(GoldenMix, PanTakesFromTheOtherSideLinearly) {
    const Stereo source = cut(wavSamples(kStereo), 0, kFrames);
    for (const int pan : {-100, -40, -1, 1, 75, 100}) {
        const float left = pan > 0 ? 1.0F - static_cast<float>(pan) / 100.0F : 1.0F;
        const float right = pan < 0 ? 1.0F + static_cast<float>(pan) / 100.0F : 1.0F;
        EXPECT_LE(largestDifference(playedWith(100, pan), scaled(source, left, right)), kRounding)
            << pan;
    }
}

TEST(GoldenMix, TwoChannelsAreSummed) {
    EngineRig rig;
    const Handle first = rig.open(kStereo);
    const Handle second = rig.open(kMono);
    ASSERT_TRUE(rig.engine.BASS_ChannelSetAttributes(first, -1, 50, 0));
    ASSERT_TRUE(rig.engine.BASS_ChannelSetAttributes(second, -1, 25, -100));
    ASSERT_TRUE(rig.start(first));
    ASSERT_TRUE(rig.start(second));
    Stereo expected = scaled(cut(wavSamples(kStereo), 0, kFrames), 0.5F, 0.5F);
    const Stereo other = scaled(cut(wavSamples(kMono), 0, kFrames), 0.25F, 0.0F);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        expected[i] += other[i];
    }
    EXPECT_LE(largestDifference(rig.render(kFrames), expected), kRounding);
}

TEST(GoldenMix, TheMasterVolumeScalesAllAndSurvivesInit) {
    EngineRig rig;
    ASSERT_TRUE(rig.engine.BASS_SetVolume(40));
    rig.render(512);
    const Stereo expected = scaled(cut(wavSamples(kStereo), 0, kFrames), 0.4F, 0.4F);
    rig.play(kStereo);
    EXPECT_LE(largestDifference(rig.render(kFrames), expected), kRounding);
    ASSERT_TRUE(rig.engine.BASS_Free());
    rig.render(2000);
    ASSERT_TRUE(rig.init());
    rig.play(kStereo);
    EXPECT_LE(largestDifference(rig.render(kFrames), expected), kRounding);
    EXPECT_FALSE(rig.engine.BASS_SetVolume(101));
    EXPECT_FALSE(rig.engine.BASS_SetVolume(-1));
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::illegalParameter);
}

TEST(GoldenMix, LoudSumsStayWithinFullScale) {
    EngineRig rig;
    for (int i = 0; i < 4; ++i) {
        rig.play(kStereo);
    }
    const Stereo mix = rig.render(kFrames);
    float largest = 0.0F;
    for (const float sample : mix) {
        largest = std::max(largest, std::abs(sample));
    }
    EXPECT_LE(largest, 1.0F);
    EXPECT_GT(largest, 0.9F);
}

TEST(GoldenMix, LosslessFormatsEqualTheirSource) {
    for (const auto& [name, source] :
         {std::pair("flac_16_44100.flac", kStereo), std::pair("flac_no_seektable.flac", kStereo),
          std::pair("flac_24_44100.flac", "wav_s24_44100_stereo.wav"),
          std::pair("aiff_s16_44100_stereo.aif", kStereo)}) {
        EngineRig rig;
        rig.play(name);
        const Stereo expected = wavSamples(source);
        expectSame(rig.render(expected.size() / 2), expected, name);
    }
}

TEST(GoldenMix, LossyFormatsSoundLikeTheirSource) {
    // The error of a lossy coder is noise well below the sound, in the right place in time.
    const double size = test::effectiveSize(wavSamples(kStereo));
    for (const char* name : {"mp3_cbr128.mp3", "mp3_abr.mp3", "ogg_44100.ogg", "mp3_id3v1.mp3",
                             "mp3_id3v2_large.mp3"}) {
        EngineRig rig;
        rig.play(name);
        const Stereo expected = wavSamples(kStereo);
        Stereo error = rig.render(expected.size() / 2);
        ASSERT_EQ(error.size(), expected.size());
        for (std::size_t i = 0; i < error.size(); ++i) {
            error[i] -= expected[i];
        }
        EXPECT_LT(test::effectiveSize(error), 0.25 * size) << name;
    }
}

TEST(GoldenMix, AnotherRateKeepsPitchAndLevel) {
    const test::TemporaryFolder folder;
    for (const int rate : {8000, 22050, 48000, 96000}) {
        EngineRig rig;
        const std::string path = folder / (std::to_string(rate) + ".wav");
        test::writeWav(path, test::sine(1000.0, 0.5F, static_cast<std::size_t>(2 * rate), rate),
                       rate);
        rig.playStream(path);
        const Stereo mix = rig.render(88200);
        // The filter needs a while at both ends.
        const Stereo expected = test::sine(1000.0, 0.5F, 88200);
        EXPECT_LE(largestDifference(cut(mix, 2000, 86000), cut(expected, 2000, 86000)), 1e-3F)
            << rate;
        EXPECT_TRUE(test::silent(rig.render(1000))) << rate;
    }
}

} // namespace tovik::sound
