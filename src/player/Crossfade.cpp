// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Crossfade.h"

#include "player/FadeTime.h"
#include "player/ModeFaces.h"

namespace tovik::player {

namespace {

/// The leg of a crossfade that starts on the secondary channel; the other is `kOntoPrimary`.
constexpr std::int16_t kOntoSecondary = 1;
constexpr std::int16_t kOntoPrimary = 2;

constexpr int kKeepFrequency = -1;
constexpr int kKeepPan = -101;

} // namespace

sound::Handle& Crossfade::newChannel() {
    return p_.state.CrossfadeLeg == kOntoSecondary ? p_.state.SecondaryChannel
                                                   : p_.state.PrimaryChannel;
}

sound::Handle& Crossfade::oldChannel() {
    return p_.state.CrossfadeLeg == kOntoSecondary ? p_.state.PrimaryChannel
                                                   : p_.state.SecondaryChannel;
}

void Crossfade::makeNewActive() {
    p_.state.ActiveChannel =
        p_.state.CrossfadeLeg == kOntoSecondary ? ChannelSlot::secondary : ChannelSlot::primary;
}

bool Crossfade::CrossFade_BurnBaby(const std::string& path, std::int32_t fadeMilliseconds,
                                   const std::string& title) {
    bool started = false;
    config::guard(p_.errors, config::player("Crossfade_BurnBaby"),
                  [&] { started = start(path, fadeMilliseconds, title); });
    return started;
}

bool Crossfade::start(const std::string& path, std::int32_t fade, const std::string& title) {
    PlayerState& state = p_.state;
    p_.volume.readMode();
    state.SilenceTicks = 0;
    p_.facts.takeOverFields();
    ++state.TracksStarted;
    ++state.CrossfadeLeg;
    if (state.CrossfadeLeg > kOntoPrimary) {
        state.CrossfadeLeg = kOntoSecondary;
    }
    state.IsPlaying = true;
    p_.CrossFade.setInterval(fadeMilliseconds(fadeSeconds(p_.settings)));
    p_.CrossFade.setEnabled(false);
    if (state.CrossfadeLeg == kOntoSecondary) {
        p_.events.restartVisualisation();
    }
    sound::Handle& channel = newChannel();
    p_.opener.free(channel);
    channel = p_.opener.open(path);
    if (channel == sound::kNoHandle) {
        if (const auto track = cdTrackOf(path); track && startCdTrack(*track, channel)) {
            beginSlides(fade);
            p_.facts.showNothingKnown();
            p_.events.restartVisualisation();
            return true;
        }
        showUnopened();
        return false;
    }
    // The output may be paused, whatever `IsPaused` says: the buttons clear the flag beforehand.
    p_.sound.BASS_Start();
    makeNewActive();
    p_.starter.startBeside(channel, path);
    p_.Timer3.setEnabled(true);
    p_.events.restartVisualisation();
    beginSlides(fade);
    p_.facts.show(channel, path, title);
    return true;
}

void Crossfade::showUnopened() {
    if (p_.sound.BASS_ChannelIsActive(oldChannel()) == sound::Activity::stopped) {
        p_.facts.showSilence();
    }
    p_.facts.showUnopened();
}

bool Crossfade::startCdTrack(std::uint32_t track, sound::Handle& channel) {
    p_.list.GetData(p_.list.SelectedIndex);
    channel = p_.opener.openCdTrack(track);
    makeNewActive();
    if (channel != sound::kNoHandle) {
        // A paused output stays so where nothing starts.
        p_.sound.BASS_Start();
    }
    p_.starter.startDiscBeside(channel);
    if (channel == sound::kNoHandle) {
        return false;
    }
    p_.Timer3.setEnabled(true);
    p_.state.IsPlaying = true;
    p_.state.IsPaused = false;
    p_.state.IsWmaStream = false;
    return true;
}

void Crossfade::beginSlides(std::int32_t milliseconds) {
    const auto time = static_cast<std::uint32_t>(milliseconds);
    // What starts calls a fade-out off: it was meant for the track before.
    p_.FadeOut.setEnabled(false);
    if (milliseconds > 0 && p_.CrossFade.interval() > 0) {
        p_.CrossFade.setEnabled(true);
        p_.sound.BASS_ChannelSlideAttributes(oldChannel(), kKeepFrequency, 0, kKeepPan, time);
    } else {
        // No tick would come to free it.
        p_.opener.free(oldChannel());
    }
    // The new track stands at this volume already: only the old one fades. Where volume goes to
    // the whole output, a channel begins at its full level and this brings it down.
    p_.sound.BASS_ChannelSlideAttributes(newChannel(), kKeepFrequency, p_.state.CurrentVolume,
                                         kKeepPan, time);
}

void Crossfade::crossfade_Timer() {
    config::guard(p_.errors, config::player("CrossFade"), [this] {
        if (p_.state.CrossfadeLeg == kOntoSecondary || p_.state.CrossfadeLeg == kOntoPrimary) {
            p_.opener.free(oldChannel());
        }
        p_.CrossFade.setEnabled(false);
    });
}

void Crossfade::button_cfd() {
    p_.state.CrossfadeOn = !p_.state.CrossfadeOn;
    showMode(p_.elements, p_.state, Mode::crossfade);
}

} // namespace tovik::player
