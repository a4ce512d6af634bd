// SPDX-License-Identifier: GPL-3.0-or-later
// The drives that a program has: the machine's, and images of discs. Any thread.
#pragma once

#include "sound/cd/DriveOptions.h"

#include <string>
#include <vector>

namespace tovik::sound {

/// For an engine's options; what finds the drives is loaded when they are looked for.
[[nodiscard]] DriveOptions machineDrives(std::vector<std::string> images);

} // namespace tovik::sound
