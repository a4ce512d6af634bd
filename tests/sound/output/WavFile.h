// SPDX-License-Identifier: GPL-3.0-or-later
// Reads a WAV file of float samples back, field by field, without any code of the writer.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tovik::sound {

struct WavFile {
    std::uint32_t riffBytes = 0;
    std::uint16_t formatTag = 0;
    std::uint16_t channels = 0;
    std::uint32_t sampleRate = 0;
    std::uint32_t bytesPerSecond = 0;
    std::uint16_t frameBytes = 0;
    std::uint16_t bitsPerSample = 0;
    std::uint32_t factFrames = 0;
    std::uint32_t dataBytes = 0; ///< as the header says
    std::vector<float> samples;  ///< as far as the file reaches
};

/// Nothing when the file is no WAV file.
[[nodiscard]] std::optional<WavFile> readWav(const std::string& path);

} // namespace tovik::sound
