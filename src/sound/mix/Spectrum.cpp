// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/Spectrum.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tovik::sound {

namespace {

using Complex = std::complex<float>;

/// The Hann window over n samples sums up to n / 2, and half of a sine lies at negative
/// frequencies.
constexpr float kScale = 4.0F / static_cast<float>(Spectrum::kSamples);

/// Without the library's care for what is not finite, which is dealt with at the end.
Complex product(Complex a, Complex b) noexcept {
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

} // namespace

Spectrum::Spectrum() {
    for (std::size_t i = 0; i < kSamples; ++i) {
        const double turn = 2.0 * std::numbers::pi * static_cast<double>(i) / kSamples;
        window_[i] = static_cast<float>(0.5 - 0.5 * std::cos(turn));
    }
    for (std::size_t i = 0; i < kPoints; ++i) {
        const double turn = 2.0 * std::numbers::pi * static_cast<double>(i) / kSamples;
        turns_[i] = {static_cast<float>(std::cos(turn)), static_cast<float>(-std::sin(turn))};
        // Half of the index before, and its lowest bit to the front.
        order_[i] = order_[i / 2] / 2 + (i % 2 == 1 ? kPoints / 2 : 0);
    }
}

/// The transform of Cooley and Tukey, in place, of points in the order of reversed bits.
void Spectrum::transform() noexcept {
    for (std::size_t half = 1; half < kPoints; half *= 2) {
        const std::size_t stride = kPoints / half;
        for (std::size_t begin = 0; begin < kPoints; begin += 2 * half) {
            for (std::size_t n = 0; n < half; ++n) {
                const Complex a = points_[begin + n];
                const Complex b = product(points_[begin + n + half], turns_[n * stride]);
                points_[begin + n] = a + b;
                points_[begin + n + half] = a - b;
            }
        }
    }
}

void Spectrum::measure(std::span<const float, kSamples> mono,
                       std::span<float, kBins> bins) noexcept {
    for (std::size_t i = 0; i < kPoints; ++i) {
        points_[order_[i]] = {mono[2 * i] * window_[2 * i], mono[2 * i + 1] * window_[2 * i + 1]};
    }
    transform();
    for (std::size_t bin = 0; bin < kBins; ++bin) {
        // What even and odd samples give, taken apart and joined again.
        const Complex here = points_[bin];
        const Complex mirrored = std::conj(points_[(kPoints - bin) % kPoints]);
        const Complex even = (here + mirrored) * 0.5F;
        const Complex odd = product((here - mirrored) * 0.5F, {0.0F, -1.0F});
        const Complex value = even + product(odd, turns_[bin]);
        const float size =
            kScale * std::sqrt(value.real() * value.real() + value.imag() * value.imag());
        bins[bin] = size > 0.0F ? std::min(size, 1.0F) : 0.0F; // what is no number reads 0
    }
}

} // namespace tovik::sound
