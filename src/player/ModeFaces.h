// SPDX-License-Identifier: GPL-3.0-or-later
// How the main window shows its four modes: a button with two faces and a pair of indicators each.
// Interface thread.
#pragma once

#include "ui/MainElements.h"

#include <cstdint>

namespace tovik::player {

enum class Mode : std::uint8_t { shuffle, repeat, crossfade, silenceSkip };

/// The button takes the face from the skin's store of pressed or of plain faces; of the indicators
/// the one that applies is visible.
void showMode(ui::MainElements& elements, Mode mode, bool on);

} // namespace tovik::player
