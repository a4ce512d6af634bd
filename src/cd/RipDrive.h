// SPDX-License-Identifier: GPL-3.0-or-later
// The drive that is ripped from. Any thread.
#pragma once

#include "base/Comfort.h"
#include "cd/CdState.h"

#include <cstdint>

namespace tovik::cd {

/// A deliberate oddity: encoder programs get the disc in the first drive, and who rips a whole disc
/// has the first drive chosen for him, whichever was chosen before.
inline constexpr std::int32_t kRipDrive = 0;

/// The drive of an encoder program, as the sound library counts.
[[nodiscard]] inline std::int32_t encoderDrive(const CdState& state, const base::Comfort& comfort) {
    return comfort.encodesSelectedDrive ? state.CDDrive : kRipDrive;
}

} // namespace tovik::cd
