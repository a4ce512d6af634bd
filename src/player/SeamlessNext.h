// SPDX-License-Identifier: GPL-3.0-or-later
// Opens the track that comes next while the one before still sounds, and lets it follow without a
// gap. Interface thread.
#pragma once

#include "player/Core.h"
#include "player/TrackFacts.h"
#include "player/TrackOpener.h"
#include "player/TrackRef.h"
#include "player/TrackStarter.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tovik::player {

class SeamlessNext {
public:
    /// All of them outlive the object.
    SeamlessNext(const Core& core, TrackStarter& starter, TrackFacts& facts)
        : core_(core), starter_(starter), facts_(facts) {}

    /// Lets `track` follow the one that sounds, in the place of another that was to. It is opened
    /// on the channel that is free, with volume, balance and bands as they are, and nobody waits
    /// for its disk. One that does not open in time, and an address of the web, is left to whoever
    /// starts it when the time has come.
    void prepare(const TrackRef& track);

    /// What was prepared is given up.
    void drop();

    /// The track before has ended, and what follows sounds by now: it becomes the current one and
    /// is selected and shown. Its row; nothing where none follows.
    std::optional<TrackRef> takeOver();

private:
    struct Waiting {
        TrackRef track;
        sound::Handle channel; ///< none where it did not open
        sound::Handle before;
        bool ofDisc;
    };

    /// The leg that is free, and its channel.
    [[nodiscard]] std::int16_t freeLeg() const;
    [[nodiscard]] sound::Handle& channelOf(std::int16_t leg) const;
    void makeCurrent(std::int16_t leg) const;
    [[nodiscard]] bool stillWaits() const;
    [[nodiscard]] bool sounds(sound::Handle channel) const;
    [[nodiscard]] bool followed() const;
    [[nodiscard]] Waiting open(const TrackRef& track);
    void setUp(sound::Handle channel, std::int16_t leg);

    const Core& core_;
    TrackStarter& starter_;
    TrackFacts& facts_;
    TrackOpener opener_{core_.sound};
    std::optional<Waiting> waiting_;
};

} // namespace tovik::player
