// SPDX-License-Identifier: GPL-3.0-or-later
// Sounds that the engine's output is compared with, computed without the engine.
#pragma once

#include "sound/engine/EngineRig.h"

#include <cstddef>
#include <span>
#include <string>

namespace tovik::sound::test {

/// A file of the media that most tests play.
inline constexpr const char* kStereo = "wav_s16_44100_stereo.wav";

/// The samples of a WAV file of the media, read byte by byte; mono on both sides. One and two
/// channels, unsigned 8, signed 16, 24 and 32 bits and 32-bit float.
[[nodiscard]] Stereo wavSamples(const std::string& name);

/// A sine of the same phase on both sides.
[[nodiscard]] Stereo sine(double hertz, float amplitude, std::size_t frames, int rate = 44100);

/// Writes left, right, ... as a float WAV file.
void writeWav(const std::string& path, std::span<const float> samples, int rate = 44100);

/// Frames `from` to `to` of a sound; what lies behind its end is left out.
[[nodiscard]] Stereo cut(const Stereo& sound, std::size_t from, std::size_t to = SIZE_MAX);

/// Each side times a gain of its own.
[[nodiscard]] Stereo scaled(const Stereo& sound, float left, float right);

/// The largest difference; a shorter one is compared as far as it goes, but not when it is empty.
[[nodiscard]] float largestDifference(const Stereo& a, const Stereo& b);

/// The largest difference between neighbouring samples of a side, and between `before` and the
/// first of each side.
[[nodiscard]] float largestStep(const Stereo& sound, std::array<float, 2> before);

/// Root of the mean square of the left side.
[[nodiscard]] double effectiveSize(const Stereo& sound);

[[nodiscard]] bool silent(const Stereo& sound);

/// Same length and every sample equal; tells the first place that is not.
void expectSame(const Stereo& actual, const Stereo& expected, const std::string& what = {});

} // namespace tovik::sound::test
