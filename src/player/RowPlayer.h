// SPDX-License-Identifier: GPL-3.0-or-later
// Plays a row of the list: plainly, or by a crossfade where that mode is on. Interface thread.
#pragma once

#include "player/CBASS_TIME.h"
#include "player/Core.h"
#include "player/Crossfade.h"
#include "player/FadeTime.h"
#include "player/TrackFacts.h"
#include "player/TrackOpener.h"
#include "player/TrackRef.h"
#include "player/Transport.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tovik::player {

/// A place of a row.
struct RowPlace {
    playlist::Row row = 0;
    std::int32_t seconds = 0;
};

class RowPlayer {
public:
    /// All of them outlive the object.
    RowPlayer(const Core& core, Transport& transport, Crossfade& crossfade, TrackFacts& facts)
        : core_(core), transport_(transport), crossfade_(crossfade), facts_(facts) {}

    /// Plays the selected row from its beginning, also while paused; without one the first row.
    /// With `Comfort::goesOnAfterPause` what is paused goes on.
    void button_play();

    /// Selects a row and shows the place, at which the next `button_play` begins if nothing was
    /// played until then and the row is still selected.
    void waitAt(const RowPlace& place);

    /// The place at which `button_play` would begin now, if one waits.
    [[nodiscard]] std::optional<RowPlace> waiting() const;

    /// Nobody waits any more.
    void forgetPlace() { waiting_.reset(); }

    /// Where `waitAt` should begin in the next session: what sounds, else where it waits, else the
    /// selected row. Raises what asking for a place raises.
    [[nodiscard]] std::optional<RowPlace> place() const;

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
    void PlayRow(playlist::Row row, std::int32_t fadeSeconds, AskedBy who = AskedBy::player);

    /// Title and captions of a row that sounds by now.
    void showStarted(const TrackRef& track);

private:
    void showPlace(const RowPlace& place);
    [[nodiscard]] bool startAlone(const TrackRef& track);

    const Core& core_;
    Transport& transport_;
    Crossfade& crossfade_;
    TrackFacts& facts_;
    CBASS_TIME time_{core_.sound};
    std::optional<RowPlace> waiting_;
};

} // namespace tovik::player
