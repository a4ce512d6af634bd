// SPDX-License-Identifier: GPL-3.0-or-later
// The head of a RIFF WAVE file: what its samples are and where they stand (Microsoft, "Multimedia
// Programming Interface and Data Specifications 1.0"). Any thread.
#pragma once

#include "sound/decode/ByteStore.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tovik::sound::riff {

/// Form tags of "mmreg.h", as far as they are known here.
enum FormTag : std::uint16_t {
    kPcm = 0x0001,
    kMsAdpcm = 0x0002,
    kFloat = 0x0003,
    kImaAdpcm = 0x0011,
    kMpegLayer12 = 0x0050,
    kMpegLayer3 = 0x0055,
    kExtensible = 0xFFFE,
};

struct RiffHead {
    std::uint16_t form = 0; ///< never kExtensible: that one's own form is taken
    std::uint16_t channels = 0;
    std::uint32_t rate = 0;
    std::uint16_t blockBytes = 0;
    std::uint16_t bits = 0;
    std::uint32_t speakerMask = 0;
    std::vector<std::byte> more; ///< what the form chunk holds behind its common fields
    std::int64_t factFrames = 0; ///< length as a "fact" chunk tells it; 0 without one
    std::int64_t dataAt = 0;
    std::int64_t dataBytes = 0; ///< that the store holds now, whatever the head says
};

[[nodiscard]] bool isRiff(const ByteStore& store);

/// Nothing when `store` is no such file, or has no samples.
[[nodiscard]] std::optional<RiffHead> readRiffHead(const ByteStore& store);

} // namespace tovik::sound::riff
