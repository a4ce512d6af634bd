// SPDX-License-Identifier: GPL-3.0-or-later
// Where the sound of an MPEG file begins, by its frames and not by what a tag says. The fields of
// a frame's head are those of ISO 11172-3 and 13818-3, and of version 2.5. One thread at a time.
#pragma once

#include "base/RegularFile.h"

#include <cstdint>
#include <optional>

namespace tovik::tags {

/// Where the first MPEG frame at or behind an offset stands; nothing where there is none. A frame
/// counts when the next one follows at its end, and also unconfirmed, or in free format, where a
/// tag at the start of the file says by either reading of its size that sound begins.
[[nodiscard]] std::optional<std::int64_t> firstSound(const base::RegularFile& file,
                                                     std::int64_t from);

/// Whether the content is MPEG audio: several frames stand in a row, and the file is not of a kind
/// that only carries such frames.
[[nodiscard]] bool isMpegAudio(const base::RegularFile& file);

} // namespace tovik::tags
