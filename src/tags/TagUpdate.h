// SPDX-License-Identifier: GPL-3.0-or-later
// Puts an ID3v2 tag into a file without touching its sound. Any thread, one a file.
#pragma once

#include <string>
#include <system_error>

namespace tovik::tags {

/// Writes the tag, whose head is complete but for its size, to the start of the file: over a tag
/// that begins there where it fits in front of the sound, else, with room up to a multiple of 2048
/// bytes, in front of all that stands there. The room of an old tag ends where sound begins,
/// whatever its size says; without any sound it has none. A missing file is not made. After a
/// failure the file is as it was.
[[nodiscard]] std::error_code updateTag(const std::string& path, std::string tag);

} // namespace tovik::tags
