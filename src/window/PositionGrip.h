// SPDX-License-Identifier: GPL-3.0-or-later
// A hand on a bar that tells the place in the track: it takes the mark, drags it, lets it go.
// Interface thread.
#pragma once

#include "player/Core.h"
#include "player/TrackSeek.h"
#include "window/SkinnedWindow.h"

namespace tovik::window {

/// All places are skin pixels from the bar's left edge, also those of a pointer that holds the
/// mark. Without a track that sounds (none plays, or it is paused) nothing is moved or sought.
class PositionGrip {
public:
    PositionGrip(const PositionGrip&) = delete;
    PositionGrip& operator=(const PositionGrip&) = delete;

    void Posbar_MouseDown(double x);

    /// With the left button held.
    void Posbar_MouseMove(double x);

    /// Takes the track to the place. After a drag the clock goes on in any case.
    void Posbar_MouseUp(double x);

protected:
    /// All of them outlive the grip.
    PositionGrip(const player::Core& core, player::TrackSeek& seek, SkinnedWindow& window)
        : core_(core), seek_(seek), window_(window) {}

    ~PositionGrip() = default;

    virtual void moveMark(double x) = 0;

    /// Of the track's length, 0 to 100.
    [[nodiscard]] virtual double percentAt(double x) const = 0;

private:
    const player::Core& core_;
    player::TrackSeek& seek_;
    SkinnedWindow& window_;
};

} // namespace tovik::window
