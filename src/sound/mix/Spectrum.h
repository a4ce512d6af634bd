// SPDX-License-Identifier: GPL-3.0-or-later
// How much of each frequency is in a piece of sound. One thread at a time.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>

struct AVTXContext;

namespace tovik::sound {

class Spectrum {
public:
    static constexpr std::size_t kSamples = 512;
    static constexpr std::size_t kBins = kSamples / 2;

    Spectrum();

    /// From mono samples to sizes 0 to 1: bin n stands for n * rate / 512 Hz, and a sine of full
    /// scale in the middle of a bin reads 1. Hann window. All 0 if the transform is not to be had.
    void measure(std::span<const float, kSamples> mono, std::span<float, kBins> bins) noexcept;

private:
    struct Free {
        void operator()(AVTXContext* context) const noexcept;
    };

    using Transform = void (*)(AVTXContext*, void* out, void* in, std::ptrdiff_t stride);

    // Aligned as the transform asks; real and imaginary parts of one bin more than half.
    alignas(64) std::array<float, kSamples> windowed_{};
    alignas(64) std::array<float, kSamples + 2> complex_{};
    std::array<float, kSamples> window_{};
    std::unique_ptr<AVTXContext, Free> context_;
    Transform transform_ = nullptr;
};

} // namespace tovik::sound
