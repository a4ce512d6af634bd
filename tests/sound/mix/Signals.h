// SPDX-License-Identifier: GPL-3.0-or-later
// Sounds for the tests of the mix, and what is measured in them.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <random>
#include <span>
#include <vector>

namespace tovik::sound::testing {

inline constexpr double kRate = 44100.0;

/// Left a sine of `hertz`, right the same a quarter turn on.
inline std::vector<float> stereoSine(double hertz, double amplitude, std::size_t frames) {
    std::vector<float> samples(frames * 2);
    for (std::size_t i = 0; i < frames; ++i) {
        const double turn = 2.0 * std::numbers::pi * hertz * static_cast<double>(i) / kRate;
        samples[2 * i] = static_cast<float>(amplitude * std::sin(turn));
        samples[2 * i + 1] = static_cast<float>(amplitude * std::cos(turn));
    }
    return samples;
}

/// Different noise on both sides, the same for the same seed.
inline std::vector<float> stereoNoise(std::size_t frames, float amplitude, unsigned seed = 1) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> sample(-amplitude, amplitude);
    std::vector<float> samples(frames * 2);
    std::ranges::generate(samples, [&] { return sample(random); });
    return samples;
}

/// Amplitude of the part of one side (0 left, 1 right) that has `hertz`, by correlation under a
/// Hann window.
inline double amplitudeAt(std::span<const float> interleaved, std::size_t side, double hertz) {
    const std::size_t frames = interleaved.size() / 2;
    double sine = 0.0;
    double cosine = 0.0;
    double weights = 0.0;
    for (std::size_t i = 0; i < frames; ++i) {
        const auto place = static_cast<double>(i);
        const double weight =
            0.5 - 0.5 * std::cos(2.0 * std::numbers::pi * place / static_cast<double>(frames));
        const double turn = 2.0 * std::numbers::pi * hertz * place / kRate;
        const auto sample = static_cast<double>(interleaved[2 * i + side]);
        sine += weight * sample * std::sin(turn);
        cosine += weight * sample * std::cos(turn);
        weights += weight;
    }
    return 2.0 * std::hypot(sine, cosine) / weights;
}

/// The largest difference between neighbours of the same side.
inline float largestStep(std::span<const float> interleaved) {
    float largest = 0.0F;
    for (std::size_t i = 2; i < interleaved.size(); ++i) {
        largest = std::max(largest, std::abs(interleaved[i] - interleaved[i - 2]));
    }
    return largest;
}

/// Gives `samples` to `process` in blocks of varying odd and even sizes, single frames among them.
template <typename Process>
void inUnevenBlocks(std::span<float> samples, Process process, unsigned seed = 7) {
    std::mt19937 random(seed);
    while (!samples.empty()) {
        const std::size_t most = random() % 4 == 0 ? 200 : 13;
        const std::size_t frames = std::min(1 + random() % most, samples.size() / 2);
        process(samples.first(frames * 2));
        samples = samples.subspan(frames * 2);
    }
}

} // namespace tovik::sound::testing
