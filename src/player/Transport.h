// SPDX-License-Identifier: GPL-3.0-or-later
// Starts, pauses and stops tracks. Interface thread.
#pragma once

#include "player/AddressPlayer.h"
#include "player/CBASS_TIME.h"
#include "player/Core.h"
#include "player/FadeOut.h"
#include "player/PlaybackClock.h"
#include "player/TrackFacts.h"
#include "player/TrackOpener.h"
#include "player/TrackRef.h"
#include "player/TrackStarter.h"

#include <string>

namespace tovik::player {

class Transport {
public:
    /// All of them outlive the object.
    Transport(const Core& core, TrackStarter& starter, TrackFacts& facts, PlaybackClock& clock,
              FadeOut& fadeOut)
        : core_(core), starter_(starter), facts_(facts), clock_(clock), fadeOut_(fadeOut) {}

    /// Who plays addresses of the web; before anything is started. Outlives the object.
    void setAddresses(AddressPlayer& addresses) { addresses_ = &addresses; }

    /// Loads and starts a track on the primary channel, after the device was reset, which silences
    /// what sounded and calls a fade-out off. A file that no decoder takes is left without a word,
    /// with its title and a clock at the start. `popup` is the text of the title popup; empty takes
    /// the row's. Whether it started; an address of the web is left to its player, which shows it,
    /// and counts as not started. While a rip runs nothing is started.
    bool Burnbaby(const TrackRef& track, const std::string& popup = {});

    /// Silences streams, which are freed, and modules, which the next start frees.
    void Stop_play();

    /// Pauses the whole output, or lets it sound again.
    void pause();

    void button_pause();
    void button_stop();

    void reset_time();

    /// Five seconds on or back. A deliberate oddity: near the ends nothing happens;
    /// `Comfort::clampsSkips` goes to the beginning, or to the last second.
    void five_seconds_fwd();
    void five_seconds_bck();

private:
    [[nodiscard]] bool start(const TrackRef& track, const std::string& popup);
    [[nodiscard]] bool startCdTrack(const TrackRef& track, const CdTrack& number);
    void setIdleSync(sound::Handle channel, std::uint32_t type);
    void skip(std::int32_t seconds);

    const Core& core_;
    TrackStarter& starter_;
    TrackFacts& facts_;
    PlaybackClock& clock_;
    FadeOut& fadeOut_;
    AddressPlayer* addresses_ = nullptr;
    TrackOpener opener_{core_.sound};
    CBASS_TIME time_{core_.sound};
};

} // namespace tovik::player
