// SPDX-License-Identifier: GPL-3.0-or-later
// The four modes that a user switches. Any thread.
#pragma once

#include <cstdint>

namespace tovik::player {

enum class Mode : std::uint8_t { shuffle, repeat, crossfade, silenceSkip };

} // namespace tovik::player
