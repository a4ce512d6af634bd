// SPDX-License-Identifier: GPL-3.0-or-later
// Starts a track beside the one that sounds, which slides to silence. Interface thread.
#pragma once

#include "player/AddressPlayer.h"
#include "player/Core.h"
#include "player/FadeOut.h"
#include "player/PlaybackClock.h"
#include "player/TrackFacts.h"
#include "player/TrackOpener.h"
#include "player/TrackRef.h"
#include "player/TrackStarter.h"

#include <cstdint>
#include <memory>
#include <string>

namespace tovik::player {

class Crossfade {
public:
    /// All of them outlive the object.
    Crossfade(const Core& core, TrackStarter& starter, TrackFacts& facts, PlaybackClock& clock,
              FadeOut& fadeOut);

    /// Who plays addresses of the web; before anything is started. Outlives the object.
    void setAddresses(AddressPlayer& addresses) { addresses_ = &addresses; }

    /// Starts a track on the channel that is not the current one, at full volume, while the current
    /// one slides to silence in `fadeMilliseconds`; with 0 it ends at once. A file that no decoder
    /// takes is left without a word, and the old track plays on under the title of that row.
    /// `popup` is the text of the title popup; empty takes the row's. Whether it started;
    /// an address of the web does not fade, and counts as not started.
    bool CrossFade_BurnBaby(const TrackRef& track, std::int32_t fadeMilliseconds,
                            const std::string& popup = {});

    /// The tick of `CrossFade`.
    void crossfade_Timer();

    /// Whether a track slides to silence.
    [[nodiscard]] bool runs() const { return CrossFade_->enabled(); }

    /// The timer that frees the old channel when it is silent.
    [[nodiscard]] host::Timer& CrossFade() { return *CrossFade_; }

    /// The switch of the mode.
    void button_cfd();

private:
    [[nodiscard]] bool start(const TrackRef& track, std::int32_t fadeMilliseconds,
                             const std::string& popup);
    [[nodiscard]] bool startCdTrack(const CdTrack& track, sound::Handle& newChannel);
    void beginSlides(std::int32_t milliseconds);

    /// The channels of the current leg: the one that starts, and the one that fades.
    [[nodiscard]] sound::Handle& newChannel();
    [[nodiscard]] sound::Handle& oldChannel();
    void makeNewActive();
    [[nodiscard]] bool sounds(sound::Handle channel) const;
    void showUnopened(const TrackRef& track);

    const Core& core_;
    TrackStarter& starter_;
    TrackFacts& facts_;
    PlaybackClock& clock_;
    FadeOut& fadeOut_;
    AddressPlayer* addresses_ = nullptr;
    TrackOpener opener_{core_.sound};
    std::unique_ptr<host::Timer> CrossFade_;
};

} // namespace tovik::player
