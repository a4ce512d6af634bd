// SPDX-License-Identifier: GPL-3.0-or-later
// Plays into a WAV file as fast as the machine can, on a clock that the sound itself moves on.
// Interface thread.
#pragma once

#include "host/CommandLine.h"
#include "host/Environment.h"

namespace tovik::app {

/// Plays the files of `line` into `line.renderFile`, for `line.renderSeconds` at most, and returns
/// the exit status of the program. Needs no display and no sound device.
[[nodiscard]] int render(const host::CommandLine& line, const host::Environment& environment);

} // namespace tovik::app
