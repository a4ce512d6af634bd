// SPDX-License-Identifier: GPL-3.0-or-later
#include "vis/SpectrumData.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tovik::vis {

namespace {

/// How many values of the spectrum a band takes, from the lowest one on. Both tables reach beyond
/// the last value: the two highest bands of the fine one stay empty.
constexpr std::array<std::uint8_t, kBands> kBins33 = {1,  1,  1,  1,  1,  2,  2,  2,  2,  3,  3,
                                                      4,  4,  5,  5,  6,  6,  8,  8,  9,  10, 11,
                                                      12, 14, 15, 17, 18, 20, 21, 24, 25, 27, 28};
constexpr std::array<std::uint8_t, kCoarseBands> kBins16 = {2,  2,  3,  4,  5,  7,  9,  11,
                                                            14, 17, 21, 30, 35, 40, 50, 60};

constexpr float kFall = 0.99F;

double levelOf(std::span<const float> values) {
    double sum = 0;
    for (const float value : values) {
        sum += value > 0 ? static_cast<double>(value) : 0;
    }
    return sum > 0 ? std::sqrt(sum) : 0;
}

void compute(std::span<const float> values, std::span<const std::uint8_t> table,
             std::span<double> scales, std::span<float> bands) {
    std::size_t next = 0;
    for (std::size_t band = 0; band < std::min(table.size(), bands.size()); ++band) {
        const std::size_t begin = std::min(next, values.size());
        next += table[band];
        double level = levelOf(values.subspan(begin, std::min(next, values.size()) - begin));
        if (level > 0) {
            scales[band] = std::max(scales[band], level);
            level /= scales[band];
        }
        bands[band] = static_cast<float>((static_cast<double>(bands[band]) + level) / 2);
    }
}

} // namespace

void computeBands(SpectrumData& data, std::span<float> bands) {
    if (bands.size() >= kBands) {
        compute(data.FFT, kBins33, data.scale33, bands);
    } else if (bands.size() >= kCoarseBands) {
        compute(data.FFT, kBins16, data.scale16, bands);
    }
}

void movePeaks(SpectrumData& data) {
    for (std::size_t band = 0; band < kBands; ++band) {
        data.peaks.at(band) = std::max(data.peaks.at(band) * kFall, data.bands.at(band));
    }
}

} // namespace tovik::vis
