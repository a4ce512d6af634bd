// SPDX-License-Identifier: GPL-3.0-or-later
// How much of each frequency is in a piece of sound. One thread at a time.
#pragma once

#include <array>
#include <complex>
#include <cstddef>
#include <span>

namespace tovik::sound {

class Spectrum {
public:
    static constexpr std::size_t kSamples = 512;
    static constexpr std::size_t kBins = kSamples / 2;

    Spectrum();

    /// From mono samples to sizes 0 to 1: bin n stands for n * rate / 512 Hz, and a sine of full
    /// scale in the middle of a bin reads 1. Hann window.
    void measure(std::span<const float, kSamples> mono, std::span<float, kBins> bins) noexcept;

private:
    /// Two samples in a row are one complex number: half the work of a transform of 512.
    static constexpr std::size_t kPoints = kSamples / 2;

    void transform() noexcept;

    std::array<float, kSamples> window_{};
    std::array<std::complex<float>, kPoints> turns_{}; ///< exp(-2 pi i n / kSamples)
    std::array<std::size_t, kPoints> order_{};         ///< indices with their bits reversed
    std::array<std::complex<float>, kPoints> points_{};
};

} // namespace tovik::sound
