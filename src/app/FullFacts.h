// SPDX-License-Identifier: GPL-3.0-or-later
// What is known of a file without playing it. Reads the disk, so not for the interface thread; any
// other.
#pragma once

#include "tags/FileFacts.h"

#include <string>

namespace tovik::app {

/// What the file says of itself, and the length of a module, which tells none: what plays it knows.
[[nodiscard]] tags::FileFacts fullFactsOf(const std::string& path);

} // namespace tovik::app
