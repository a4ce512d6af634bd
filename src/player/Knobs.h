// SPDX-License-Identifier: GPL-3.0-or-later
// What of the sound a hand can turn. Interface thread.
#pragma once

#include "player/Balance.h"
#include "player/Equalizer.h"
#include "player/TrackSeek.h"
#include "player/Volume.h"

namespace tovik::player {

/// All of it outlives who turns it.
struct Knobs {
    TrackSeek& seek;
    Volume& volume;
    Balance& balance;
    Equalizer& equalizer;
};

} // namespace tovik::player
