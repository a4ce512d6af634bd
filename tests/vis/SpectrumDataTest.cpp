// SPDX-License-Identifier: GPL-3.0-or-later
#include "vis/SpectrumData.h"

#include "sound/mix/Spectrum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

namespace tovik::test {
namespace {

using vis::computeBands;
using vis::movePeaks;
using vis::SpectrumData;

const std::vector<int> kFine = {1, 1, 1, 1,  1,  2,  2,  2,  2,  3,  3,  4,  4,  5,  5,  6, 6,
                                8, 8, 9, 10, 11, 12, 14, 15, 17, 18, 20, 21, 24, 25, 27, 28};
const std::vector<int> kCoarse = {2, 2, 3, 4, 5, 7, 9, 11, 14, 17, 21, 30, 35, 40, 50, 60};

/// The level of each band before it is set in relation to anything, by adding values one by one.
std::vector<double> roots(const std::vector<double>& values, const std::vector<int>& table) {
    std::vector<double> levels;
    std::size_t next = 0;
    for (const int count : table) {
        double sum = 0;
        for (int i = 0; i < count; ++i, ++next) {
            sum += next < values.size() ? values[next] : 0;
        }
        levels.push_back(std::sqrt(sum));
    }
    return levels;
}

/// A sample of a sine; that of bin 0 would be none, so it is a constant.
double sampleOf(double bin, double amplitude, int n) {
    return bin == 0 ? amplitude : amplitude * std::sin(2 * std::numbers::pi * bin * n / 512);
}

/// The spectrum of a sine by the sum that defines it: window, each bin's own turn, size.
std::vector<double> spectrumOf(double bin, double amplitude) {
    std::vector<double> sizes;
    for (int k = 0; k < 256; ++k) {
        double real = 0;
        double imaginary = 0;
        for (int n = 0; n < 512; ++n) {
            const double turn = 2 * std::numbers::pi * n / 512;
            const double sample = sampleOf(bin, amplitude, n) * (0.5 - 0.5 * std::cos(turn));
            real += sample * std::cos(k * turn);
            imaginary -= sample * std::sin(k * turn);
        }
        sizes.push_back(std::min(1.0, std::hypot(real, imaginary) / 128));
    }
    return sizes;
}

std::array<float, 256> measured(double bin, double amplitude) {
    std::array<float, 512> samples{};
    for (int n = 0; n < 512; ++n) {
        samples.at(static_cast<std::size_t>(n)) = static_cast<float>(sampleOf(bin, amplitude, n));
    }
    std::array<float, 256> bins{};
    sound::Spectrum().measure(samples, bins);
    return bins;
}

TEST(SpectrumData, aSineInTheMiddleOfABandLiftsItAsComputedByHand) {
    double begin = 0;
    for (std::size_t band = 0; band < kFine.size(); ++band) {
        const double centre = begin + (kFine[band] - 1) / 2.0;
        begin += kFine[band];
        if (centre > 255) {
            break;
        }
        // At full size the band's own maximum is known to be that of the sine; half of it follows.
        SpectrumData data;
        data.FFT = measured(centre, 1);
        computeBands(data, data.bands);
        const std::vector<double> loud = roots(spectrumOf(centre, 1), kFine);
        EXPECT_NEAR(data.scale33.at(band), loud[band], 2e-3) << "band " << band;
        EXPECT_FLOAT_EQ(data.bands.at(band), 0.5F);
        data.FFT = measured(centre, 0.25);
        computeBands(data, data.bands);
        const std::vector<double> soft = roots(spectrumOf(centre, 0.25), kFine);
        EXPECT_NEAR(double{data.bands.at(band)}, (0.5 + soft[band] / loud[band]) / 2, 2e-3)
            << "band " << band;
        EXPECT_EQ(std::ranges::max_element(loud) - loud.begin(), static_cast<long>(band));
    }
}

TEST(SpectrumData, theTwoHighestBandsLieBeyondTheSpectrum) {
    SpectrumData data;
    data.FFT.fill(1);
    computeBands(data, data.bands);
    EXPECT_EQ(data.bands[30], 0.5F); // 20 of its 25 values are there
    EXPECT_NEAR(data.scale33[30], std::sqrt(20.0), 1e-12);
    EXPECT_EQ(data.bands[31], 0);
    EXPECT_EQ(data.bands[32], 0);
    EXPECT_EQ(data.scale33[31], 0);
}

TEST(SpectrumData, howManyBandsThereAreChoosesTheTable) {
    SpectrumData data;
    data.FFT.fill(0.25F);
    std::vector<float> bands(15, 0.75F);
    computeBands(data, bands);
    EXPECT_EQ(bands, std::vector<float>(15, 0.75F));
    bands.assign(20, 0);
    computeBands(data, bands);
    const std::vector<double> coarse = roots(std::vector<double>(256, 0.25), kCoarse);
    for (std::size_t band = 0; band < 20; ++band) {
        EXPECT_EQ(bands[band], band < 16 ? 0.5F : 0) << band;
        if (band < 16) {
            EXPECT_NEAR(data.scale16.at(band), coarse[band], 1e-9);
        }
    }
    EXPECT_EQ(*std::ranges::max_element(data.scale33), 0);
    bands.assign(40, 0);
    computeBands(data, bands);
    EXPECT_NEAR(data.scale33[0], 0.5, 1e-9);
    EXPECT_EQ(bands[30], 0.5F);
    EXPECT_EQ(bands[33], 0);
}

TEST(SpectrumData, silenceKeepsTheScalesAndLetsBarsFallByHalvesMarksByAHundredth) {
    SpectrumData data;
    data.FFT.fill(1);
    for (int i = 0; i < 60; ++i) {
        computeBands(data, data.bands);
        movePeaks(data);
    }
    const auto scales = data.scale33;
    EXPECT_FLOAT_EQ(data.bands[3], 1);
    EXPECT_FLOAT_EQ(data.peaks[3], 1);
    data.FFT.fill(0);
    float bar = data.bands[3];
    float mark = data.peaks[3];
    for (int i = 0; i < 30; ++i) {
        computeBands(data, data.bands);
        movePeaks(data);
        bar /= 2;
        mark *= 0.99F;
        EXPECT_EQ(data.bands[3], bar);
        EXPECT_FLOAT_EQ(data.peaks[3], mark);
    }
    EXPECT_EQ(data.scale33, scales);
    // After it a sound of a quarter is in relation to the loud one.
    data.FFT.fill(0.25F);
    data.bands.fill(0);
    computeBands(data, data.bands);
    EXPECT_FLOAT_EQ(data.bands[3], 0.25F);
}

TEST(SpectrumData, aThousandTicksFollowTheReference) {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> size(0, 1);
    SpectrumData data;
    std::vector<double> bands(33, 0);
    std::vector<double> peaks(33, 0);
    std::vector<double> scales(33, 0);
    for (int tick = 0; tick < 1000; ++tick) {
        // Loud and soft stretches, and ones of silence.
        const float loudness = tick % 90 < 20 ? 0 : 0.02F + 0.98F * static_cast<float>(tick) / 1000;
        std::vector<double> values;
        for (float& value : data.FFT) {
            value = loudness * size(random) * size(random);
            values.push_back(static_cast<double>(value));
        }
        computeBands(data, data.bands);
        movePeaks(data);
        const std::vector<double> levels = roots(values, kFine);
        for (std::size_t band = 0; band < 33; ++band) {
            double level = levels[band];
            if (level > 0) {
                scales[band] = level > scales[band] ? level : scales[band];
                level = level / scales[band];
            }
            bands[band] = (bands[band] + level) / 2;
            peaks[band] *= 0.99;
            peaks[band] = bands[band] > peaks[band] ? bands[band] : peaks[band];
            ASSERT_NEAR(double{data.bands.at(band)}, bands[band], 1e-5) << tick << " " << band;
            ASSERT_NEAR(double{data.peaks.at(band)}, peaks[band], 1e-4) << tick << " " << band;
        }
    }
}

TEST(SpectrumData, whatIsNoNumberCountsAsSilence) {
    SpectrumData data;
    data.FFT.fill(std::numeric_limits<float>::quiet_NaN());
    data.bands.fill(0.5F);
    computeBands(data, data.bands);
    EXPECT_EQ(data.bands[5], 0.25F);
    EXPECT_EQ(data.scale33[5], 0);
}

base::Comfort kind() {
    base::Comfort comfort;
    comfort.spreadsBands = true;
    comfort.levelsInDecibels = true;
    comfort.fallsByTime = true;
    return comfort;
}

/// The height of a bar, from the decibels that it stands for.
double height(double decibels) {
    return (decibels + 60) / 60;
}

/// The fine bands after one look at that sound.
std::array<float, 33> kindBands(const std::array<float, 256>& bins) {
    SpectrumData data;
    data.FFT = bins;
    computeBands(data, data.bands, kind());
    return data.bands;
}

TEST(ComfortableSpectrum, aToneReadsItsDecibelsInItsBandAndTheBandsAreEqualPartsOfAnOctave) {
    const double step = std::pow(192.0, 1.0 / 32);
    for (const double decibels : {0.0, -20.0, -40.0}) {
        for (int band = 6; band < 33; ++band) {
            const double bin = std::round(std::pow(step, band));
            const auto bands = kindBands(measured(bin, std::pow(10, decibels / 20)));
            EXPECT_NEAR(*std::ranges::max_element(bands), height(decibels), 0.005) << band;
            // The middle of a low band is no whole bin.
            const auto highest = std::ranges::max_element(bands) - bands.begin();
            EXPECT_LE(std::abs(highest - band), bin < 10 ? 1 : 0) << bin;
        }
    }
}

TEST(ComfortableSpectrum, aToneBetweenTwoBinsReadsTheSameWithinADecibelAndAHalf) {
    for (double bin = 4; bin < 230; bin += 3.7) {
        const auto bands = kindBands(measured(bin, 0.1));
        EXPECT_NEAR(*std::ranges::max_element(bands), height(-20), 1.5 / 60) << bin;
    }
}

TEST(ComfortableSpectrum, everyBarMovesAndNoFrequencyIsLost) {
    std::array<float, 256> bins{};
    bins.fill(0.01F);
    for (const float band : kindBands(bins)) {
        EXPECT_GT(band, 0.3F);
    }
    for (std::size_t bin = 1; bin < bins.size(); ++bin) {
        bins.fill(0);
        bins.at(bin) = 1;
        EXPECT_EQ(std::ranges::max(kindBands(bins)), 1) << bin;
    }
    // What lies above the last octave is in the last bar.
    EXPECT_EQ(kindBands(bins).back(), 1);
}

TEST(ComfortableSpectrum, aQuietSoundIsLowFromItsFirstMomentOn) {
    // In relation to themselves these two look alike.
    SpectrumData quiet;
    quiet.FFT = measured(20, 0.01);
    computeBands(quiet, quiet.bands, kind());
    EXPECT_NEAR(double{std::ranges::max(quiet.bands)}, height(-40), 0.01);
    SpectrumData loud;
    loud.FFT = measured(20, 1);
    computeBands(loud, loud.bands, kind());
    EXPECT_NEAR(double{std::ranges::max(loud.bands)}, 1, 0.01);
    loud.FFT = measured(20, 0.0005); // -66 dB
    loud.bands.fill(0);
    computeBands(loud, loud.bands, kind());
    EXPECT_EQ(std::ranges::max(loud.bands), 0);
}

TEST(ComfortableSpectrum, whatSoundsTogetherInABandCountsTogether) {
    // Noise of that size in each bin: a band of 16 bins has 16 / 1.5 times the power of one.
    std::array<float, 256> bins{};
    bins.fill(0.01F);
    const auto bands = kindBands(bins);
    EXPECT_NEAR(double{bands[28]}, height(-40 + 10 * std::log10(17 / 1.5)), 1e-4);
    EXPECT_NEAR(double{bands[0]}, height(-40), 1e-4);
}

TEST(ComfortableSpectrum, barsRiseAtOnceAndFallByTheSeconds) {
    SpectrumData data;
    data.FFT.fill(1);
    computeBands(data, data.bands, kind(), 10);
    movePeaks(data, kind(), 10);
    EXPECT_EQ(data.bands[5], 1);
    EXPECT_EQ(data.peaks[5], 1);
    data.FFT.fill(0);
    computeBands(data, data.bands, kind(), 0.3);
    movePeaks(data, kind(), 0.3);
    EXPECT_FLOAT_EQ(data.bands[5], 0.6F);
    EXPECT_FLOAT_EQ(data.peaks[5], 0.9F);
    computeBands(data, data.bands, kind(), 60);
    movePeaks(data, kind(), 60);
    EXPECT_EQ(data.bands[5], 0);
    EXPECT_EQ(data.peaks[5], 0);
}

TEST(ComfortableSpectrum, eachKindnessStandsForItself) {
    SpectrumData data;
    data.FFT = measured(3, 0.1);
    base::Comfort comfort;
    comfort.spreadsBands = true;
    computeBands(data, data.bands, comfort);
    EXPECT_FLOAT_EQ(data.bands[7], 0.5F) << "half way, in relation to the highest so far";
    data = {};
    data.FFT = measured(3, 0.1);
    comfort = {};
    comfort.levelsInDecibels = true;
    computeBands(data, data.bands, comfort);
    EXPECT_NEAR(double{data.bands[3]}, height(-20) / 2, 1e-3) << "band 3 of the table is bin 3";
    data = {};
    data.FFT = measured(3, 0.1);
    comfort = {};
    comfort.fallsByTime = true;
    computeBands(data, data.bands, comfort);
    EXPECT_EQ(data.bands[3], 1) << "its highest so far, at once";
}

TEST(ComfortableSpectrum, thereIsACoarsePictureToo) {
    SpectrumData data;
    data.FFT.fill(0.01F);
    std::vector<float> bands(16, 0);
    computeBands(data, bands, kind());
    for (const float band : bands) {
        EXPECT_GT(band, 0.3F);
    }
}

TEST(ComfortableSpectrum, whatIsNoNumberIsSilence) {
    SpectrumData data;
    data.FFT.fill(std::numeric_limits<float>::quiet_NaN());
    computeBands(data, data.bands, kind());
    EXPECT_EQ(std::ranges::max(data.bands), 0);
}

} // namespace
} // namespace tovik::test
