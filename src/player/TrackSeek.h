// SPDX-License-Identifier: GPL-3.0-or-later
// Goes to another place of the track that sounds, at once or with a hand on a bar: while that
// drags, the digits tell where a release would take the track, which goes on sounding. Interface
// thread.
#pragma once

#include "player/CBASS_TIME.h"
#include "player/Core.h"
#include "player/PlaybackClock.h"

#include <cstdint>

namespace tovik::player {

/// Without a track that sounds (none plays, or it is paused) nothing is sought.
class TrackSeek {
public:
    /// Both outlive the object.
    TrackSeek(const Core& core, PlaybackClock& clock) : core_(core), clock_(clock) {}

    /// A station is none: it has no other place.
    [[nodiscard]] bool sounds() const {
        return core_.state.IsPlaying && !core_.state.IsPaused && !core_.state.RadioMode;
    }

    /// A hand took the bar: the mark waits for it. Whether a track sounds.
    bool take();

    /// The hand moves: the digits wait, too. Whether a track sounds.
    bool drag();

    /// Shows the time at a place, 0 to 100 percent of the track.
    void preview(double percent);

    /// Whether a hand that took the bar has not let it go yet.
    [[nodiscard]] bool taken() const { return taken_; }

    /// Takes the track to a place, 0 to 100 percent.
    void seek(double percent);

    /// The hand let the bar go: mark and digits move on.
    void letGo();

    /// Takes a track that sounds to a second of it.
    void goTo(std::int32_t second);

    /// The whole seconds played; 0 while nothing sounds. Raises 6 beyond 32767.
    [[nodiscard]] std::int32_t second() const;

    /// The track's length in whole seconds, also while it is paused; 0 where there is none.
    [[nodiscard]] std::int32_t length() const;

private:
    const Core& core_;
    PlaybackClock& clock_;
    CBASS_TIME time_{core_.sound};
    bool taken_ = false;
};

} // namespace tovik::player
