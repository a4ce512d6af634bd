// SPDX-License-Identifier: GPL-3.0-or-later
// Where the fixed places on another system's drive are found. Any thread.
#pragma once

#include "host/Paths.h"

#include <string>
#include <string_view>

namespace tovik::host {

/// The file that stands for "c:\name": the one of that name in the folder "drive_c" of the data
/// folder, looked up as `Paths::inside` does. A name without "c:" is looked up there, too.
[[nodiscard]] std::string drivePath(const Paths& paths, std::string_view name);

} // namespace tovik::host
