// SPDX-License-Identifier: GPL-3.0-or-later
// The streams that follow each other in an Ogg file, by its pages (RFC 3533, 6). Any thread.
#pragma once

#include "sound/decode/ByteStore.h"

#include <cstdint>
#include <vector>

namespace tovik::sound {

struct OggLink {
    std::int64_t begin = 0;  ///< byte of its first page
    std::int64_t end = 0;    ///< byte behind its last page
    std::int64_t frames = 0; ///< that its last page tells
};

/// Whether the last page is one of the first page's stream and tells `frames`, the length in its
/// head: then nothing follows that stream. Looks at the two ends of the file only.
[[nodiscard]] bool endsWithFirstLink(const ByteStore& store, std::int64_t frames);

/// Goes from page to page, as far as one whole page follows the other.
[[nodiscard]] std::vector<OggLink> oggLinks(const ByteStore& store);

} // namespace tovik::sound
