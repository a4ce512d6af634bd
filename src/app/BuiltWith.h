// SPDX-License-Identifier: GPL-3.0-or-later
// The libraries that the program was built with. Any thread.
#pragma once

#include <string>
#include <vector>

namespace tovik::app {

/// Each by its name and version, such as "FLAC 1.4.2".
[[nodiscard]] std::vector<std::string> builtWith();

} // namespace tovik::app
