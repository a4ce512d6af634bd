// SPDX-License-Identifier: GPL-3.0-or-later
// Moves the bytes of a file towards its end. Any thread, one a file.
#pragma once

#include "base/RegularFile.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>

namespace tovik::tags {

/// Puts `count` bytes in front of the file and writes `front` over its start, in one pass, without
/// holding the file in memory. The moved copy is written beside the file, flushed, and put in its
/// place with its mode and owner; where the folder does not allow that, a copy in the folder for
/// temporary files is brought back into the file. What killed processes left beside the file of
/// earlier such copies is removed. After a failure the file is as it was. `file` is the open file
/// at that path.
[[nodiscard]] std::error_code MakeRoom(const std::string& path, base::RegularFile& file,
                                       std::int64_t count, std::string_view front);

} // namespace tovik::tags
