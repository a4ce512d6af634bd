// SPDX-License-Identifier: GPL-3.0-or-later
// Work that may wait for a disk, done beside the interface thread. Called there.
#pragma once

#include "host/MessagePump.h"

#include <cstdint>
#include <functional>

namespace tovik::host {

/// What becomes of a job when the program ends while it runs.
enum class AtEnd : std::uint8_t {
    leave,  ///< it goes on alone, so it must own, or share, all that it uses
    finish, ///< it is waited for, and may work on what the caller holds
};

/// Runs `job` on a thread of its own and returns when it is done; whatever takes longer than a
/// moment lets the rest of the program go on meanwhile, step by step. What the job raises is raised
/// here. False when the program is ending and the job was left alone.
[[nodiscard]] bool runBeside(MessagePump& pump, std::function<void()> job,
                             AtEnd atEnd = AtEnd::leave);

} // namespace tovik::host
