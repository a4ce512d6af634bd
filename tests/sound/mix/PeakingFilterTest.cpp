// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/PeakingFilter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tovik::sound {
namespace {

constexpr double kFilterRate = 44100.0;
constexpr double kSemitones = 15.0;

TEST(PeakingFilter, HasItsGainAtTheCentreAndNoneFarAway) {
    for (const double gain : {-20.0, -12.0, -3.0, 0.5, 12.0, 20.0}) {
        for (const double centre : {60.0, 1000.0, 16000.0}) {
            const BandCoefficients band = peakingFilter(centre, kSemitones, gain, kFilterRate);
            EXPECT_NEAR(gainDbAt(band, centre, kFilterRate), gain, 1e-6);
            EXPECT_NEAR(gainDbAt(band, 0.0, kFilterRate), 0.0, 1e-6);
            EXPECT_NEAR(gainDbAt(band, kFilterRate / 2.0, kFilterRate), 0.0, 1e-6);
        }
    }
}

TEST(PeakingFilter, HasHalfItsGainAtTheEdgesOfItsBandwidth) {
    const double edge = std::pow(2.0, kSemitones / 12.0 / 2.0);
    for (const double gain : {-12.0, 6.0, 12.0}) {
        const BandCoefficients band = peakingFilter(600.0, kSemitones, gain, kFilterRate);
        EXPECT_NEAR(gainDbAt(band, 600.0 * edge, kFilterRate), gain / 2.0, 0.05);
        EXPECT_NEAR(gainDbAt(band, 600.0 / edge, kFilterRate), gain / 2.0, 0.05);
    }
}

TEST(PeakingFilter, BoostAndCutUndoEachOther) {
    const BandCoefficients boost = peakingFilter(3000.0, kSemitones, 9.0, kFilterRate);
    const BandCoefficients cut = peakingFilter(3000.0, kSemitones, -9.0, kFilterRate);
    for (double hertz = 20.0; hertz < 22000.0; hertz *= 1.5) {
        EXPECT_NEAR(gainDbAt(boost, hertz, kFilterRate) + gainDbAt(cut, hertz, kFilterRate), 0.0,
                    1e-9);
    }
}

TEST(PeakingFilter, WhatMakesNoFilterIsNeutral) {
    constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinite = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(peakingFilter(1000.0, kSemitones, 0.0, kFilterRate).neutral());
    EXPECT_TRUE(peakingFilter(22050.0, kSemitones, 6.0, kFilterRate).neutral());
    EXPECT_TRUE(peakingFilter(16000.0, kSemitones, 6.0, 22050.0).neutral());
    EXPECT_TRUE(peakingFilter(0.0, kSemitones, 6.0, kFilterRate).neutral());
    EXPECT_TRUE(peakingFilter(-60.0, kSemitones, 6.0, kFilterRate).neutral());
    EXPECT_TRUE(peakingFilter(1000.0, 0.0, 6.0, kFilterRate).neutral());
    EXPECT_TRUE(peakingFilter(1000.0, -1.0, 6.0, kFilterRate).neutral());
    EXPECT_TRUE(peakingFilter(1000.0, kSemitones, 6.0, 0.0).neutral());
    for (const double bad : {noNumber, infinite, -infinite}) {
        EXPECT_TRUE(peakingFilter(bad, kSemitones, 6.0, kFilterRate).neutral());
        EXPECT_TRUE(peakingFilter(1000.0, bad, 6.0, kFilterRate).neutral());
        EXPECT_TRUE(peakingFilter(1000.0, kSemitones, bad, kFilterRate).neutral());
        EXPECT_TRUE(peakingFilter(1000.0, kSemitones, 6.0, bad).neutral());
    }
    EXPECT_FALSE(peakingFilter(22000.0, kSemitones, 6.0, kFilterRate).a2 >= 1.0);
}

} // namespace
} // namespace tovik::sound
