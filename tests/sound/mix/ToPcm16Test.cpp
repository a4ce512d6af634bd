// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/ToPcm16.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace tovik::sound {
namespace {

std::int16_t converted(float sample) {
    std::int16_t pcm = 99;
    toPcm16({&sample, 1}, {&pcm, 1});
    return pcm;
}

TEST(ToPcm16, UndoesTheWayFrom16Bits) {
    std::vector<float> samples;
    std::vector<std::int16_t> expected;
    for (int n = -32768; n <= 32767; ++n) {
        expected.push_back(static_cast<std::int16_t>(n));
        samples.push_back(static_cast<float>(n) / 32768.0F);
    }
    std::vector<std::int16_t> pcm(samples.size());
    toPcm16(samples, pcm);
    EXPECT_EQ(pcm, expected);
}

TEST(ToPcm16, TakesTheNearest) {
    for (int n = -1000; n <= 1000; ++n) {
        const float exact = static_cast<float>(n) * 7.3F;
        EXPECT_NEAR(static_cast<float>(converted(exact / 32768.0F)), exact, 0.501F);
    }
    EXPECT_EQ(converted(0.5F / 32768.0F), 0);
    EXPECT_EQ(converted(1.5F / 32768.0F), 2);
    EXPECT_EQ(converted(-1.5F / 32768.0F), -2);
    EXPECT_EQ(converted(0.501F / 32768.0F), 1);
}

TEST(ToPcm16, HoldsToTheRange) {
    EXPECT_EQ(converted(1.0F), 32767);
    EXPECT_EQ(converted(-1.0F), -32768);
    EXPECT_EQ(converted(1e30F), 32767);
    EXPECT_EQ(converted(-1e30F), -32768);
    EXPECT_EQ(converted(std::numeric_limits<float>::infinity()), 32767);
    EXPECT_EQ(converted(-std::numeric_limits<float>::infinity()), -32768);
    EXPECT_EQ(converted(std::numeric_limits<float>::quiet_NaN()), 0);
}

TEST(ToPcm16, ConvertsAsManyAsBothHold) {
    for (std::size_t count = 0; count < 40; ++count) {
        const std::vector<float> samples(count, 0.5F);
        std::vector<std::int16_t> pcm(40, 7);
        toPcm16(samples, pcm);
        for (std::size_t i = 0; i < pcm.size(); ++i) {
            ASSERT_EQ(pcm[i], i < count ? 16384 : 7);
        }
    }
    std::vector<std::int16_t> few(3);
    toPcm16(std::vector<float>(10, -1.0F), few);
    EXPECT_EQ(few, (std::vector<std::int16_t>{-32768, -32768, -32768}));
}

} // namespace
} // namespace tovik::sound
