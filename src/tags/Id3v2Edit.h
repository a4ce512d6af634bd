// SPDX-License-Identifier: GPL-3.0-or-later
// The ID3v2 tag at the start of a file, edited frame by frame (id3.org: 2.2, 2.3 and 2.4). Frames
// that do not change keep their bytes. Any thread.
#pragma once

#include "tags/EditTags.h"
#include "tags/TagBytes.h"

#include <cstdint>
#include <optional>

namespace tovik::tags {

/// Whether a tag begins the file.
[[nodiscard]] bool hasVersion2(TagBytes& bytes);

/// Changes the frames that are to change, puts a tag of version 2.3 in front, or takes one away.
/// `sound`: where sound begins, as far as is known; a tag ends there at the latest. False, and
/// nothing is changed, where the tag cannot be walked to its end.
[[nodiscard]] bool changeVersion2(TagBytes& bytes, const TagChange& change,
                                  std::optional<std::int64_t> sound);

} // namespace tovik::tags
