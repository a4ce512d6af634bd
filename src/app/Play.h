// SPDX-License-Identifier: GPL-3.0-or-later
// Plays files aloud with a window. Interface thread.
#pragma once

#include "host/CommandLine.h"
#include "host/Environment.h"

namespace tovik::app {

/// Shows the window, plays the files of `line` and returns the exit status of the program; usually
/// the process ends inside.
[[nodiscard]] int play(const host::CommandLine& line, const host::Environment& environment);

} // namespace tovik::app
