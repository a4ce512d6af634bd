// SPDX-License-Identifier: GPL-3.0-or-later
// How the main window shows its four modes: a button with two faces and a pair of indicators each.
// Interface thread.
#pragma once

#include "player/PlayerState.h"
#include "ui/MainElements.h"

#include <cstdint>

namespace tovik::player {

enum class Mode : std::uint8_t { shuffle, repeat, crossfade, silenceSkip };

/// As the state has the mode: the button takes the face from the skin's store of pressed or of
/// plain faces, and of the indicators the one that applies is visible, as far as the current panel
/// shows indicators.
void showMode(ui::MainElements& elements, const PlayerState& state, Mode mode);

/// The indicators of all modes, likewise.
void showLamps(ui::MainElements& elements, const PlayerState& state);

} // namespace tovik::player
