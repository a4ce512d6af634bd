// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/Spectrum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace tovik::sound {
namespace {

using Samples = std::array<float, Spectrum::kSamples>;
using Bins = std::array<float, Spectrum::kBins>;

Samples sineOfBin(double bin, double amplitude, double phase = 0.3) {
    Samples samples{};
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double turn = 2.0 * std::numbers::pi * bin * static_cast<double>(i) / 512.0;
        samples[i] = static_cast<float>(amplitude * std::sin(turn + phase));
    }
    return samples;
}

Bins measured(const Samples& samples) {
    Spectrum spectrum;
    Bins bins{};
    bins.fill(-1.0F);
    spectrum.measure(samples, bins);
    return bins;
}

TEST(Spectrum, AFullSineReadsOneInItsBin) {
    for (const std::size_t bin :
         {std::size_t{2}, std::size_t{12}, std::size_t{100}, std::size_t{254}}) {
        const Bins bins = measured(sineOfBin(static_cast<double>(bin), 1.0));
        EXPECT_NEAR(bins[bin], 1.0F, 1e-3F);
        EXPECT_EQ(std::ranges::max_element(bins) - bins.begin(), static_cast<long>(bin));
        EXPECT_NEAR(bins[bin - 1], 0.5F, 1e-3F);
        EXPECT_NEAR(bins[bin + 1], 0.5F, 1e-3F);
        for (std::size_t i = 0; i < bins.size(); ++i) {
            if (i + 1 < bin || i > bin + 1) {
                EXPECT_LT(bins[i], 1e-4F) << bin << " leaks into " << i;
            }
        }
    }
}

TEST(Spectrum, IsLinearInTheAmplitude) {
    EXPECT_NEAR(measured(sineOfBin(40.0, 0.5))[40], 0.5F, 1e-3F);
    EXPECT_NEAR(measured(sineOfBin(40.0, 0.001))[40], 0.001F, 1e-5F);
}

TEST(Spectrum, BetweenTwoBinsBothShowTheSine) {
    const Bins bins = measured(sineOfBin(40.5, 1.0));
    EXPECT_NEAR(bins[40], bins[41], 0.01F);
    EXPECT_GT(bins[40], 0.8F);
}

TEST(Spectrum, StaysWithinZeroAndOne) {
    for (const float bin : measured(Samples{})) {
        EXPECT_EQ(bin, 0.0F);
    }
    Samples constant{};
    constant.fill(5.0F);
    EXPECT_EQ(measured(constant)[0], 1.0F);
    Samples bad{};
    bad[7] = std::numeric_limits<float>::quiet_NaN();
    for (const float bin : measured(bad)) {
        EXPECT_EQ(bin, 0.0F);
    }
}

} // namespace
} // namespace tovik::sound
