// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/GainStage.h"

#include "sound/mix/Signals.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <vector>

namespace tovik::sound {
namespace {

using testing::inUnevenBlocks;
using testing::largestStep;
using testing::stereoNoise;

TEST(GainStage, TouchesNothingWhileNeutral) {
    std::vector<float> samples = stereoNoise(100, 2.0F);
    samples[0] = -0.0F;
    samples[1] = std::numeric_limits<float>::denorm_min();
    samples[2] = std::numeric_limits<float>::quiet_NaN();
    samples[3] = std::numeric_limits<float>::infinity();
    const std::vector<float> before = samples;
    GainStage gain;
    gain.process(samples);
    EXPECT_EQ(std::memcmp(samples.data(), before.data(), samples.size() * sizeof(float)), 0);

    // And again when it has come back to neutral.
    gain.volumeTo(0.3F, 0);
    gain.panTo(0.5F, 0);
    gain.volumeTo(1.0F, 10);
    gain.panTo(0.0F, 10);
    std::vector<float> passing(20);
    gain.process(passing);
    gain.process(samples);
    EXPECT_EQ(std::memcmp(samples.data(), before.data(), samples.size() * sizeof(float)), 0);
}

struct Setting {
    float volume;
    float pan;
    float fade;
    float left;
    float right;
};

class GainStageSettings : public ::testing::TestWithParam<Setting> {};

TEST_P(GainStageSettings, GivesTheGainsOfBothSides) {
    const Setting& setting = GetParam();
    GainStage gain;
    gain.volumeTo(setting.volume, 0);
    gain.panTo(setting.pan, 0);
    gain.fadeTo(setting.fade, 0);
    const std::vector<float> before = stereoNoise(101, 1.0F);
    std::vector<float> samples = before;
    gain.process(samples);
    for (std::size_t i = 0; i < samples.size(); i += 2) {
        ASSERT_FLOAT_EQ(samples[i], before[i] * setting.left);
        ASSERT_FLOAT_EQ(samples[i + 1], before[i + 1] * setting.right);
    }
}

INSTANTIATE_TEST_SUITE_P(All, GainStageSettings,
                         ::testing::Values(Setting{1.0F, 0.0F, 1.0F, 1.0F, 1.0F},
                                           Setting{0.5F, 0.0F, 1.0F, 0.5F, 0.5F},
                                           Setting{0.0F, 0.0F, 1.0F, 0.0F, 0.0F},
                                           Setting{1.0F, 0.0F, 0.25F, 0.25F, 0.25F},
                                           Setting{1.0F, 0.5F, 1.0F, 0.5F, 1.0F},
                                           Setting{1.0F, -0.25F, 1.0F, 1.0F, 0.75F},
                                           Setting{1.0F, 1.0F, 1.0F, 0.0F, 1.0F},
                                           Setting{1.0F, -1.0F, 1.0F, 1.0F, 0.0F},
                                           Setting{0.5F, 0.5F, 0.5F, 0.125F, 0.25F},
                                           Setting{7.0F, -9.0F, 3.0F, 1.0F, 0.0F}));

TEST(GainStage, RampsInSmallStepsAndEndsExactly) {
    GainStage gain;
    gain.fadeTo(0.0F, 0);
    std::vector<float> samples(1000, 1.0F);
    gain.fadeTo(1.0F, 220);
    gain.process(samples);
    EXPECT_LT(largestStep(samples), 1.001F / 220.0F);
    EXPECT_FLOAT_EQ(samples[0], 1.0F / 220.0F);
    EXPECT_LT(samples[std::size_t{2} * 218], 1.0F);
    EXPECT_EQ(samples[std::size_t{2} * 219], 1.0F);

    gain.volumeTo(0.0F, 100);
    gain.panTo(-1.0F, 50);
    std::fill(samples.begin(), samples.end(), 1.0F);
    gain.process(samples);
    EXPECT_LT(largestStep(samples), 1.0F / 100.0F + 1.0F / 50.0F);
    EXPECT_EQ(samples.back(), 0.0F);
}

TEST(GainStage, DoesNotDependOnTheBlocks) {
    const std::vector<float> sound = stereoNoise(2000, 1.0F);
    std::vector<float> whole = sound;
    std::vector<float> pieces = sound;
    GainStage first;
    GainStage second;
    for (GainStage* gain : {&first, &second}) {
        gain->volumeTo(0.2F, 700);
        gain->panTo(0.6F, 1100);
        gain->fadeTo(0.0F, 1500);
    }
    first.process(whole);
    inUnevenBlocks(pieces, [&](std::span<float> block) { second.process(block); });
    EXPECT_EQ(whole, pieces);
}

TEST(GainStage, TellsWhenItIsSilent) {
    GainStage gain;
    EXPECT_FALSE(gain.silent());
    gain.fadeTo(0.0F, 2);
    std::vector<float> frame(2, 1.0F);
    gain.process(frame);
    EXPECT_FALSE(gain.faded());
    EXPECT_FLOAT_EQ(gain.fade(), 0.5F);
    gain.process(frame);
    EXPECT_TRUE(gain.faded());
    EXPECT_TRUE(gain.silent());
    gain.fadeTo(1.0F, 0);
    gain.volumeTo(0.0F, 0);
    EXPECT_FALSE(gain.faded());
    EXPECT_TRUE(gain.silent());
    EXPECT_TRUE(gain.settled());
}

TEST(GainStage, HoldsWhatIsNoNumber) {
    GainStage gain;
    gain.volumeTo(std::numeric_limits<float>::quiet_NaN(), 0);
    EXPECT_EQ(gain.volume(), 0.0F);
}

} // namespace
} // namespace tovik::sound
