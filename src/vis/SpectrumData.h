// SPDX-License-Identifier: GPL-3.0-or-later
// The levels that the bars of the spectrum show, and how they follow what is heard. Interface
// thread.
#pragma once

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

/// Moves `bands` half way to what `data.FFT` holds. How many there are decides: 33 and more take
/// the fine table, 16 and more the coarse one, fewer stay as they are; those beyond the table stay,
/// too. A level is the square root of the sum of a band's values in relation to the highest one
/// that the band ever had. Values that are no number count as 0.
void computeBands(SpectrumData& data, std::span<float> bands);

/// The marks fall by a hundredth; a band that is above its mark takes it along.
void movePeaks(SpectrumData& data);

} // namespace tovik::vis
