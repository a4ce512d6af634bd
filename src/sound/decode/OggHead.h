// SPDX-License-Identifier: GPL-3.0-or-later
// What the first page of an Ogg file announces (RFC 3533). Any thread.
#pragma once

#include "sound/decode/ByteStore.h"

namespace tovik::sound {

enum class OggContent {
    none,  ///< no Ogg file
    other, ///< Ogg, but neither of these
    vorbis,
    flac,
};

[[nodiscard]] OggContent oggContent(const ByteStore& store);

/// Where the last of the streams that follow each other begins; 0 when there is only one.
[[nodiscard]] std::int64_t lastLinkAt(const ByteStore& store);

} // namespace tovik::sound
