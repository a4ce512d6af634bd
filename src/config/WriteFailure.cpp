// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/WriteFailure.h"

#include "base/FileErrors.h"
#include "base/RuntimeError.h"

#include <fcntl.h>
#include <unistd.h>

namespace tovik::config {

using base::ErrorNumber;

void raiseWriteFailure(std::error_code failure, const std::string& path) {
    // A file may be made, its folder not.
    const ErrorNumber number = failure == std::errc::no_such_file_or_directory
                                   ? ErrorNumber::PathNotFound
                                   : base::errorNumberOf(failure);
    throw base::RuntimeError(number, std::string(base::errorDescription(static_cast<int>(number))) +
                                         ": " + path);
}

void requireWritable(const std::string& path) {
    if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0) {
        const std::error_code failure = base::lastSystemError();
        if (failure != std::errc::no_such_file_or_directory) {
            raiseWriteFailure(failure, path);
        }
    }
}

} // namespace tovik::config
