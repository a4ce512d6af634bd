// SPDX-License-Identifier: GPL-3.0-or-later
// What of the player a visualisation follows. Interface thread.
#pragma once

#include "player/PlayerState.h"
#include "vis/VisualArea.h"

namespace tovik::vis {

/// The channel that is heard, or none.
[[nodiscard]] sound::Handle heardChannel(const player::PlayerState& state);

/// Whether there is something to move and someone to see it.
[[nodiscard]] bool mayMove(const player::PlayerState& state, const VisualArea& area);

inline constexpr int kFastestMs = 10;
inline constexpr int kSlowestMs = 500;

/// The interval of a visualisation's timer: what lies outside the two bounds counts as the nearer
/// one, 0 stays 0.
[[nodiscard]] int intervalOf(int milliseconds);

} // namespace tovik::vis
