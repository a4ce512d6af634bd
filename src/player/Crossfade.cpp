// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Crossfade.h"

#include "base/Url.h"

#include "player/FadeTime.h"

namespace tovik::player {

namespace {

/// The leg of a crossfade that starts on the secondary channel; the other is `kOntoPrimary`.
constexpr std::int16_t kOntoSecondary = 1;
constexpr std::int16_t kOntoPrimary = 2;

constexpr int kKeepFrequency = -1;
constexpr int kKeepPan = -101;

} // namespace

Crossfade::Crossfade(const Core& core, TrackStarter& starter, TrackFacts& facts,
                     PlaybackClock& clock, FadeOut& fadeOut)
    : core_(core), starter_(starter), facts_(facts), clock_(clock), fadeOut_(fadeOut),
      CrossFade_(core.timers.makeTimer([this] { crossfade_Timer(); })) {}

sound::Handle& Crossfade::newChannel() {
    PlayerState& state = core_.state;
    return state.CrossfadeLeg == kOntoSecondary ? state.SecondaryChannel : state.PrimaryChannel;
}

sound::Handle& Crossfade::oldChannel() {
    PlayerState& state = core_.state;
    return state.CrossfadeLeg == kOntoSecondary ? state.PrimaryChannel : state.SecondaryChannel;
}

void Crossfade::makeNewActive() {
    core_.state.ActiveChannel =
        core_.state.CrossfadeLeg == kOntoSecondary ? ChannelSlot::secondary : ChannelSlot::primary;
}

bool Crossfade::CrossFade_BurnBaby(const TrackRef& track, std::int32_t fadeMilliseconds,
                                   const std::string& popup) {
    bool started = false;
    config::guard(core_.errors, config::player("Crossfade_BurnBaby"),
                  [&] { started = start(track, fadeMilliseconds, popup); });
    return started;
}

bool Crossfade::start(const TrackRef& track, std::int32_t fade, const std::string& popup) {
    PlayerState& state = core_.state;
    if (state.ripHoldsSound()) {
        return false; // a rip gives the library back, and with it what would sound
    }
    if (addresses_ != nullptr && base::isWebUrl(track.path)) {
        addresses_->play(track);
        return false;
    }
    const std::int16_t formerLeg = state.CrossfadeLeg;
    starter_.readVolumeMode();
    state.SilenceTicks = 0;
    facts_.takeOverFields();
    ++state.TracksStarted;
    ++state.CrossfadeLeg;
    if (state.CrossfadeLeg > kOntoPrimary) {
        state.CrossfadeLeg = kOntoSecondary;
    }
    state.IsPlaying = true;
    CrossFade_->setInterval(
        state.comfort.shortensManualNext ? fade : fadeMilliseconds(fadeSeconds(core_.settings)));
    CrossFade_->setEnabled(false);
    if (state.CrossfadeLeg == kOntoSecondary) {
        core_.news.restartVisualisation();
    }
    sound::Handle& channel = newChannel();
    opener_.free(channel);
    channel = opener_.open(track.path, state.comfort);
    if (channel == sound::kNoHandle) {
        if (const auto number = cdTrackOf(track.path); number && startCdTrack(*number, channel)) {
            beginSlides(fade);
            facts_.showNothingKnown(track);
            core_.news.restartVisualisation();
            return true;
        }
        if (state.comfort.keepsTitleOfOldTrack && sounds(oldChannel())) {
            state.CrossfadeLeg = formerLeg;
            facts_.noteUnopened(track);
        } else {
            showUnopened(track);
        }
        return false;
    }
    // The output may be paused, whatever `IsPaused` says: the buttons clear the flag beforehand.
    core_.sound.BASS_Start();
    makeNewActive();
    starter_.startBeside(channel, track.path);
    clock_.beginTrack();
    core_.news.restartVisualisation();
    beginSlides(fade);
    facts_.show(channel, track, popup);
    return true;
}

bool Crossfade::sounds(sound::Handle channel) const {
    return core_.sound.BASS_ChannelIsActive(channel) != sound::Activity::stopped;
}

void Crossfade::showUnopened(const TrackRef& track) {
    if (!sounds(oldChannel())) {
        facts_.showSilence();
    }
    facts_.showUnopened(track);
}

bool Crossfade::startCdTrack(const CdTrack& track, sound::Handle& channel) {
    channel = opener_.openCdTrack(track);
    makeNewActive();
    if (channel != sound::kNoHandle) {
        // A paused output stays so where nothing starts.
        core_.sound.BASS_Start();
    }
    starter_.startDiscBeside(channel);
    if (channel == sound::kNoHandle) {
        return false;
    }
    clock_.beginTrack();
    core_.state.IsPlaying = true;
    core_.state.IsPaused = false;
    core_.state.IsWmaStream = false;
    return true;
}

void Crossfade::beginSlides(std::int32_t milliseconds) {
    const auto time = static_cast<std::uint32_t>(milliseconds);
    // What starts calls a fade-out off: it was meant for the track before.
    fadeOut_.callOff();
    const base::Comfort& comfort = core_.state.comfort;
    if (comfort.fadesIn && milliseconds > 0 && CrossFade_->interval() > 0) {
        CrossFade_->setEnabled(true);
        core_.sound.crossfade(newChannel(), oldChannel(), time);
        return;
    }
    if (milliseconds > 0 && CrossFade_->interval() > 0) {
        CrossFade_->setEnabled(true);
        core_.sound.BASS_ChannelSlideAttributes(oldChannel(), kKeepFrequency, 0, kKeepPan, time);
    } else {
        // No tick would come to free it.
        opener_.free(oldChannel());
    }
    if (comfort.keepsOutputLevel && core_.state.GlobalVolumeMode != 0) {
        return;
    }
    // The new track stands at this volume already: only the old one fades. A deliberate oddity:
    // where volume goes to the whole output, a channel begins at its full level and this brings it
    // down, unless `Comfort::keepsOutputLevel` leaves it.
    core_.sound.BASS_ChannelSlideAttributes(newChannel(), kKeepFrequency, core_.state.CurrentVolume,
                                            kKeepPan, time);
}

void Crossfade::crossfade_Timer() {
    config::guard(core_.errors, config::player("CrossFade"), [this] {
        if (core_.state.CrossfadeLeg == kOntoSecondary ||
            core_.state.CrossfadeLeg == kOntoPrimary) {
            opener_.free(oldChannel());
        }
        CrossFade_->setEnabled(false);
    });
}

void Crossfade::button_cfd() {
    core_.state.CrossfadeOn = !core_.state.CrossfadeOn;
    core_.screen.showMode(Mode::crossfade);
}

} // namespace tovik::player
