// SPDX-License-Identifier: GPL-3.0-or-later
// Channels that the caller reads himself, and the spectrum of those that are heard.
#include "sound/engine/Buffers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>

namespace tovik::sound {

namespace {

using test::EngineRig;
using test::kStereo;
using test::wavSamples;

/// All that GetData gives, read in pieces of `bytes`.
std::vector<std::int16_t> readAll(EngineRig& rig, Handle channel, std::uint32_t bytes) {
    std::vector<std::int16_t> all;
    std::vector<std::int16_t> piece(bytes / 2 + 1);
    for (;;) {
        const std::int32_t got = rig.engine.BASS_ChannelGetData(channel, piece.data(), bytes);
        EXPECT_GE(got, 0);
        if (got <= 0) {
            return all;
        }
        EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::ok);
        all.insert(all.end(), piece.begin(), piece.begin() + got / 2);
    }
}

std::array<float, 256> spectrum(EngineRig& rig, Handle channel) {
    std::array<float, 256> bins{};
    EXPECT_EQ(rig.engine.BASS_ChannelGetData(channel, bins.data(), BASS_DATA_FFT512), 1024);
    return bins;
}

} // namespace

TEST(DecodingChannel, GivesEverySampleOfTheFile) {
    const test::Stereo source = wavSamples(kStereo);
    for (const std::uint32_t bytes : {4U, 999U, 20000U}) {
        EngineRig rig;
        const Handle channel = rig.open(kStereo, BASS_STREAM_DECODE);
        if (bytes == 4) {
            ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, rig.length(channel) - 4000));
        }
        const std::vector<std::int16_t> read = readAll(rig, channel, bytes);
        const std::size_t from = bytes == 4 ? source.size() - 2000 : 0;
        ASSERT_EQ(read.size(), source.size() - from);
        for (std::size_t i = 0; i < read.size(); ++i) {
            ASSERT_EQ(static_cast<float>(read[i]), source[from + i] * 32768.0F) << i;
        }
    }
}

TEST(DecodingChannel, KeepsItsOwnRateAndChannels) {
    EngineRig rig;
    const Handle channel = rig.open("wav_s16_22050_mono.wav", BASS_STREAM_DECODE);
    const std::vector<std::int16_t> read = readAll(rig, channel, 8192);
    EXPECT_EQ(static_cast<std::int64_t>(read.size()) * 2, rig.length(channel));
    EXPECT_EQ(rig.length(channel), 66287 * 2);
}

TEST(DecodingChannel, IsActiveUntilAllIsRead) {
    EngineRig rig;
    const Handle channel = rig.open("mp3_vbr_no_xing.mp3", BASS_STREAM_DECODE);
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::playing);
    std::array<std::int16_t, 2000> some{};
    ASSERT_EQ(rig.engine.BASS_ChannelGetData(channel, some.data(), 4000), 4000);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 4000);
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::playing);
    readAll(rig, channel, 65536);
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::stopped);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), rig.length(channel));
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, 8000));
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::playing);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 8000);
}

TEST(DecodingChannel, IsNeverHeard) {
    EngineRig rig;
    const Handle channel = rig.open(kStereo, BASS_STREAM_DECODE);
    EXPECT_FALSE(rig.engine.BASS_StreamPlay(channel, false, 0));
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::decodingChannel);
    EXPECT_EQ(rig.engine.BASS_ChannelGetLevel(channel), -1);
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::decodingChannel);
    EXPECT_TRUE(test::silent(rig.render(2000)));
}

TEST(DecodingChannel, NeedsNoRunningDevice) {
    EngineRig rig;
    rig.device.stall(true);
    const Handle channel = rig.open(kStereo, BASS_STREAM_DECODE);
    EXPECT_EQ(readAll(rig, channel, 65536).size(), wavSamples(kStereo).size());
}

TEST(DecodingChannel, DiesWithFreeAndWithAStopIfMadeSo) {
    EngineRig rig;
    const Handle first = rig.open(kStereo, BASS_STREAM_DECODE);
    const Handle second = rig.open(kStereo, BASS_STREAM_DECODE | BASS_STREAM_AUTOFREE);
    std::array<std::int16_t, 4> some{};
    ASSERT_TRUE(rig.engine.BASS_ChannelStop(second));
    EXPECT_EQ(rig.engine.BASS_ChannelGetData(second, some.data(), 8), -1);
    EXPECT_EQ(rig.engine.BASS_ChannelGetData(first, some.data(), 8), 8);
    ASSERT_TRUE(rig.engine.BASS_ChannelStop(first));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(first), 0);
    ASSERT_TRUE(rig.engine.BASS_Free());
    EXPECT_EQ(rig.engine.BASS_ChannelGetData(first, some.data(), 8), -1);
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::invalidHandle);
}

TEST(DecodingChannel, RefusesOddRequests) {
    EngineRig rig;
    const Handle decoding = rig.open(kStereo, BASS_STREAM_DECODE);
    const Handle heard = rig.play(kStereo);
    std::array<float, 256> some{};
    EXPECT_EQ(rig.engine.BASS_ChannelGetData(decoding, nullptr, 8), -1);
    EXPECT_EQ(rig.engine.BASS_ChannelGetData(decoding, some.data(), 0), 0);
    EXPECT_EQ(rig.engine.BASS_ChannelGetData(decoding, some.data(), BASS_DATA_FFT512), -1);
    EXPECT_EQ(rig.engine.BASS_ChannelGetData(heard, some.data(), 8), -1);
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::notAvailable);
}

TEST(SpectrumOfAChannel, PeaksWhereTheSineIs) {
    for (const std::size_t bin : {8U, 40U, 200U}) {
        EngineRig rig({.latencyFrames = 1000});
        const test::TemporaryFolder folder;
        const double hertz = static_cast<double>(bin) * 44100.0 / 512.0;
        test::writeWav(folder / "sine.wav", test::sine(hertz, 0.5F, 60000));
        const Handle channel = rig.playStream(folder / "sine.wav");
        rig.render(2048);
        spectrum(rig, channel); // from now on somebody looks
        rig.render(4096);
        const std::array<float, 256> bins = spectrum(rig, channel);
        EXPECT_EQ(std::ranges::max_element(bins) - bins.begin(), static_cast<std::ptrdiff_t>(bin));
        EXPECT_NEAR(bins.at(bin), 0.5F, 0.01F);
        EXPECT_LT(bins.at(bin - 5), 0.001F);
    }
}

TEST(SpectrumOfAChannel, IsNothingInSilence) {
    EngineRig rig;
    const Handle channel = rig.play("silence.wav");
    rig.render(2048);
    spectrum(rig, channel);
    rig.render(4096);
    for (const float bin : spectrum(rig, channel)) {
        EXPECT_EQ(bin, 0.0F);
    }
}

} // namespace tovik::sound
