// SPDX-License-Identifier: GPL-3.0-or-later
// What the hand takes hold of on the main window. Interface thread.
#pragma once

#include "window/BalanceBar.h"
#include "window/EqualizerSliders.h"
#include "window/PositionBar.h"
#include "window/VolumeBar.h"

namespace tovik::window {

/// All of it outlives who holds it.
struct Grips {
    PositionBar& position;
    VolumeBar& volume;
    BalanceBar& balance;
    EqualizerSliders& sliders;
};

} // namespace tovik::window
