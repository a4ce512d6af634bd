// SPDX-License-Identifier: GPL-3.0-or-later
// What of the volume reaches the sound library. Interface thread.
#pragma once

#include "config/Settings.h"
#include "player/PlayerState.h"
#include "sound/SoundLibrary.h"

#include <cstdint>

namespace tovik::player {

class Volume {
public:
    Volume(PlayerState& state, sound::SoundLibrary& sound, config::Settings& settings)
        : state_(state), sound_(sound), settings_(settings) {}

    /// Sets the volume, 0 to 100, of the channel of the current leg of a crossfade.
    void Channel_Set_Volume(std::int16_t value);

    /// Reads anew whether volume goes to the channel or to the whole output. Raises 13 for a
    /// setting that is no number.
    void readMode();

    /// The user changed the volume: it is stored when it rests.
    void changed();

    /// Gives the current volume to the channel or to the whole output.
    void apply();

private:
    PlayerState& state_;
    sound::SoundLibrary& sound_;
    config::Settings& settings_;
};

} // namespace tovik::player
