// SPDX-License-Identifier: GPL-3.0-or-later
// What follows the end of a track; who finds that it is over tells it. Interface thread.
#pragma once

namespace tovik::player {

class TrackEnd {
public:
    virtual ~TrackEnd() = default;

    /// A track is over: stops if that was asked for, also by a fade-out that is not through, else
    /// moves on.
    virtual void endTrack() = 0;

    /// The row after the current one, or a pick. At the end of the list without repeat nothing
    /// happens: the finished track stays the selected one.
    virtual void Next_track() = 0;
};

} // namespace tovik::player
