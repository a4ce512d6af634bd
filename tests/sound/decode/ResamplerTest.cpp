// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/Resampler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace tovik::sound::test {
namespace {

std::vector<float> sine(double hz, int rate, std::size_t frames, std::size_t channels) {
    std::vector<float> samples;
    for (std::size_t n = 0; n < frames; ++n) {
        const double time = static_cast<double>(n) / rate;
        const double value = 0.5 * std::sin(2.0 * std::numbers::pi * hz * time);
        samples.insert(samples.end(), channels, static_cast<float>(value));
    }
    return samples;
}

// Converts the whole input in blocks of `block` frames.
std::vector<float> convert(Resampler& resampler, std::span<const float> in, std::size_t channels,
                           std::size_t block = 1000) {
    std::vector<float> all;
    std::vector<float> out;
    for (std::size_t at = 0; at < in.size(); at += block * channels) {
        const auto part = in.subspan(at, std::min(block * channels, in.size() - at));
        out.resize(2 * resampler.mostOutput(part.size() / channels));
        const std::size_t got = resampler.process(part, out);
        EXPECT_LE(2 * got, out.size());
        all.insert(all.end(), out.begin(), out.begin() + static_cast<std::ptrdiff_t>(2 * got));
    }
    constexpr std::size_t kFlushFrames = 317;
    out.resize(2 * kFlushFrames);
    while (const std::size_t got = resampler.flush(out)) {
        all.insert(all.end(), out.begin(), out.begin() + static_cast<std::ptrdiff_t>(2 * got));
    }
    return all;
}

// The left side without `margin` frames at both ends.
std::vector<double> middle(const std::vector<float>& stereo, std::size_t margin) {
    std::vector<double> left;
    for (std::size_t n = margin; n + margin < stereo.size() / 2; ++n) {
        left.push_back(static_cast<double>(stereo[2 * n]));
    }
    return left;
}

double power(const std::vector<double>& samples) {
    double sum = 0.0;
    for (const double sample : samples) {
        sum += sample * sample;
    }
    return sum / static_cast<double>(samples.size());
}

// What is left when the best fitting sine of that frequency is taken away, in dB to a full sine.
double residualDecibels(const std::vector<double>& samples, double hz) {
    // Whole periods make sine and cosine orthogonal; the caller chooses the frequency so.
    double inPhase = 0.0;
    double quadrature = 0.0;
    const double step = 2.0 * std::numbers::pi * hz / Resampler::kOutputRate;
    for (std::size_t n = 0; n < samples.size(); ++n) {
        inPhase += samples[n] * std::sin(step * static_cast<double>(n));
        quadrature += samples[n] * std::cos(step * static_cast<double>(n));
    }
    const auto count = static_cast<double>(samples.size());
    std::vector<double> rest(samples.size());
    for (std::size_t n = 0; n < samples.size(); ++n) {
        rest[n] = samples[n] - 2.0 / count *
                                   (inPhase * std::sin(step * static_cast<double>(n)) +
                                    quadrature * std::cos(step * static_cast<double>(n)));
    }
    return 10.0 * std::log10(power(rest) / 0.125);
}

constexpr std::array kRates = {8000, 11025, 22050, 32000, 48000, 88200, 96000, 192000};

TEST(ResamplerTest, GivesExactlyTheFramesOfTheSameTime) {
    for (const int rate : kRates) {
        for (const std::size_t frames : {1U, 7U, 1000U, 144'137U}) {
            for (const int channels : {1, 2}) {
                const auto resampler = Resampler::create(rate, channels);
                ASSERT_TRUE(resampler);
                const std::vector<float> in(frames * static_cast<std::size_t>(channels), 0.25F);
                const auto out = convert(*resampler, in, static_cast<std::size_t>(channels));
                const double exact = static_cast<double>(frames) * 44100.0 / rate;
                EXPECT_EQ(static_cast<long>(out.size() / 2), std::lround(exact))
                    << rate << " Hz, " << frames << " frames";
            }
        }
    }
}

TEST(ResamplerTest, ASineStaysPure) {
    for (const int rate : kRates) {
        const auto resampler = Resampler::create(rate, 2);
        const auto frames = 2 * static_cast<std::size_t>(rate);
        std::vector<double> out =
            middle(convert(*resampler, sine(1000.0, rate, frames, 2), 2), 4410);
        out.resize(44'100);
        EXPECT_LT(residualDecibels(out, 1000.0), -100.0) << rate;
        EXPECT_NEAR(std::sqrt(2.0 * power(out)), 0.5, 1e-4) << rate;
    }
}

// What is held back grows with the ratio, and all of it must have found room.
TEST(ResamplerTest, ASineOfAVeryLowRateStaysPure) {
    for (const int rate : {1000, 1500, 3000, 6000}) {
        for (const std::size_t block : {64U, 1000U}) {
            const auto resampler = Resampler::create(rate, 1);
            const auto frames = 4 * static_cast<std::size_t>(rate);
            std::vector<double> out =
                middle(convert(*resampler, sine(100.0, rate, frames, 1), 1, block), 44'100);
            out.resize(44'100);
            EXPECT_LT(residualDecibels(out, 100.0), -100.0) << rate << " by " << block;
        }
    }
}

TEST(ResamplerTest, WhatLiesAboveTheOutputIsRemoved) {
    for (const auto& [rate, hz] :
         {std::pair{48000, 23000.0}, {96000, 30000.0}, {192000, 60000.0}}) {
        const auto resampler = Resampler::create(rate, 2);
        const auto frames = 2 * static_cast<std::size_t>(rate);
        const auto out = middle(convert(*resampler, sine(hz, rate, frames, 2), 2), 4410);
        EXPECT_LT(10.0 * std::log10(power(out) / 0.125), -100.0) << rate;
    }
}

TEST(ResamplerTest, BlockSizeDoesNotMatter) {
    const std::vector<float> in = sine(1234.5, 48000, 30'000, 2);
    const auto whole = convert(*Resampler::create(48000, 2), in, 2, in.size());
    for (const std::size_t block : {1U, 100U, 4097U}) {
        EXPECT_EQ(convert(*Resampler::create(48000, 2), in, 2, block), whole) << block;
    }
}

TEST(ResamplerTest, MonoComesOutOnBothSidesAtItsLevel) {
    const auto left = convert(*Resampler::create(48000, 1), sine(1000.0, 48000, 48'000, 1), 1);
    const auto both = convert(*Resampler::create(48000, 2), sine(1000.0, 48000, 48'000, 2), 2);
    EXPECT_EQ(left, both);
    for (std::size_t n = 0; n < left.size(); n += 2) {
        ASSERT_EQ(left[n], left[n + 1]);
    }
}

TEST(ResamplerTest, AResetForgetsWhatWasBefore) {
    const std::vector<float> in = sine(440.0, 22050, 10'000, 2);
    const auto resampler = Resampler::create(22050, 2);
    const auto first = convert(*resampler, in, 2);
    resampler->reset();
    EXPECT_EQ(convert(*resampler, in, 2), first);
    std::vector<float> out(2 * resampler->mostOutput(300));
    resampler->reset();
    EXPECT_LE(resampler->process(std::span(in).first(600), out), out.size() / 2);
    resampler->reset();
    EXPECT_EQ(convert(*resampler, in, 2), first);
}

TEST(ResamplerTest, RatesAndChannelsOutsideItsRangeAreRefused) {
    for (const int rate : {-1, 0, 5, 999, 768'001}) {
        EXPECT_EQ(Resampler::create(rate, 2), nullptr) << rate;
    }
    EXPECT_EQ(Resampler::create(48000, 0), nullptr);
    EXPECT_EQ(Resampler::create(48000, 3), nullptr);
    EXPECT_NE(Resampler::create(Resampler::kLowestRate, 1), nullptr);
    EXPECT_NE(Resampler::create(Resampler::kHighestRate, 2), nullptr);
}

TEST(DoubleMono, CopiesEachSampleToBothSides) {
    const std::array mono = {0.0F, 1.0F, -0.3F};
    std::array<float, 6> stereo = {};
    doubleMono(mono, stereo);
    EXPECT_EQ(stereo, (std::array{0.0F, 0.0F, 1.0F, 1.0F, -0.3F, -0.3F}));
}

} // namespace
} // namespace tovik::sound::test
