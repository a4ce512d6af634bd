// SPDX-License-Identifier: GPL-3.0-or-later
// What follows the end of a track; who finds that it is over tells it. Interface thread.
#pragma once

#include <cstdint>

namespace tovik::player {

class TrackEnd {
public:
    virtual ~TrackEnd() = default;

    /// A track is over: stops if that was asked for, also by a fade-out that is not through, else
    /// moves on.
    virtual void endTrack() = 0;

    /// So much is left of the current track, which plays to its last sample; told once a second,
    /// and only while tracks end exactly. How much is to be left when it is told again, if that
    /// comes before; else 0.
    virtual std::int64_t nearEnd(std::int64_t milliseconds) = 0;

    /// The row after the current one, or a pick. At the end of the list without repeat nothing
    /// happens: the finished track stays the selected one.
    virtual void Next_track() = 0;
};

} // namespace tovik::player
