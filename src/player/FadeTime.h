// SPDX-License-Identifier: GPL-3.0-or-later
// How long crossfades and fade-outs take. Interface thread.
#pragma once

#include "config/Settings.h"

#include <cstdint>

namespace tovik::player {

/// The setting "CFDT", in seconds. Raises 94 where it is missing, 13 where it is no number.
[[nodiscard]] std::int32_t fadeSeconds(config::Settings& settings);

/// Seconds as the milliseconds of timers and slides; below 0 counts as 0. Raises 6 for a time that
/// does not fit.
[[nodiscard]] std::int32_t fadeMilliseconds(std::int32_t seconds);

} // namespace tovik::player
