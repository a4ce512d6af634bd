// SPDX-License-Identifier: GPL-3.0-or-later
// Failures of writing a file, as run-time errors that name the file. Any thread.
#pragma once

#include <string>
#include <system_error>

namespace tovik::config {

/// Raises the error for a failed write: 76 where the folder is missing, else the number that the
/// failure has. The description ends with the path.
[[noreturn]] void raiseWriteFailure(std::error_code failure, const std::string& path);

/// Raises if there is a file that this user may not write. Replacing a file by renaming would not
/// notice.
void requireWritable(const std::string& path);

} // namespace tovik::config
