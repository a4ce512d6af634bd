// SPDX-License-Identifier: GPL-3.0-or-later
// How the player tells a place in a track or its length. Any thread.
#pragma once

#include "base/Comfort.h"
#include "base/TimeText.h"

#include <cstdint>
#include <string>

namespace tovik::player {

/// "mm:ss". A deliberate oddity: hours are cut away, unless `Comfort::clockShowsHours` puts them in
/// front.
[[nodiscard]] inline std::string clockText(const base::Comfort& comfort, std::int32_t seconds) {
    return comfort.clockShowsHours ? base::shortTime(seconds) : base::lastFive(seconds);
}

} // namespace tovik::player
