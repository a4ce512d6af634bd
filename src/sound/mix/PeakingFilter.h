// SPDX-License-Identifier: GPL-3.0-or-later
// The coefficients of one equalizer band. Pure functions, any thread.
#pragma once

namespace tovik::sound {

/// A second-order peaking filter, normalised to a0 = 1. In such a filter b1 = a1 and
/// b2 = 1 + a2 - b0, so three numbers say all. As made it is neutral.
struct BandCoefficients {
    double b0 = 1.0;
    double a1 = 0.0;
    double a2 = 0.0;

    /// True when the filter changes nothing.
    [[nodiscard]] bool neutral() const noexcept { return b0 == 1.0; }
};

/// The peaking equalizer of R. Bristow-Johnson's "Audio EQ Cookbook", with the bandwidth between
/// the points of half the gain in dB. `bandwidth` is in semitones, `rate` in Hz. Neutral when the
/// gain is 0, the centre does not lie between 0 and half the rate, or a value makes no filter.
[[nodiscard]] BandCoefficients peakingFilter(double centreHz, double bandwidth, double gainDb,
                                             double rate) noexcept;

/// The gain in dB of a filter for a sine of `frequencyHz`.
[[nodiscard]] double gainDbAt(const BandCoefficients& band, double frequencyHz,
                              double rate) noexcept;

} // namespace tovik::sound
