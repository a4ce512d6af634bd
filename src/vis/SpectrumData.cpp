// SPDX-License-Identifier: GPL-3.0-or-later
#include "vis/SpectrumData.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tovik::vis {

namespace {

/// What a band takes of the spectrum: so many values from the first one on; for a band between two
/// values, which takes none, how far it is on the way from the first one to the next.
struct Reach {
    std::uint16_t first = 0;
    std::uint16_t count = 0;
    float way = 0;
};

/// How many values of the spectrum a band takes, from the lowest one on. Both tables reach beyond
/// the last value: the two highest bands of the fine one stay empty.
constexpr std::array<std::uint8_t, kBands> kBins33 = {1,  1,  1,  1,  1,  2,  2,  2,  2,  3,  3,
                                                      4,  4,  5,  5,  6,  6,  8,  8,  9,  10, 11,
                                                      12, 14, 15, 17, 18, 20, 21, 24, 25, 27, 28};
constexpr std::array<std::uint8_t, kCoarseBands> kBins16 = {2,  2,  3,  4,  5,  7,  9,  11,
                                                            14, 17, 21, 30, 35, 40, 50, 60};

template <std::size_t size>
constexpr std::array<Reach, size> oneBehindTheOther(const std::array<std::uint8_t, size>& counts) {
    std::array<Reach, size> reaches;
    std::size_t next = 0;
    for (std::size_t band = 0; band < size; ++band) {
        const std::size_t first = std::min(next, kBins);
        next += counts[band];
        reaches[band] = {static_cast<std::uint16_t>(first),
                         static_cast<std::uint16_t>(std::min(next, kBins) - first)};
    }
    return reaches;
}

/// The middle of the first band is the first value that is no constant, that of the last one at
/// three quarters of the spectrum: above it much music has nothing. `halfStep` is the ratio of a
/// band's upper edge to its middle.
template <std::size_t size>
constexpr std::array<Reach, size> byOctaves(double halfStep) {
    const auto valueFrom = [](double edge) {
        const auto below = static_cast<std::uint16_t>(edge);
        return static_cast<std::uint16_t>(below < edge ? below + 1 : below);
    };
    std::array<Reach, size> reaches;
    double middle = 1;
    for (std::size_t band = 0; band < size; ++band) {
        const std::uint16_t first = valueFrom(middle / halfStep);
        const std::uint16_t end = band + 1 == size ? kBins : valueFrom(middle * halfStep);
        const auto below = static_cast<std::uint16_t>(middle);
        reaches[band] = first < end ? Reach{first, static_cast<std::uint16_t>(end - first)}
                                    : Reach{below, 0, static_cast<float>(middle - below)};
        middle *= halfStep * halfStep;
    }
    return reaches;
}

constexpr auto kFine = oneBehindTheOther(kBins33);
constexpr auto kCoarse = oneBehindTheOther(kBins16);
constexpr auto kFineOctaves = byOctaves<kBands>(1.0856168656320104);         // 192^(1 / 64)
constexpr auto kCoarseOctaves = byOctaves<kCoarseBands>(1.1915438815816444); // 192^(1 / 30)

constexpr float kFall = 0.99F;

/// A tone between the middles of two values shows in several; so many of it are in their squares.
constexpr double kSquaresOfTone = 1.5;

/// Of the values of a band.
struct Sound {
    double sum = 0;
    double squares = 0;
    double highest = 0;
};

Sound soundOf(std::span<const float> values) {
    Sound sound;
    for (const float value : values) {
        const double size = value > 0 ? static_cast<double>(value) : 0; // what is no number is 0
        sound.sum += size;
        sound.squares += size * size;
        sound.highest = std::max(sound.highest, size);
    }
    return sound;
}

Sound soundOf(const std::array<float, kBins>& values, const Reach& reach) {
    if (reach.count > 0 || reach.first + std::size_t{1} >= values.size()) {
        return soundOf(std::span(values).subspan(reach.first, reach.count));
    }
    const std::array between = {
        std::lerp(values.at(reach.first), values.at(reach.first + std::size_t{1}), reach.way)};
    return soundOf(between);
}

double relativeLevel(const Sound& sound, double& scale) {
    if (sound.sum <= 0) {
        return 0;
    }
    const double level = std::sqrt(sound.sum);
    scale = std::max(scale, level);
    return level / scale;
}

/// From the ground to the top.
double decibelLevel(const Sound& sound) {
    const double size = std::max(sound.highest, std::sqrt(sound.squares / kSquaresOfTone));
    if (size <= 0) {
        return 0;
    }
    const double decibels = 20 * std::log10(size);
    return std::clamp((decibels - kGroundDecibels) / (kTopDecibels - kGroundDecibels), 0.0, 1.0);
}

/// What a band or a mark is after that time, with nothing to hold it up.
float fallen(float from, double seconds, double fall) {
    return std::max(from - static_cast<float>(seconds * fall), 0.0F);
}

void compute(const std::array<float, kBins>& values, std::span<const Reach> table,
             std::span<double> scales, std::span<float> bands, const base::Comfort& comfort,
             double seconds) {
    for (std::size_t band = 0; band < std::min(table.size(), bands.size()); ++band) {
        const Sound sound = soundOf(values, table[band]);
        const double level =
            comfort.levelsInDecibels ? decibelLevel(sound) : relativeLevel(sound, scales[band]);
        bands[band] =
            comfort.fallsByTime
                ? std::max(static_cast<float>(level), fallen(bands[band], seconds, kBarsFall))
                : static_cast<float>((static_cast<double>(bands[band]) + level) / 2);
    }
}

} // namespace

void computeBands(SpectrumData& data, std::span<float> bands, const base::Comfort& comfort,
                  double seconds) {
    if (bands.size() >= kBands) {
        compute(data.FFT, comfort.spreadsBands ? kFineOctaves : kFine, data.scale33, bands, comfort,
                seconds);
    } else if (bands.size() >= kCoarseBands) {
        compute(data.FFT, comfort.spreadsBands ? kCoarseOctaves : kCoarse, data.scale16, bands,
                comfort, seconds);
    }
}

void movePeaks(SpectrumData& data, const base::Comfort& comfort, double seconds) {
    for (std::size_t band = 0; band < kBands; ++band) {
        const float mark = data.peaks.at(band);
        data.peaks.at(band) =
            std::max(comfort.fallsByTime ? fallen(mark, seconds, kMarksFall) : mark * kFall,
                     data.bands.at(band));
    }
}

} // namespace tovik::vis
