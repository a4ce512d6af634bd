// SPDX-License-Identifier: GPL-3.0-or-later
// How long crossfades and fade-outs take. Interface thread.
#pragma once

#include "base/Comfort.h"
#include "config/Settings.h"

#include <cstdint>

namespace tovik::player {

/// The setting "CFDT", in seconds. Raises 94 where it is missing, 13 where it is no number.
[[nodiscard]] std::int32_t fadeSeconds(config::Settings& settings);

/// Who wants another track.
enum class AskedBy : std::uint8_t { player, user };

/// How many seconds one takes that the user asks for, where the settings name no time for it and
/// one at the end of a track takes `seconds`: half of that, 2 at most.
[[nodiscard]] double shorterFade(std::int32_t seconds) noexcept;

/// How long a crossfade takes, in milliseconds, that is `seconds` at the end of a track. With
/// `Comfort::shortensManualNext` one that the user asks for takes the seconds of the setting
/// "CFDN", which may have a fraction, and without that those of `shorterFade`. Raises 6 and 13 as
/// the others do.
[[nodiscard]] std::int32_t fadeFor(AskedBy who, std::int32_t seconds, config::Settings& settings,
                                   const base::Comfort& comfort);

/// Seconds as the milliseconds of timers and slides; below 0 counts as 0. Raises 6 for a time that
/// does not fit.
[[nodiscard]] std::int32_t fadeMilliseconds(std::int32_t seconds);

} // namespace tovik::player
