// SPDX-License-Identifier: GPL-3.0-or-later
// Starts a track beside the one that sounds, which slides to silence. Interface thread.
#pragma once

#include "config/Errors.h"
#include "config/Settings.h"
#include "host/Timer.h"
#include "player/NowPlaying.h"
#include "player/PlayerState.h"
#include "player/TrackEvents.h"
#include "player/TrackFacts.h"
#include "player/TrackOpener.h"
#include "player/TrackStarter.h"
#include "player/Volume.h"
#include "playlist/stdSS.h"
#include "ui/MainElements.h"

#include <cstdint>
#include <string>

namespace tovik::player {

/// What a crossfade works with; all of it outlives it.
struct CrossfadeParts {
    PlayerState& state;
    sound::SoundLibrary& sound;
    config::Settings& settings;
    config::Errors& errors;
    TrackOpener& opener;
    TrackStarter& starter;
    TrackFacts& facts;
    Volume& volume;
    playlist::stdSS& list;
    ui::MainElements& elements;
    NowPlayingView& view;
    TrackEvents& events;
    host::Timer& CrossFade; ///< frees the old channel when it is silent
    host::Timer& Timer3;    ///< position mark and end of track
    host::Timer& FadeOut;   ///< stops the track when it is mute
};

class Crossfade {
public:
    explicit Crossfade(const CrossfadeParts& parts) : p_(parts) {}

    /// Starts `path` on the channel that is not the current one, at full volume, while the current
    /// one slides to silence in `fadeMilliseconds`; with 0 it ends at once. A file that no decoder
    /// takes is left without a word, and the old track plays on under the title of that row.
    /// `title` is for the popup; all callers leave it empty. Whether it started.
    bool CrossFade_BurnBaby(const std::string& path, std::int32_t fadeMilliseconds,
                            const std::string& title);

    /// The tick of `CrossFade`.
    void crossfade_Timer();

    /// The switch of the mode.
    void button_cfd();

private:
    [[nodiscard]] bool start(const std::string& path, std::int32_t fadeMilliseconds,
                             const std::string& title);
    [[nodiscard]] bool startCdTrack(std::uint32_t track, sound::Handle& newChannel);
    void beginSlides(std::int32_t milliseconds);

    /// The channels of the current leg: the one that starts, and the one that fades.
    [[nodiscard]] sound::Handle& newChannel();
    [[nodiscard]] sound::Handle& oldChannel();
    void makeNewActive();
    void showUnopened();

    CrossfadeParts p_;
};

} // namespace tovik::player
