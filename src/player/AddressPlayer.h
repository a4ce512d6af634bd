// SPDX-License-Identifier: GPL-3.0-or-later
// Who plays the rows that are addresses of the web and no files. Interface thread.
#pragma once

#include "player/TrackRef.h"

namespace tovik::player {

class AddressPlayer {
public:
    virtual ~AddressPlayer() = default;

    /// Silences what sounds and starts the stream of that address.
    virtual void play(const TrackRef& track) = 0;

    /// The output sounds again behind a pause, and a stream is the current source.
    virtual void goOn() = 0;
};

} // namespace tovik::player
