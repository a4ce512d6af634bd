// SPDX-License-Identifier: GPL-3.0-or-later
// The parts that make tracks sound and follow each other, put together. Interface thread.
#pragma once

#include "host/RandomNumbers.h"
#include "host/TimerFactory.h"
#include "player/Balance.h"
#include "player/CBASS_TIME.h"
#include "player/Crossfade.h"
#include "player/FadeOut.h"
#include "player/PlaybackClock.h"
#include "player/PositionBar.h"
#include "player/SilenceSkip.h"
#include "player/TrackAdvance.h"
#include "player/TrackFacts.h"
#include "player/TrackOpener.h"
#include "player/TrackStarter.h"
#include "player/Transport.h"
#include "player/Volume.h"
#include "player/VolumeBar.h"

#include <memory>

namespace tovik::player {

/// What the parts work with; all of it outlives them.
struct PlaybackNeeds {
    PlayerState& state;
    sound::SoundLibrary& sound;
    config::Settings& settings;
    config::Errors& errors;
    tags::cMP3ID3v1& tag;
    playlist::stdSS& list;
    playlist::ListMirror& mirror;
    ui::MainElements& elements;
    NowPlaying& playing;
    NowPlayingView& view;
    TrackEvents& events;
    PlayerWindow& window;
    StartEqualizer& equalizer;
    host::TimerFactory& timers;
    host::RandomNumbers& random;
};

/// The parts are used as they are; the timers have their intervals and are not enabled yet.
struct Playback {
    explicit Playback(const PlaybackNeeds& needs);

    CBASS_TIME time;
    TrackOpener opener;
    Volume volume;
    VolumeBar volumeBar;
    Balance balance;
    TrackStarter starter;
    TrackFacts facts;
    std::unique_ptr<host::Timer> Timer1;
    std::unique_ptr<host::Timer> Timer2;
    std::unique_ptr<host::Timer> Timer3;
    std::unique_ptr<host::Timer> sldTimer;
    std::unique_ptr<host::Timer> CrossFadeTimer;
    std::unique_ptr<host::Timer> FadeOutTimer;
    Crossfade crossfade;
    Transport transport;
    TrackAdvance advance;
    SilenceSkip silenceSkip;
    FadeOut fadeOut;
    PlaybackClock clock;
    PositionBar positionBar;
};

} // namespace tovik::player
