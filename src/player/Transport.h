// SPDX-License-Identifier: GPL-3.0-or-later
// Starts, pauses and stops tracks. Interface thread.
#pragma once

#include "config/Errors.h"
#include "config/Settings.h"
#include "host/Clock.h"
#include "host/Timer.h"
#include "player/CBASS_TIME.h"
#include "player/Crossfade.h"
#include "player/NowPlaying.h"
#include "player/PlayerState.h"
#include "player/PlayerWindow.h"
#include "player/StartEqualizer.h"
#include "player/TrackEvents.h"
#include "player/TrackFacts.h"
#include "player/TrackOpener.h"
#include "player/TrackStarter.h"
#include "playlist/ListMirror.h"
#include "playlist/stdSS.h"
#include "ui/MainElements.h"

#include <string>

namespace tovik::player {

/// What a transport works with; all of it outlives it.
struct TransportParts {
    PlayerState& state;
    sound::SoundLibrary& sound;
    config::Errors& errors;
    CBASS_TIME& time;
    TrackOpener& opener;
    TrackFacts& facts;
    TrackStarter& starter;
    Crossfade& crossfade;
    config::Settings& settings;
    playlist::stdSS& list;
    playlist::ListMirror& mirror;
    ui::MainElements& elements;
    NowPlaying& playing;
    NowPlayingView& view;
    TrackEvents& events;
    PlayerWindow& window;
    host::Timer& Timer3;  ///< position mark and end of track
    host::Timer& FadeOut; ///< stops the track when it is mute
};

class Transport {
public:
    explicit Transport(const TransportParts& parts) : p_(parts) {}

    /// Loads and starts `path` on the primary channel, after the device was reset, which silences
    /// what sounded and calls a fade-out off. A file that no decoder takes is left without a word,
    /// with its title and a clock at the start. `title` is for the popup; all callers leave it
    /// empty. Whether it started.
    bool Burnbaby(const std::string& path, std::int32_t reserved, const std::string& title);

    /// Silences streams, which are freed, and modules, which the next start frees.
    void Stop_play();

    /// Pauses the whole output, or lets it sound again.
    void pause();

    /// Plays the selected row from its beginning, also while paused; without one the first row.
    void button_play();
    void button_pause();
    void button_stop();

    void reset_time();

    /// Five seconds on or back; beyond the ends nothing happens.
    void five_seconds_fwd();
    void five_seconds_bck();

    /// A row of the list is to be played: the selected one, whatever `row` says. A crossfade, if
    /// that mode is on.
    void Stdss_Play(const std::string& row);

    /// Plays the selected item of the plain list; the Enter key does the same. A crossfade, if that
    /// mode is on and a track was started before. Raises like a missing setting.
    void List1_DblClick();

private:
    [[nodiscard]] bool start(const std::string& path, const std::string& title);
    [[nodiscard]] bool startAlone(const std::string& path);
    [[nodiscard]] bool startCdTrack(std::uint32_t track);
    void resetDevice();
    void setIdleSync(sound::Handle channel, std::uint32_t type);
    void skip(std::int32_t seconds);

    TransportParts p_;
};

} // namespace tovik::player
