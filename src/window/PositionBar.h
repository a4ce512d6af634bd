// SPDX-License-Identifier: GPL-3.0-or-later
// The user's hand on the position bar and its mark. Interface thread.
#pragma once

#include "player/Core.h"
#include "player/TrackSeek.h"
#include "window/MainElements.h"
#include "window/PlayerWindow.h"

namespace tovik::window {

/// All places are skin pixels from the bar's left edge, also those of a pointer that holds the
/// mark. Without a track that sounds (none plays, or it is paused) nothing is moved or sought.
class PositionBar {
public:
    /// All of them outlive the bar.
    PositionBar(const player::Core& core, player::TrackSeek& seek, MainElements& elements,
                PlayerWindow& window)
        : core_(core), seek_(seek), elements_(elements), window_(window) {}

    void Posbar_MouseDown(double x);

    /// With the left button held.
    void Posbar_MouseMove(double x);

    /// Takes the track to the place. After a drag the clock goes on in any case.
    void Posbar_MouseUp(double x);

private:
    void moveMark(double x);
    /// Of the track's length, 0 to 100; the last pixel of the bar is all of it.
    [[nodiscard]] double percentAt(double x) const;

    const player::Core& core_;
    player::TrackSeek& seek_;
    MainElements& elements_;
    PlayerWindow& window_;
};

} // namespace tovik::window
