// SPDX-License-Identifier: GPL-3.0-or-later
// Slides what plays to silence and stops it then. Interface thread.
#pragma once

#include "config/Settings.h"
#include "host/Timer.h"
#include "player/PlayerState.h"
#include "player/Transport.h"
#include "sound/SoundLibrary.h"

namespace tovik::player {

class FadeOut {
public:
    /// All of them outlive the object. `timer` is `FadeOut`, which stops the track in the end.
    FadeOut(PlayerState& state, sound::SoundLibrary& sound, config::Settings& settings,
            Transport& transport, host::Timer& timer)
        : state_(state), sound_(sound), settings_(settings), transport_(transport), timer_(timer) {}

    /// Slides the active channel to silence in as many seconds as a crossfade takes; with 0 s it
    /// stops at once. What stops or starts meanwhile calls it off; a track that ends meanwhile is
    /// not followed by another.
    void FadeOutTrack();

    /// The tick of `FadeOut`.
    void FadeOut_Timer();

private:
    PlayerState& state_;
    sound::SoundLibrary& sound_;
    config::Settings& settings_;
    Transport& transport_;
    host::Timer& timer_;
};

} // namespace tovik::player
