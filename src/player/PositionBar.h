// SPDX-License-Identifier: GPL-3.0-or-later
// The user's hand on the position bar and its mark. While they are dragged the digits show where a
// release would take the track, which goes on sounding. Interface thread.
#pragma once

#include "config/Errors.h"
#include "host/Timer.h"
#include "player/CBASS_TIME.h"
#include "player/NowPlaying.h"
#include "player/PlayerState.h"
#include "player/PlayerWindow.h"
#include "ui/MainElements.h"

#include <cstdint>

namespace tovik::player {

/// What the bar works with; all of it outlives it.
struct PositionBarParts {
    PlayerState& state;
    CBASS_TIME& time;
    const config::Errors& errors;
    ui::MainElements& elements;
    NowPlaying& playing;
    NowPlayingView& view;
    PlayerWindow& window;
    host::Timer& Timer1; ///< digits
    host::Timer& Timer3; ///< position mark and end of track
};

/// All places are skin pixels from the bar's left edge, also those of a pointer that holds the
/// mark. Without a track that sounds (none plays, or it is paused) nothing is moved or sought.
class PositionBar {
public:
    explicit PositionBar(const PositionBarParts& parts) : p_(parts) {}

    void Posbar_MouseDown(double x);

    /// With the left button held.
    void Posbar_MouseMove(double x);

    /// Takes the track to the place. After a drag the clock goes on in any case.
    void Posbar_MouseUp(double x);

    /// Takes a track that sounds to a second of it.
    void goTo(std::int32_t second);

    /// The whole seconds played; 0 while nothing sounds. Raises 6 beyond 32767.
    [[nodiscard]] std::int32_t second() const;

    /// The track's length in whole seconds, also while it is paused; 0 where there is none.
    [[nodiscard]] std::int32_t length() const;

private:
    [[nodiscard]] bool sounds() const { return p_.state.IsPlaying && !p_.state.IsPaused; }

    void moveMark(double x);
    /// Of the track's length, 0 to 100; the last pixel of the bar is all of it.
    [[nodiscard]] double percentAt(double x) const;
    void showPreview(double percent);

    PositionBarParts p_;
    bool dragging_ = false; ///< the clock waits for the release
};

} // namespace tovik::player
