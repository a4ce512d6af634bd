// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/EqualizerBank.h"

#include "sound/mix/Cookbook.h"
#include "sound/mix/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <tuple>
#include <vector>

namespace tovik::sound {
namespace {

using testing::amplitudeAt;
using testing::CookbookBand;
using testing::inUnevenBlocks;
using testing::kRate;
using testing::stereoNoise;
using testing::stereoSine;

constexpr std::array<double, 10> kCentres{60, 170, 310, 600, 1000, 3000, 6000, 12000, 14000, 16000};
constexpr double kBandwidth = 15.0;
constexpr double kOctaves = 1.25;
constexpr std::size_t kSecond = 44100;

BandCoefficients band(std::size_t index, double gainDb) {
    return peakingFilter(kCentres[index], kBandwidth, gainDb, kRate);
}

/// The gain in dB of both sides, measured with a sine after the filters have settled.
std::array<double, 2> measuredGain(EqualizerBank& bank, double hertz) {
    bank.reset();
    std::vector<float> sound = stereoSine(hertz, 0.05, 2 * kSecond);
    const std::vector<float> before = sound;
    bank.process(sound);
    const auto settled = [](const std::vector<float>& samples) {
        return std::span(samples).subspan(kSecond * 2);
    };
    std::array<double, 2> gain{};
    for (std::size_t side = 0; side < 2; ++side) {
        gain[side] = 20.0 * std::log10(amplitudeAt(settled(sound), side, hertz) /
                                       amplitudeAt(settled(before), side, hertz));
    }
    return gain;
}

class EqualizerBandGain : public ::testing::TestWithParam<std::tuple<std::size_t, double>> {};

TEST_P(EqualizerBandGain, IsReachedAtTheCentreOnBothSides) {
    const auto [index, gainDb] = GetParam();
    EqualizerBank bank;
    bank.setBand(static_cast<int>(index), band(index, gainDb));
    for (const double gain : measuredGain(bank, kCentres[index])) {
        EXPECT_NEAR(gain, gainDb, 0.01);
    }
}

INSTANTIATE_TEST_SUITE_P(PlayerBands, EqualizerBandGain,
                         ::testing::Combine(::testing::Range(std::size_t{0}, std::size_t{10}),
                                            ::testing::Values(-20.0, -12.0, -5.0, 3.0, 12.0,
                                                              20.0)));

TEST(EqualizerBank, GainsOfAllBandsAddUp) {
    for (const double gainDb : {-12.0, 12.0}) {
        EqualizerBank bank;
        for (std::size_t i = 0; i < kCentres.size(); ++i) {
            bank.setBand(static_cast<int>(i), band(i, gainDb));
        }
        for (const double centre : kCentres) {
            double sum = 0.0;
            for (std::size_t i = 0; i < kCentres.size(); ++i) {
                sum += gainDbAt(band(i, gainDb), centre, kRate);
            }
            const auto [left, right] = measuredGain(bank, centre);
            EXPECT_NEAR(left, sum, 0.05) << centre;
            EXPECT_NEAR(right, sum, 0.05) << centre;
        }
    }
}

TEST(EqualizerBank, EqualsTheCookbookSampleBySample) {
    std::vector<CookbookBand> reference;
    EqualizerBank bank;
    for (std::size_t i = 0; i < kCentres.size(); ++i) {
        const double gainDb = i % 3 == 0 ? 9.0 : -7.0;
        bank.setBand(static_cast<int>(i), band(i, gainDb), false);
        reference.emplace_back(kCentres[i], kOctaves, gainDb, kRate);
    }
    std::vector<float> sound = stereoNoise(kSecond, 0.2F);
    const std::vector<double> expected = testing::cookbookEqualizer(sound, reference);
    bank.process(sound);
    double worst = 0.0;
    for (std::size_t i = 0; i < sound.size(); ++i) {
        worst = std::max(worst, std::abs(static_cast<double>(sound[i]) - expected[i]));
    }
    // Half a step of 16 bits is 1.5e-5.
    EXPECT_LT(worst, 1e-6);
}

TEST(EqualizerBank, TouchesNothingWhileNeutral) {
    std::vector<float> samples = stereoNoise(333, 3.0F);
    samples[0] = -0.0F;
    samples[1] = std::numeric_limits<float>::denorm_min();
    const std::vector<float> before = samples;
    EqualizerBank bank;
    for (int i = -1; i <= EqualizerBank::kBands; ++i) {
        bank.setBand(i, BandCoefficients{});
    }
    EXPECT_TRUE(bank.neutral());
    bank.process(samples);
    EXPECT_EQ(std::memcmp(samples.data(), before.data(), samples.size() * sizeof(float)), 0);
}

TEST(EqualizerBank, ABandTakenBackComesToRest) {
    EqualizerBank bank;
    bank.setBand(0, band(0, 12.0));
    bank.setBand(9, band(9, -12.0));
    std::vector<float> sound = stereoNoise(kSecond, 0.5F);
    bank.process(sound);
    EXPECT_FALSE(bank.neutral());
    bank.setBand(0, BandCoefficients{});
    bank.setBand(9, BandCoefficients{});
    EXPECT_FALSE(bank.neutral());
    sound = stereoNoise(kSecond, 0.5F, 2);
    bank.process(sound);
    EXPECT_TRUE(bank.neutral());
    const std::vector<float> before = sound;
    bank.process(sound);
    EXPECT_EQ(sound, before);
}

TEST(EqualizerBank, ResetForgetsTheSoundAndKeepsTheBands) {
    EqualizerBank bank;
    bank.setBand(2, band(2, 12.0));
    std::vector<float> sound = stereoNoise(1000, 0.5F);
    bank.process(sound);
    bank.reset();
    std::vector<float> silence(2000, 0.0F);
    bank.process(silence);
    EXPECT_EQ(*std::ranges::max_element(silence), 0.0F);
    EXPECT_FALSE(bank.neutral());

    bank.setBand(2, BandCoefficients{});
    bank.reset();
    EXPECT_TRUE(bank.neutral());
}

TEST(EqualizerBank, RecoversFromWhatIsNoNumber) {
    for (const float bad :
         {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(), 1e38F}) {
        EqualizerBank bank;
        bank.setBand(0, band(0, 12.0));
        bank.setBand(5, band(5, -12.0));
        std::vector<float> sound(200, bad);
        bank.process(sound);
        sound.assign(200, 0.0F);
        bank.process(sound);
        EXPECT_EQ(sound, std::vector<float>(200, 0.0F)) << bad;
    }
}

/// The largest second difference: what remains of a slow sine is small, a click is not.
float roughness(std::span<const float> samples) {
    float largest = 0.0F;
    for (std::size_t i = 4; i < samples.size(); ++i) {
        const float bend = samples[i] - 2.0F * samples[i - 2] + samples[i - 4];
        largest = std::max(largest, std::abs(bend));
    }
    return largest;
}

struct Change {
    std::size_t index;
    double from;
    double to;
};

class EqualizerChange : public ::testing::TestWithParam<Change> {
protected:
    static float roughnessOfChange(bool ramp) {
        const Change& change = GetParam();
        const auto index = static_cast<int>(change.index);
        EqualizerBank bank;
        bank.setBand(index, band(change.index, change.from), false);
        std::vector<float> sound = stereoSine(200.0, 0.5, kSecond / 2);
        bank.process(std::span(sound).first(kSecond / 2));
        bank.setBand(index, band(change.index, change.to), ramp);
        bank.process(std::span(sound).subspan(kSecond / 2));
        return roughness(std::span(sound).subspan(kSecond / 4));
    }
};

TEST_P(EqualizerChange, DoesNotClick) {
    // Where the ramp begins and ends the sound may bend: the coefficient goes by 2.5 at most, in
    // 224 frames, on a sine of 0.5.
    EXPECT_LT(roughnessOfChange(true), 2.5F / 224.0F * 0.5F);
}

TEST_P(EqualizerChange, WouldClickWithoutTheRamp) {
    EXPECT_GT(roughnessOfChange(false), 0.05F);
}

INSTANTIATE_TEST_SUITE_P(LoudestChanges, EqualizerChange,
                         ::testing::Values(Change{9, 0.0, 12.0}, Change{9, 12.0, -12.0},
                                           Change{7, -12.0, 12.0}, Change{5, -12.0, 12.0},
                                           Change{6, 12.0, 0.0}));

TEST(EqualizerBank, RampsDoNotDependOnTheBlocks) {
    std::vector<float> whole = stereoNoise(5000, 0.5F);
    std::vector<float> pieces = whole;
    EqualizerBank first;
    EqualizerBank second;
    for (EqualizerBank* bank : {&first, &second}) {
        for (std::size_t i = 0; i < kCentres.size(); ++i) {
            bank->setBand(static_cast<int>(i), band(i, i % 2 == 0 ? 12.0 : -12.0));
        }
    }
    first.process(whole);
    inUnevenBlocks(pieces, [&](std::span<float> block) { second.process(block); });
    for (std::size_t i = 0; i < whole.size(); ++i) {
        ASSERT_NEAR(whole[i], pieces[i], 2e-4F) << i;
    }
}

} // namespace
} // namespace tovik::sound
