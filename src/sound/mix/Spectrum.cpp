// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/Spectrum.h"

#include <algorithm>
#include <cmath>
#include <numbers>

extern "C" {
#include <libavutil/tx.h>
}

namespace tovik::sound {

namespace {

/// The Hann window over n samples sums up to n / 2, and half of a sine lies at negative
/// frequencies.
constexpr float kScale = 4.0F / static_cast<float>(Spectrum::kSamples);

} // namespace

void Spectrum::Free::operator()(AVTXContext* context) const noexcept {
    av_tx_uninit(&context);
}

Spectrum::Spectrum() {
    AVTXContext* context = nullptr;
    av_tx_fn function = nullptr;
    if (av_tx_init(&context, &function, AV_TX_FLOAT_RDFT, 0, kSamples, &kScale, 0) >= 0) {
        context_.reset(context);
        transform_ = function;
    }
    for (std::size_t i = 0; i < kSamples; ++i) {
        const double turn = 2.0 * std::numbers::pi * static_cast<double>(i) / kSamples;
        window_[i] = static_cast<float>(0.5 - 0.5 * std::cos(turn));
    }
}

void Spectrum::measure(std::span<const float, kSamples> mono,
                       std::span<float, kBins> bins) noexcept {
    if (transform_ == nullptr) {
        std::ranges::fill(bins, 0.0F);
        return;
    }
    for (std::size_t i = 0; i < kSamples; ++i) {
        windowed_[i] = mono[i] * window_[i];
    }
    transform_(context_.get(), complex_.data(), windowed_.data(), sizeof(float));
    for (std::size_t bin = 0; bin < kBins; ++bin) {
        const float real = complex_[2 * bin];
        const float imaginary = complex_[2 * bin + 1];
        const float size = std::sqrt(real * real + imaginary * imaginary);
        bins[bin] = size > 0.0F ? std::min(size, 1.0F) : 0.0F; // what is no number reads 0
    }
}

} // namespace tovik::sound
