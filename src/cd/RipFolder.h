// SPDX-License-Identifier: GPL-3.0-or-later
// The folder that a rip writes into. Called on the interface thread; the disk is asked beside it.
#pragma once

#include "host/MessagePump.h"

#include <optional>
#include <string>

namespace tovik::cd {

/// Whether there is such a folder; nothing when the program is ending.
[[nodiscard]] std::optional<bool> folderExists(host::MessagePump& pump, const std::string& path);

/// Makes it with all above it. False when the program is ending. Raises what making a folder
/// raises, with its path.
[[nodiscard]] bool makeFolder(host::MessagePump& pump, const std::string& path);

} // namespace tovik::cd
