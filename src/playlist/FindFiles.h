// SPDX-License-Identifier: GPL-3.0-or-later
// Looking for files in a folder and those below it. Any thread; it waits for the disk.
#pragma once

#include <atomic>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::playlist {

/// Which files count, and in which order they come. Sizes in bytes, both ends included.
struct FileLimits {
    std::int64_t minSize = 0;
    std::int64_t maxSize = -1;  ///< -1: the largest number of 32 bits
    bool excludeHidden = false; ///< a file whose name begins with "." is hidden
    bool byFolder = false;      ///< each file once, by folder and name, whichever pattern it holds
    bool below = true;          ///< folders in the folder are looked through, too
};

/// The names of the files in one folder, in their order; empty for one that cannot be read.
[[nodiscard]] std::vector<std::string> filesIn(const std::string& folder);

/// The paths of all files below `root` whose names hold a pattern, in any case of ASCII letters:
/// all that hold the first one, then all that hold the second, and so on, so a file may come more
/// than once. A folder's own files come before those of the folders in it; all are in the order of
/// their names, the case of letters aside. The tree is walked once for all patterns. What cannot be
/// read is passed over. A folder is never entered twice, whatever links lead to it. Ends early,
/// with what was found, when `stop` is set.
[[nodiscard]] std::vector<std::string> FindFiles(const std::string& root,
                                                 std::span<const std::string> patterns,
                                                 const FileLimits& limits,
                                                 const std::atomic<bool>& stop);

} // namespace tovik::playlist
