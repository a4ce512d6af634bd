// SPDX-License-Identifier: GPL-3.0-or-later
// Work that may wait for a disk, done beside the interface thread. Called there.
#pragma once

#include "host/MessagePump.h"

#include <functional>

namespace tovik::host {

/// Runs `job` on a thread of its own and returns when it is done; whatever takes longer than a
/// moment lets the rest of the program go on meanwhile, step by step. What the job raises is raised
/// here. False when the program is ending: the job then goes on alone, so it must own, or share,
/// all that it uses.
[[nodiscard]] bool runBeside(MessagePump& pump, std::function<void()> job);

} // namespace tovik::host
