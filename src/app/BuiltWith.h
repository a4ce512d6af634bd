// SPDX-License-Identifier: GPL-3.0-or-later
// What the build knows of the program. Any thread.
#pragma once

#include <string>
#include <vector>

namespace tovik::app {

/// Each by its name and version, such as "FLAC 1.4.2".
[[nodiscard]] std::vector<std::string> builtWith();

/// The program's version, such as "0.1.0".
[[nodiscard]] const char* programVersion();

} // namespace tovik::app
