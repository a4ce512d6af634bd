// SPDX-License-Identifier: GPL-3.0-or-later
// What the process of a plug-in may not do. The one thread of that process.
#pragma once

#include <sys/types.h>

namespace tovik::visual {

/// The process ends with `player`, which started it; if that one has ended already, now. It gives
/// way to whatever else runs, and keeps no descriptor from `firstForeign` on.
void tieTo(pid_t player, int firstForeign);

/// From here on: little memory, no threads, no programs, no network, no file is written, no other
/// process is touched. As much of it as the system can do; the limits hold everywhere.
void confine();

} // namespace tovik::visual
