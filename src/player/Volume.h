// SPDX-License-Identifier: GPL-3.0-or-later
// The volume, and what of it reaches the sound library. Interface thread.
#pragma once

#include "player/Core.h"

#include <cstdint>

namespace tovik::player {

class Volume {
public:
    /// Kept by reference.
    explicit Volume(const Core& core) : core_(core) {}

    /// Sets the volume, held to 0 to 100. `absolute` -1 says that it goes up, anything else that
    /// it goes down; both do the same. Raises what reading the settings raises.
    void change_volume(std::int16_t value, std::int16_t absolute);

    /// Sets the volume, 0 to 100, of the channel of the current leg of a crossfade.
    void Channel_Set_Volume(std::int16_t value);

    /// Reads anew whether volume goes to the channel or to the whole output. Raises 13 for a
    /// setting that is no number.
    void readMode();

    /// The user changed the volume: it is stored when it rests.
    void changed() const;

    /// Gives the current volume to the channel or to the whole output.
    void apply();

private:
    const Core& core_;
};

} // namespace tovik::player
