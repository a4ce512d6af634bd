// SPDX-License-Identifier: GPL-3.0-or-later
// Brings decoded samples of another rate to stereo at the engine's rate. Used by the thread that
// decodes; sources that already have that rate need `doubleMono` at most.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

struct soxr;

namespace tovik::sound {

/// Writes each sample of `mono` to both sides, unchanged. `stereo` is twice as long as `mono`.
void doubleMono(std::span<const float> mono, std::span<float> stereo) noexcept;

class Resampler {
public:
    /// The engine's rate in Hz.
    static constexpr int kOutputRate = 44100;
    /// Rates that can be converted, in Hz; decoders open nothing outside them.
    static constexpr int kLowestRate = 1000;
    static constexpr int kHighestRate = 768000;

    /// For sources of `rate` Hz with one or two channels; null for any other and when memory is
    /// short.
    [[nodiscard]] static std::unique_ptr<Resampler> create(int rate, int channels);

    ~Resampler();
    Resampler(const Resampler&) = delete;
    Resampler& operator=(const Resampler&) = delete;

    /// The most frames that `process` can write for `frames` more of input.
    [[nodiscard]] std::size_t mostOutput(std::size_t frames) const noexcept;

    /// Takes all of `in` (interleaved) and writes to `out` (stereo, room for `mostOutput`) what is
    /// ready; the sound lags behind by the length of the filter. Returns the frames written.
    [[nodiscard]] std::size_t process(std::span<const float> in, std::span<float> out) noexcept;

    /// Gives the rest after the last input: frames written, 0 when nothing is left. Over all, the
    /// frames given are those taken times 44100 divided by the rate, rounded.
    [[nodiscard]] std::size_t flush(std::span<float> out) noexcept;

    /// Forgets the input so far, as after a seek.
    void reset() noexcept;

private:
    struct Free {
        void operator()(soxr* context) const noexcept;
    };

    Resampler(int rate, int channels);
    std::size_t convert(std::span<const float> in, std::span<float> out) noexcept;

    std::unique_ptr<soxr, Free> context_;
    int rate_;
    std::size_t channels_;
    std::int64_t taken_ = 0;
    std::int64_t given_ = 0;
};

} // namespace tovik::sound
