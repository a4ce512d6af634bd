// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileErrors.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace tovik::base {

namespace {

struct Row {
    int systemError;
    ErrorNumber number;
};

constexpr std::array kNumbers{
    Row{ENOENT, ErrorNumber::FileNotFound},
    Row{ENOTDIR, ErrorNumber::PathNotFound},
    Row{EACCES, ErrorNumber::PermissionDenied},
    Row{EPERM, ErrorNumber::PermissionDenied},
    Row{ENOSPC, ErrorNumber::DiskFull},
    Row{EDQUOT, ErrorNumber::DiskFull},
    Row{EFBIG, ErrorNumber::DiskFull},
    Row{EIO, ErrorNumber::DeviceIoError},
    Row{EEXIST, ErrorNumber::FileAlreadyExists},
    Row{EMFILE, ErrorNumber::TooManyFiles},
    Row{ENFILE, ErrorNumber::TooManyFiles},
    Row{ENAMETOOLONG, ErrorNumber::BadFileNameOrNumber},
    Row{ENOMEM, ErrorNumber::OutOfMemory},
    Row{ENODEV, ErrorNumber::DeviceUnavailable},
};

} // namespace

ErrorNumber errorNumberOf(std::error_code failure) noexcept {
    const auto* const row =
        std::find_if(kNumbers.begin(), kNumbers.end(), [&failure](const Row& candidate) {
            return candidate.systemError == failure.value();
        });
    return row == kNumbers.end() ? ErrorNumber::PathFileAccessError : row->number;
}

void raiseFailure(std::error_code failure) {
    if (failure) {
        throw RuntimeError(errorNumberOf(failure));
    }
}

std::error_code lastSystemError() noexcept {
    return {errno, std::generic_category()};
}

} // namespace tovik::base
