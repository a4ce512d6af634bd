// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/LevelMeter.h"

#include "sound/mix/DenormalGuard.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace tovik::sound {
namespace {

constexpr float kTiny = std::numeric_limits<float>::denorm_min();
constexpr float kNoNumber = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinite = std::numeric_limits<float>::infinity();

TEST(LevelMeter, FindsTheLoudestSampleOfEachSideWhereverItIs) {
    for (std::size_t frames = 1; frames < 40; ++frames) {
        for (std::size_t at = 0; at < frames; ++at) {
            std::vector<float> samples(frames * 2, 0.125F);
            samples[2 * at] = -0.75F;
            samples[2 * (frames - 1 - at) + 1] = 0.5F;
            const StereoPeak peak = measureLevel(samples);
            ASSERT_EQ(peak.left, 0.75F) << frames << " " << at;
            ASSERT_EQ(peak.right, 0.5F) << frames << " " << at;
        }
    }
}

TEST(LevelMeter, OnlySilenceIsZero) {
    EXPECT_EQ(packLevel(measureLevel({})), 0U);
    EXPECT_EQ(packLevel(measureLevel(std::vector<float>(100, 0.0F))), 0U);
    EXPECT_EQ(packLevel(measureLevel(std::vector<float>(100, -0.0F))), 0U);
    EXPECT_EQ(packLevel(measureLevel(std::vector<float>{kTiny, -kTiny})), 0x00010001U);
    const DenormalGuard guard; // as on the thread that mixes
    EXPECT_EQ(packLevel(measureLevel(std::vector<float>{-kTiny, kTiny})), 0x00010001U);
    EXPECT_EQ(packLevel(measureLevel(std::vector<float>{0.0F, kTiny})), 0x00010000U);
}

TEST(LevelMeter, RoundsUpAndHoldsToTheRange) {
    EXPECT_EQ(packLevel({1.0F, 0.5F}), 128U | 64U << 16U);
    EXPECT_EQ(packLevel({0.50001F, 1.0F / 32768.0F}), 65U | 1U << 16U);
    EXPECT_EQ(packLevel({3.0F, 0.9999F}), 128U | 128U << 16U);
    EXPECT_EQ(packLevel({kInfinite, 1.0F / 128.0F}), 128U | 1U << 16U);
}

TEST(LevelMeter, WhatIsNoNumberDoesNotCount) {
    EXPECT_EQ(packLevel(measureLevel(std::vector<float>{kNoNumber, -kNoNumber})), 0U);
    EXPECT_EQ(packLevel(measureLevel(std::vector<float>{0.25F, kNoNumber, kNoNumber, 0.5F})),
              32U | 64U << 16U);
    EXPECT_EQ(packLevel({kNoNumber, kNoNumber}), 0U);
}

TEST(DenormalGuard, TakesTinyNumbersForZeroWhileItLives) {
    volatile float small = std::numeric_limits<float>::min();
    volatile float half = 0.5F;
    {
        const DenormalGuard guard;
        const float inside = small * half;
#if defined(__SSE2__) || defined(__aarch64__)
        EXPECT_EQ(inside, 0.0F);
#else
        EXPECT_GE(inside, 0.0F);
#endif
    }
    const float outside = small * half;
    EXPECT_GT(outside, 0.0F);
}

} // namespace
} // namespace tovik::sound
