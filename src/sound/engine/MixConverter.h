// SPDX-License-Identifier: GPL-3.0-or-later
// Brings what a decoder gives to the form of the mix: stereo at 44100 Hz. Samples that have the
// form already pass untouched. Used under the lock of its source, by one thread at a time.
#pragma once

#include "sound/decode/Resampler.h"

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace tovik::sound {

class MixConverter {
public:
    /// For decoders of `rate` Hz with one or two channels, in slices of at most `sliceFrames`.
    MixConverter(int rate, int channels, std::size_t sliceFrames);

    /// The most frames of the mix that a slice can make.
    [[nodiscard]] std::size_t mostFrames() const noexcept { return mostFrames_; }

    /// Stereo frames made of the next slice; valid until the next call.
    [[nodiscard]] std::span<const float> convert(std::span<const float> decoded);

    /// What is left behind the last slice: to be called until it gives nothing.
    [[nodiscard]] std::span<const float> flush();

    /// Forgets the input so far, as after a seek.
    void reset() noexcept;

private:
    int channels_;
    std::unique_ptr<Resampler> resampler_; ///< null when the rate is that of the mix
    std::size_t mostFrames_;
    std::vector<float> stereo_;
};

} // namespace tovik::sound
