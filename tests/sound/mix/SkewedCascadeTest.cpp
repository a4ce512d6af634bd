// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/SkewedCascade.h"

#include "sound/mix/Signals.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace tovik::sound {
namespace {

using testing::inUnevenBlocks;
using testing::stereoNoise;

constexpr std::size_t kMostPairs = 5;

/// Pairs with plausible and all different coefficients, and steps for a ramp of `frames`.
std::vector<CascadePair> somePairs(std::size_t count, float frames) {
    std::vector<CascadePair> pairs(count);
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t lane = 0; lane < 4; ++lane) {
            const std::size_t band = 2 * i + lane / 2;
            const auto nth = static_cast<float>(band);
            CascadePair& pair = pairs[i];
            pair.frequency[lane] = 0.05F + 0.1F * nth;
            pair.gain[lane] = (lane < 2 ? 0.05F : -0.03F) * (1.0F + nth);
            pair.feedback[lane] =
                1.0F - 0.02F * (1.0F + nth) - pair.frequency[lane] * pair.frequency[lane];
            pair.gainStep[lane] = 0.1F / frames;
            pair.frequencyStep[lane] = -0.01F / frames;
            pair.feedbackStep[lane] = 0.005F / frames;
        }
    }
    return pairs;
}

std::vector<CascadePair*> pointersTo(std::vector<CascadePair>& pairs) {
    std::vector<CascadePair*> pointers;
    pointers.reserve(pairs.size());
    for (CascadePair& pair : pairs) {
        pointers.push_back(&pair);
    }
    return pointers;
}

/// One filter after the other, each over the whole block: the definition.
void plainCascade(std::vector<CascadePair>& pairs, std::span<float> samples, bool ramping) {
    for (CascadePair& pair : pairs) {
        for (const std::size_t first : {std::size_t{0}, std::size_t{2}}) {
            for (std::size_t i = 0; i < samples.size(); ++i) {
                const std::size_t lane = first + i % 2;
                const float pushed = pair.gain[lane] * samples[i];
                const float band = pair.drive[lane] + pushed;
                pair.drive[lane] =
                    (pushed - pair.frequency[lane] * pair.low[lane]) + pair.feedback[lane] * band;
                pair.low[lane] += pair.frequency[lane] * band;
                samples[i] += band;
                if (ramping) {
                    pair.gain[lane] += pair.gainStep[lane];
                    pair.frequency[lane] += pair.frequencyStep[lane];
                    pair.feedback[lane] += pair.feedbackStep[lane];
                }
            }
        }
    }
}

class SkewedCascade : public ::testing::TestWithParam<std::size_t> {};

TEST_P(SkewedCascade, EqualsOneFilterAfterTheOther) {
    const std::size_t count = GetParam();
    std::vector<CascadePair> fast = somePairs(count, 1.0F);
    std::vector<CascadePair> plain = fast;
    const std::vector<CascadePair*> pointers = pointersTo(fast);
    for (std::size_t frames = 1; frames < 60; ++frames) {
        std::vector<float> sound = stereoNoise(frames, 0.5F, static_cast<unsigned>(frames));
        std::vector<float> expected = sound;
        runCascade(pointers, sound, false);
        plainCascade(plain, expected, false);
        for (std::size_t i = 0; i < sound.size(); ++i) {
            ASSERT_NEAR(sound[i], expected[i], 1e-6F) << frames << " frames, sample " << i;
        }
    }
}

TEST_P(SkewedCascade, EqualsOneFilterAfterTheOtherWhileItRamps) {
    constexpr std::size_t kFrames = 2000;
    std::vector<CascadePair> fast = somePairs(GetParam(), kFrames);
    std::vector<CascadePair> plain = fast;
    const std::vector<CascadePair*> pointers = pointersTo(fast);
    std::vector<float> sound = stereoNoise(kFrames, 0.5F);
    std::vector<float> expected = sound;
    inUnevenBlocks(sound, [&](std::span<float> block) { runCascade(pointers, block, true); });
    plainCascade(plain, expected, true);
    for (std::size_t i = 0; i < sound.size(); ++i) {
        ASSERT_NEAR(sound[i], expected[i], 1e-6F) << i;
    }
    EXPECT_NE(plain[0].gain[0], somePairs(1, kFrames)[0].gain[0]);
}

TEST_P(SkewedCascade, DoesNotDependOnTheBlocks) {
    std::vector<CascadePair> first = somePairs(GetParam(), 1.0F);
    std::vector<CascadePair> second = first;
    std::vector<float> whole = stereoNoise(4000, 0.5F);
    std::vector<float> pieces = whole;
    runCascade(pointersTo(first), whole, false);
    const std::vector<CascadePair*> pointers = pointersTo(second);
    inUnevenBlocks(pieces, [&](std::span<float> block) { runCascade(pointers, block, false); });
    EXPECT_EQ(whole, pieces);
}

INSTANTIATE_TEST_SUITE_P(Pairs, SkewedCascade, ::testing::Range(std::size_t{1}, kMostPairs + 1));

TEST(SkewedCascadeBorders, NothingToDoIsNothingDone) {
    std::vector<CascadePair> pairs = somePairs(1, 1.0F);
    std::vector<float> sound{0.5F, 0.25F};
    runCascade({}, sound, false);
    runCascade(pointersTo(pairs), {}, false);
    EXPECT_EQ(sound, (std::vector<float>{0.5F, 0.25F}));
    EXPECT_EQ(pairs[0].drive[0], 0.0F);
}

} // namespace
} // namespace tovik::sound
