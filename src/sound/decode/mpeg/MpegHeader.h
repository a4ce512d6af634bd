// SPDX-License-Identifier: GPL-3.0-or-later
// Heads of MPEG audio frames (ISO/IEC 11172-3 and 13818-3), read just far enough to tell whether a
// file is made of them. Any thread.
#pragma once

#include "sound/decode/ByteStore.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace tovik::sound::mpeg {

struct MpegHeader {
    std::uint32_t kind = 0; ///< version, layer and rate: the same in all frames of a stream
    /// Bytes of the frame, its head included; 0 in free format, where only the next head tells.
    std::size_t frameBytes = 0;
};

/// The head at the beginning of `bytes`, if one stands there.
[[nodiscard]] std::optional<MpegHeader> readHeader(std::span<const std::byte> bytes) noexcept;

/// True when frame follows frame from the first byte behind the leading tags on, up to where there
/// is no doubt any more, or up to the end of a short file.
[[nodiscard]] bool looksLikeMpeg(const ByteStore& store);

} // namespace tovik::sound::mpeg
