// SPDX-License-Identifier: GPL-3.0-or-later
// What a failed system call means as a run-time error. Any thread.
#pragma once

#include "base/RuntimeError.h"

#include <system_error>

namespace tovik::base {

/// The run-time error number for a failed file operation; Path/File access error for a failure
/// that has none of its own.
[[nodiscard]] ErrorNumber errorNumberOf(std::error_code failure) noexcept;

/// Raises the failure of a file operation; without one it does nothing.
void raiseFailure(std::error_code failure);

/// The failure of the last system call (errno).
[[nodiscard]] std::error_code lastSystemError() noexcept;

} // namespace tovik::base
