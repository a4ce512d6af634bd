// SPDX-License-Identifier: GPL-3.0-or-later
// Decides which row plays next. Interface thread.
#pragma once

#include "config/Errors.h"
#include "config/Settings.h"
#include "host/RandomNumbers.h"
#include "host/Timer.h"
#include "player/Crossfade.h"
#include "player/NowPlaying.h"
#include "player/PlayerState.h"
#include "player/Transport.h"
#include "playlist/ListMirror.h"
#include "playlist/stdSS.h"
#include "ui/MainElements.h"

#include <cstdint>

namespace tovik::player {

/// What the advance works with; all of it outlives it.
struct TrackAdvanceParts {
    PlayerState& state;
    config::Settings& settings;
    config::Errors& errors;
    Transport& transport;
    Crossfade& crossfade;
    playlist::stdSS& list;
    playlist::ListMirror& mirror;
    ui::MainElements& elements;
    NowPlaying& playing;
    NowPlayingView& view;
    host::RandomNumbers& random;
    const host::Timer& FadeOut; ///< runs while the track is to stop when it is mute
};

class TrackAdvance {
public:
    explicit TrackAdvance(const TrackAdvanceParts& parts) : p_(parts) {}

    /// The row after the current one, or a pick. At the end of the list without repeat nothing
    /// happens: the finished track stays the selected one.
    void Next_track();

    /// The row before, or with shuffle and repeat a new pick.
    void last_track();

    /// Ten rows on or back, or one where fewer are left.
    void ten_tracks_fwd();
    void ten_track_bck();

    /// What the buttons do: nothing with an empty list.
    void button_next();
    void button_previous();

    /// The switches of the modes.
    void button_shuffle();
    void button_loop();

    /// A row out of `count`, or 0. A deliberate oddity: one pick in nine is 0, which is no row, and
    /// so plays nothing until the clock moves on (`Comfort::alwaysPicksRow` never gives it). Picks have no memory; the host's generator takes
    /// its seed from the clock when the program starts.
    [[nodiscard]] playlist::Row gen_shuffle(playlist::Row count);

    /// A track is over: stops if that was asked for, also by a fade-out that is not through, else
    /// moves on.
    void endTrack();

    /// Whether `Next_track` would play something.
    [[nodiscard]] bool hasNext() const;

    /// Whether there is always a next track.
    [[nodiscard]] bool neverEnds() const;

    /// Selects an item of the plain list, counted from 0; one that is not there leaves the
    /// selection as it is.
    void selectItem(std::int32_t item);

private:
    void PlayRow(playlist::Row row, std::int32_t fadeSeconds);
    void playItem(playlist::Row row);
    [[nodiscard]] playlist::Row pick();

    TrackAdvanceParts p_;
};

} // namespace tovik::player
