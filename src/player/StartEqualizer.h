// SPDX-License-Identifier: GPL-3.0-or-later
// What a start of a track, plain or by crossfade, asks of the equalizer. Interface thread.
#pragma once

namespace tovik::player {

class StartEqualizer {
public:
    virtual ~StartEqualizer() = default;

    /// Gives the starting channel its filters. To be called after `CrossfadeLeg` and the leg's
    /// channel are set and before the channel sounds.
    virtual void Set_EQ() = 0;
};

} // namespace tovik::player
