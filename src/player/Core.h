// SPDX-License-Identifier: GPL-3.0-or-later
// What every part of the player may use. A part takes this and at most four more. Interface thread.
#pragma once

#include "config/Errors.h"
#include "config/Settings.h"
#include "host/TimerFactory.h"
#include "player/PlayerState.h"
#include "player/Screen.h"
#include "player/TrackNews.h"
#include "playlist/ListMirror.h"
#include "playlist/stdSS.h"
#include "sound/SoundLibrary.h"

namespace tovik::tags {
class FactsDesk;
}

namespace tovik::player {

/// The list that is played, and the quick list that shows the same rows.
struct PlayedLists {
    playlist::stdSS& stdSS;
    playlist::ListMirror& List1;
};

/// All of it outlives the parts.
struct Core {
    PlayerState& state;
    sound::SoundLibrary& sound;
    config::Settings& settings;
    config::Errors& errors;
    PlayedLists lists;
    host::TimerFactory& timers;
    Screen& screen;
    TrackNews& news;
    tags::FactsDesk* facts = nullptr; ///< without one nothing is asked of files
};

} // namespace tovik::player
