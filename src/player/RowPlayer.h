// SPDX-License-Identifier: GPL-3.0-or-later
// Plays a row of the list: plainly, or by a crossfade where that mode is on. Interface thread.
#pragma once

#include "player/Core.h"
#include "player/Crossfade.h"
#include "player/TrackFacts.h"
#include "player/TrackOpener.h"
#include "player/TrackRef.h"
#include "player/Transport.h"

#include <cstdint>
#include <string>

namespace tovik::player {

class RowPlayer {
public:
    /// All of them outlive the object.
    RowPlayer(const Core& core, Transport& transport, Crossfade& crossfade, TrackFacts& facts)
        : core_(core), transport_(transport), crossfade_(crossfade), facts_(facts) {}

    /// Plays the selected row from its beginning, also while paused; without one the first row.
    void button_play();

    /// A row of the list is to be played: the selected one, whatever `row` says. A crossfade, if
    /// that mode is on.
    void Stdss_Play(const std::string& row);

    /// Plays the selected item of the plain list; the Enter key does the same. A crossfade, if that
    /// mode is on and a track was started before. Raises like a missing setting.
    void List1_DblClick();

    /// Selects an item of the plain list, counted from 0, and plays it as `List1_DblClick` does.
    void playItem(std::int32_t item);

    /// Selects a row and plays it; row 0 is none, and plays nothing. A crossfade, if that mode is
    /// on and a track was started before.
    void PlayRow(playlist::Row row, std::int32_t fadeSeconds);

    /// Title and captions of a row that sounds by now.
    void showStarted(const TrackRef& track);

private:
    [[nodiscard]] bool startAlone(const TrackRef& track);

    const Core& core_;
    Transport& transport_;
    Crossfade& crossfade_;
    TrackFacts& facts_;
};

} // namespace tovik::player
