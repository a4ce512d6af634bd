// SPDX-License-Identifier: GPL-3.0-or-later
// The levels that the bars of the spectrum show, and how they follow what is heard. Interface
// thread.
#pragma once

#include "base/Comfort.h"

#include <array>
#include <cstddef>
#include <span>

namespace tovik::vis {

/// How many bars are drawn.
inline constexpr std::size_t kBands = 33;

/// The same for a coarse picture of the sound.
inline constexpr std::size_t kCoarseBands = 16;

/// How many values a spectrum of 512 samples has.
inline constexpr std::size_t kBins = 256;

struct SpectrumData {
    std::array<float, kBins> FFT{};             ///< what was heard last, each value 0 to 1
    std::array<float, kBands> bands{};          ///< levels, 0 to 1
    std::array<float, kBands> peaks{};          ///< marks above them, 0 to 1
    std::array<double, kCoarseBands> scale16{}; ///< the highest level so far, of each coarse band
    std::array<double, kBands> scale33{};       ///< likewise, of each band
};

/// What a bar of full height stands for, and one of none, in decibels of full scale.
inline constexpr double kTopDecibels = 0;
inline constexpr double kGroundDecibels = -60;

/// How much of the height bars and marks lose in a second where they fall by time.
inline constexpr double kBarsFall = 4.0 / 3;
inline constexpr double kMarksFall = 1.0 / 3;

/// Moves `bands` half way to what `data.FFT` holds. How many there are decides: 33 and more take
/// the fine table, 16 and more the coarse one, fewer stay as they are; those beyond the table stay,
/// too. A level is the square root of the sum of a band's values in relation to the highest one
/// that the band ever had. Values that are no number count as 0.
///
/// Comfort changes each of that: `spreadsBands` takes tables whose bands are equal parts of an
/// octave, the last one with whatever lies above it; `levelsInDecibels` takes as the level the
/// decibels of full scale of a tone, or of all that sounds in the band together; with `fallsByTime`
/// a band that is below its level is there at once, and one above falls by `kBarsFall` for the
/// seconds since the call before.
void computeBands(SpectrumData& data, std::span<float> bands, const base::Comfort& comfort = {},
                  double seconds = 0);

/// The marks fall by a hundredth, or with `Comfort::fallsByTime` by `kMarksFall` for the seconds
/// since the call before; a band that is above its mark takes it along.
void movePeaks(SpectrumData& data, const base::Comfort& comfort = {}, double seconds = 0);

} // namespace tovik::vis
