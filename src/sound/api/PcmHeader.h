// SPDX-License-Identifier: GPL-3.0-or-later
// The head of a WAV file of plain samples (RIFF/WAVE, format tag 1), 44 bytes. Any thread.
#pragma once

#include "base/LittleEndian.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace tovik::sound {

inline constexpr std::size_t kPcmHeaderBytes = 44;

/// Where the two sizes stand in it, counted from 0: of what follows the first 8 bytes, and of the
/// samples.
inline constexpr std::size_t kPcmFileSizeAt = 4;
inline constexpr std::size_t kPcmDataSizeAt = 40;

/// Readers take it as "to the end": for a pipe.
inline constexpr std::uint32_t kUnknownPcmSize = 0xFFFFFFFFU;

/// `bits` a sample; sizes are written as given.
[[nodiscard]] inline std::string pcmHeader(std::uint32_t rate, std::uint16_t channels,
                                           std::uint16_t bits, std::uint32_t fileSize,
                                           std::uint32_t dataSize) {
    constexpr std::uint32_t kFormatBytes = 16;
    constexpr std::uint16_t kPlainSamples = 1;
    const auto align = static_cast<std::uint16_t>(channels * bits / 8);
    std::string bytes = "RIFF";
    base::appendLittleEndian(bytes, fileSize);
    bytes += "WAVEfmt ";
    base::appendLittleEndian(bytes, kFormatBytes);
    base::appendLittleEndian(bytes, kPlainSamples);
    base::appendLittleEndian(bytes, channels);
    base::appendLittleEndian(bytes, rate);
    base::appendLittleEndian(bytes, rate * align);
    base::appendLittleEndian(bytes, align);
    base::appendLittleEndian(bytes, bits);
    bytes += "data";
    base::appendLittleEndian(bytes, dataSize);
    return bytes;
}

} // namespace tovik::sound
