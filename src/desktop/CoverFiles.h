// SPDX-License-Identifier: GPL-3.0-or-later
// The picture that belongs to a track, as a file that others can open. Reads and writes the disk,
// so not for the interface thread; any other.
#pragma once

#include "host/Environment.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace tovik::desktop {

/// Where pictures out of tags are kept: in the user's cache (XDG Base Directory Specification).
[[nodiscard]] std::string coverFolder(const host::Environment& environment);

/// What is kept of pictures out of tags, those that were used last.
struct CoverLimits {
    std::size_t files = 100;
    std::uintmax_t bytes = std::uintmax_t{64} << 20;
};

/// The picture in the folder of the file: "cover", "folder" or "front" in "jpg" or "png", in any
/// case of letters, the first of this order. Empty where there is none.
[[nodiscard]] std::string folderPicture(const std::string& trackPath);

/// Whose tags are looked at for a picture.
enum class CoverTags : std::uint8_t { id3v2, everyFormat };

/// The picture of a track: that of its folder, else that of its tag, which is written to the folder
/// of covers unless it is there already. Empty where there is none or it cannot be written.
[[nodiscard]] std::string coverOf(const std::string& trackPath, const std::string& covers,
                                  const CoverLimits& limits = {},
                                  CoverTags tags = CoverTags::id3v2);

} // namespace tovik::desktop
