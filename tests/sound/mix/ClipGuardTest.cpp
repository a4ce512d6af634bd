// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/ClipGuard.h"

#include "sound/mix/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <numbers>
#include <vector>

namespace tovik::sound {
namespace {

using testing::inUnevenBlocks;
using testing::stereoNoise;
using testing::stereoSine;

bool sameBits(const std::vector<float>& one, const std::vector<float>& other) {
    return one.size() == other.size() &&
           std::memcmp(one.data(), other.data(), one.size() * sizeof(float)) == 0;
}

TEST(ClipGuard, TouchesNothingWithinFullScale) {
    std::vector<float> samples = stereoNoise(1001, 1.0F);
    samples[0] = 1.0F;
    samples[1] = -1.0F;
    samples[2] = -0.0F;
    samples[3] = std::numeric_limits<float>::denorm_min();
    const std::vector<float> before = samples;
    ClipGuard guard;
    guard.process(samples);
    EXPECT_TRUE(sameBits(samples, before));
    EXPECT_EQ(guard.gain(), 1.0F);
}

TEST(ClipGuard, NeverExceedsFullScale) {
    for (const float amplitude : {1.01F, 2.0F, 17.3F, 1e30F}) {
        std::vector<float> samples = stereoNoise(20000, amplitude);
        ClipGuard guard;
        float lowest = 1.0F;
        inUnevenBlocks(samples, [&](std::span<float> block) {
            guard.process(block);
            lowest = std::min(lowest, guard.gain());
        });
        EXPECT_LT(lowest, 1.0F);
        for (const float sample : samples) {
            ASSERT_LE(std::abs(sample), 1.0F) << amplitude;
        }
    }
}

TEST(ClipGuard, LowersBothSidesAlike) {
    std::vector<float> samples = stereoSine(100.0, 3.0, 4410);
    const std::vector<float> before = samples;
    ClipGuard guard;
    guard.process(samples);
    for (std::size_t i = 0; i < samples.size(); i += 2) {
        // l / r stays what it was, written without a division.
        ASSERT_NEAR(samples[i] * before[i + 1], samples[i + 1] * before[i], 1e-5F);
    }
}

TEST(ClipGuard, ItsGainIsContinuousWhereTheSoundIs) {
    constexpr std::size_t kFrames = 44100;
    constexpr double kHertz = 100.0;
    // Swells from silence to three times full scale and back; both sides alike.
    std::vector<float> samples(kFrames * 2);
    for (std::size_t i = 0; i < kFrames; ++i) {
        const double place = static_cast<double>(i) / kFrames;
        const double size = 3.0 * std::sin(std::numbers::pi * place);
        samples[2 * i] = samples[2 * i + 1] =
            static_cast<float>(size * std::sin(2.0 * std::numbers::pi * kHertz * place));
    }
    const float steepest = testing::largestStep(samples);
    ClipGuard guard;
    float before = guard.gain();
    float largest = 0.0F;
    float lowest = 1.0F;
    for (std::size_t i = 0; i < kFrames; ++i) {
        guard.process(std::span(samples).subspan(2 * i, 2));
        largest = std::max(largest, std::abs(guard.gain() - before));
        before = guard.gain();
        lowest = std::min(lowest, before);
    }
    // 1 / x is nowhere steeper than x above 1; letting go takes at most 1 / 6615 a frame.
    EXPECT_LT(largest, steepest + 2e-4F);
    EXPECT_NEAR(lowest, 1.0F / 3.0F, 0.01F);
}

TEST(ClipGuard, LetsGoWithin150MillisecondsAndComesBackExactly) {
    std::vector<float> samples(std::size_t{2} * 44100 * 2, 0.5F);
    samples[0] = samples[1] = 4.0F;
    ClipGuard guard;
    guard.process(std::span(samples).first(2));
    EXPECT_FLOAT_EQ(samples[0], 1.0F);
    EXPECT_FLOAT_EQ(guard.gain(), 0.25F);
    guard.process(std::span(samples).subspan(2, std::size_t{2} * 6615));
    EXPECT_NEAR(guard.gain(), 1.0 - 0.75 / std::numbers::e, 1e-3);
    guard.process(std::span(samples).subspan(2 + std::size_t{2} * 6615));
    EXPECT_EQ(guard.gain(), 1.0F);
    EXPECT_EQ(samples.back(), 0.5F);
}

TEST(ClipGuard, DoesNotDependOnTheBlocks) {
    std::vector<float> whole = stereoNoise(10000, 1.2F);
    std::vector<float> pieces = whole;
    ClipGuard first;
    ClipGuard second;
    first.process(whole);
    inUnevenBlocks(pieces, [&](std::span<float> block) { second.process(block); });
    EXPECT_EQ(whole, pieces);
}

TEST(ClipGuard, WhatIsNoNumberBecomesSilence) {
    constexpr float infinite = std::numeric_limits<float>::infinity();
    constexpr float noNumber = std::numeric_limits<float>::quiet_NaN();
    std::vector<float> samples{0.5F, noNumber, infinite, 0.25F, -infinite, -noNumber};
    ClipGuard guard;
    guard.process(samples);
    EXPECT_EQ(samples, (std::vector<float>{0.5F, 0.0F, 0.0F, 0.25F, 0.0F, 0.0F}));
    EXPECT_EQ(guard.gain(), 1.0F);
}

TEST(ClipGuard, ResetMakesItTransparent) {
    std::vector<float> samples{9.0F, 9.0F};
    ClipGuard guard;
    guard.process(samples);
    guard.reset();
    EXPECT_EQ(guard.gain(), 1.0F);
}

} // namespace
} // namespace tovik::sound
