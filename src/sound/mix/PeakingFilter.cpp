// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/PeakingFilter.h"

#include <cmath>
#include <complex>
#include <numbers>

namespace tovik::sound {

namespace {

constexpr double kSemitonesPerOctave = 12.0;

/// The poles lie inside the unit circle, with a margin for coefficients of single precision.
bool stable(const BandCoefficients& band) noexcept {
    constexpr double kMargin = 1e-9;
    return std::isfinite(band.b0) && std::abs(band.a2) < 1.0 - kMargin &&
           std::abs(band.a1) < 1.0 + band.a2 - kMargin;
}

} // namespace

BandCoefficients peakingFilter(double centreHz, double bandwidth, double gainDb,
                               double rate) noexcept {
    // Written so that a value that is not a number fails each condition.
    const bool sensible = centreHz > 0.0 && centreHz < rate / 2.0 && bandwidth > 0.0;
    if (!sensible || gainDb == 0.0) {
        return {};
    }
    const double omega = 2.0 * std::numbers::pi * centreHz / rate;
    const double sine = std::sin(omega);
    const double octaves = bandwidth / kSemitonesPerOctave;
    const double alpha = sine * std::sinh(std::numbers::ln2 / 2.0 * octaves * omega / sine);
    const double amplitude = std::pow(10.0, gainDb / 40.0);
    const double a0 = 1.0 + alpha / amplitude;
    const BandCoefficients band{(1.0 + alpha * amplitude) / a0, -2.0 * std::cos(omega) / a0,
                                (1.0 - alpha / amplitude) / a0};
    return stable(band) ? band : BandCoefficients{};
}

double gainDbAt(const BandCoefficients& band, double frequencyHz, double rate) noexcept {
    const double omega = 2.0 * std::numbers::pi * frequencyHz / rate;
    const std::complex<double> z1 = std::polar(1.0, -omega);
    const std::complex<double> z2 = z1 * z1;
    const double b2 = 1.0 + band.a2 - band.b0;
    const std::complex<double> above = band.b0 + band.a1 * z1 + b2 * z2;
    const std::complex<double> below = 1.0 + band.a1 * z1 + band.a2 * z2;
    return 20.0 * std::log10(std::abs(above / below));
}

} // namespace tovik::sound
