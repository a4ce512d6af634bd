// SPDX-License-Identifier: GPL-3.0-or-later
// What the process of a plug-in may not do. The one thread of that process.
#pragma once

#include <sys/types.h>

namespace tovik::visual {

/// The process ends with `player`, which started it; if that one has ended already, now. It gives
/// way to whatever else runs, and keeps no descriptor from `firstForeign` on.
void tieTo(pid_t player, int firstForeign);

/// How a process ends that could not be confined.
inline constexpr int kUnconfined = 3;

/// From here on: little memory, no threads, no programs, no network, no file is written, no other
/// process is touched, and the memory of `player` cannot be read. Where the system cannot do all of
/// that the process ends, before anything of a plug-in has run.
void confine(pid_t player);

} // namespace tovik::visual
