// SPDX-License-Identifier: GPL-3.0-or-later
// Where the parts of the program are that are not in it. Any thread.
#pragma once

#include <string>

namespace tovik::sound {

/// The program in which visual plug-ins draw; empty where there is none.
[[nodiscard]] std::string visualHost();

/// The folder of the plug-ins that come with the program; empty where there is none.
[[nodiscard]] std::string shippedVisuals();

} // namespace tovik::sound
