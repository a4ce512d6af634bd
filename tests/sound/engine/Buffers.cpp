// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/Buffers.h"

#include "sound/output/WavWriter.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <numbers>
#include <stdexcept>

namespace tovik::sound::test {

namespace {

/// `bytes` little-endian bytes at `at`.
std::uint32_t number(const std::vector<std::byte>& file, std::size_t at, std::size_t bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < bytes; ++i) {
        value |= std::to_integer<std::uint32_t>(file.at(at + i)) << (8 * i);
    }
    return value;
}

/// Place of the body of chunk `name` in a RIFF file.
std::size_t chunk(const std::vector<std::byte>& file, const std::string& name) {
    for (std::size_t at = 12;; at += 8 + number(file, at + 4, 4)) {
        const bool found = std::equal(name.begin(), name.end(), file.begin() + static_cast<int>(at),
                                      [](char c, std::byte b) { return std::byte(c) == b; });
        if (found) {
            return at + 8;
        }
    }
}

float sample(std::uint32_t raw, std::size_t bytes, bool isFloat) {
    constexpr float kFullScale = 2147483648.0F;
    if (isFloat) {
        return std::bit_cast<float>(raw);
    }
    if (bytes == 1) {
        return (static_cast<float>(raw) - 128.0F) / 128.0F;
    }
    const auto shifted = static_cast<std::int32_t>(raw << (32 - 8 * bytes));
    return static_cast<float>(shifted) / kFullScale;
}

} // namespace

Stereo wavSamples(const std::string& name) {
    const std::vector<std::byte> file = fileBytes(mediaPath(name));
    const std::size_t format = chunk(file, "fmt ");
    const std::size_t data = chunk(file, "data");
    const bool isFloat = number(file, format, 2) == 3;
    const std::size_t channels = number(file, format + 2, 2);
    const std::size_t bytes = number(file, format + 14, 2) / 8;
    const std::size_t frames = number(file, data - 4, 4) / (bytes * channels);
    Stereo samples;
    for (std::size_t i = 0; i < frames; ++i) {
        const std::size_t at = data + i * bytes * channels;
        samples.push_back(sample(number(file, at, bytes), bytes, isFloat));
        samples.push_back(channels == 1 ? samples.back()
                                        : sample(number(file, at + bytes, bytes), bytes, isFloat));
    }
    return samples;
}

Stereo sine(double hertz, float amplitude, std::size_t frames, int rate) {
    Stereo samples(frames * 2);
    for (std::size_t i = 0; i < frames; ++i) {
        const double phase = 2.0 * std::numbers::pi * hertz * static_cast<double>(i) / rate;
        samples[2 * i] = samples[2 * i + 1] = amplitude * static_cast<float>(std::sin(phase));
    }
    return samples;
}

void writeWav(const std::string& path, std::span<const float> samples, int rate) {
    WavWriter writer(path, rate, 2);
    writer.write(samples);
    writer.close();
    if (!writer.ok()) {
        throw std::runtime_error(writer.error());
    }
}

Stereo cut(const Stereo& sound, std::size_t from, std::size_t to) {
    const std::size_t frames = sound.size() / 2;
    const std::span<const float> all(sound);
    const std::size_t first = std::min(from, frames);
    const auto part = all.subspan(first * 2, (std::max(first, std::min(to, frames)) - first) * 2);
    return {part.begin(), part.end()};
}

Stereo scaled(const Stereo& sound, float left, float right) {
    Stereo result = sound;
    for (std::size_t i = 0; i + 1 < result.size(); i += 2) {
        result[i] *= left;
        result[i + 1] *= right;
    }
    return result;
}

float largestDifference(const Stereo& a, const Stereo& b) {
    EXPECT_FALSE(a.empty() || b.empty());
    float largest = 0.0F;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        largest = std::max(largest, std::abs(a[i] - b[i]));
    }
    return largest;
}

float largestStep(const Stereo& sound, std::array<float, 2> before) {
    float largest = 0.0F;
    for (std::size_t i = 0; i < sound.size(); ++i) {
        largest = std::max(largest, std::abs(sound[i] - std::exchange(before.at(i % 2), sound[i])));
    }
    return largest;
}

double effectiveSize(const Stereo& sound) {
    double sum = 0.0;
    for (std::size_t i = 0; i < sound.size(); i += 2) {
        sum += static_cast<double>(sound[i]) * static_cast<double>(sound[i]);
    }
    return std::sqrt(sum / static_cast<double>(std::max<std::size_t>(sound.size() / 2, 1)));
}

bool silent(const Stereo& sound) {
    return std::ranges::all_of(sound, [](float sample) { return sample == 0.0F; });
}

void expectSame(const Stereo& actual, const Stereo& expected, const std::string& what) {
    ASSERT_EQ(actual.size(), expected.size()) << what;
    const auto place = std::ranges::mismatch(actual, expected).in1 - actual.begin();
    if (place != std::ssize(actual)) {
        const auto i = static_cast<std::size_t>(place);
        FAIL() << what << ": differs at frame " << i / 2 << ", side " << i % 2 << ": " << actual[i]
               << " instead of " << expected[i];
    }
}

} // namespace tovik::sound::test
