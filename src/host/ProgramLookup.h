// SPDX-License-Identifier: GPL-3.0-or-later
// Where a helper program's executable lies. Interface thread.
#pragma once

#include "host/Paths.h"

#include <optional>
#include <string>
#include <string_view>

namespace tovik::host {

/// The rule of `Programs::find`. `searchPath` is a list of folders as in PATH; relative ones in it
/// are passed over.
[[nodiscard]] std::optional<std::string> findProgram(std::string_view name, const Paths& paths,
                                                     std::string_view searchPath);

} // namespace tovik::host
