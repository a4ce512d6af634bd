// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Transport.h"

#include "base/Url.h"

#include <algorithm>

namespace tovik::player {

namespace {

/// Types of two syncs that are set and do nothing: the end of a track is found by looking.
constexpr std::uint32_t kChannelSync = 2147484648U;
constexpr std::uint32_t kRipperSync = 2147483650U;

/// The second one is meant for the stream of the ripper, which is not there yet.
constexpr sound::Handle kRipperStream = sound::kNoHandle;

constexpr std::int32_t kSkipSeconds = 5;

} // namespace

bool Transport::Burnbaby(const TrackRef& track, const std::string& popup) {
    bool started = false;
    config::guard(core_.errors, config::player("BurnBaby"), [&] { started = start(track, popup); });
    return started;
}

bool Transport::start(const TrackRef& track, const std::string& popup) {
    PlayerState& state = core_.state;
    if (state.ripHoldsSound()) {
        return false; // the reset of the device would end the rip
    }
    if (addresses_ != nullptr && base::isWebUrl(track.path)) {
        addresses_->play(track);
        return false;
    }
    state.CrossfadeLeg = 2;
    state.SilenceTicks = 0;
    ++state.TracksStarted;
    facts_.takeOverFields();
    fadeOut_.callOff();
    starter_.resetDevice();
    state.PrimaryChannel = opener_.open(track.path, state.comfort);
    if (state.PrimaryChannel == sound::kNoHandle) {
        const auto number = cdTrackOf(track.path);
        if (number && startCdTrack(track, *number)) {
            return true;
        }
        facts_.showSilence();
        facts_.showUnopened(track);
        return false;
    }
    state.ActiveChannel = ChannelSlot::primary;
    starter_.startPlainly(state.PrimaryChannel, track.path);
    clock_.beginTrack();
    core_.news.restartVisualisation();
    facts_.show(state.PrimaryChannel, track, popup);
    setIdleSync(state.PrimaryChannel, kChannelSync);
    return true;
}

bool Transport::startCdTrack(const TrackRef& track, const CdTrack& number) {
    PlayerState& state = core_.state;
    core_.sound.BASS_ChannelStop(state.PrimaryChannel);
    state.PrimaryChannel = opener_.openCdTrack(number);
    // A deliberate oddity: nobody watches it, and neither volume nor bands reach it.
    const bool asAnyOther = state.comfort.watchesCdTracks;
    if (asAnyOther) {
        state.ActiveChannel = ChannelSlot::primary;
        starter_.startDiscBeside(state.PrimaryChannel);
    } else {
        core_.sound.BASS_StreamPlay(state.PrimaryChannel, true, 0);
    }
    if (state.PrimaryChannel == sound::kNoHandle) {
        return false;
    }
    if (asAnyOther) {
        clock_.beginTrack();
    }
    facts_.showNothingKnown(track);
    setIdleSync(state.PrimaryChannel, kChannelSync);
    setIdleSync(kRipperStream, kRipperSync);
    state.IsPlaying = true;
    state.IsPaused = false;
    state.IsWmaStream = false;
    state.ActiveChannel = ChannelSlot::primary;
    core_.news.restartVisualisation();
    return true;
}

void Transport::setIdleSync(sound::Handle channel, std::uint32_t type) {
    static_cast<void>(core_.sound.BASS_ChannelSetSync(channel, type, 0, nullptr, 0));
}

void Transport::Stop_play() {
    config::guard(core_.errors, config::player("StopPlay"), [this] {
        PlayerState& state = core_.state;
        fadeOut_.callOff();
        if (state.IsPlaying) {
            clock_.watchTrack(false);
            for (const sound::Handle channel : {state.PrimaryChannel, state.SecondaryChannel}) {
                core_.sound.BASS_StreamFree(channel);
                // A module is no stream: it lives on, and must not be heard.
                core_.sound.BASS_ChannelStop(channel);
            }
            core_.news.stopVisualisation();
            state.IsPlaying = false;
        }
        if (state.comfort.clearsLookAtStop) {
            core_.lists.stdSS.showSounding(0);
        }
        core_.news.reportNothing(kNothingFormat, kNothingWord);
    });
}

void Transport::pause() {
    PlayerState& state = core_.state;
    if (!state.IsPlaying) {
        return;
    }
    state.IsPaused = !state.IsPaused;
    if (state.IsPaused) {
        core_.sound.BASS_Pause();
        fadeOut_.hold();
    } else {
        core_.sound.BASS_Start();
        fadeOut_.goOn();
        if (state.RadioMode && addresses_ != nullptr) {
            addresses_->goOn();
        }
        core_.news.stirVisualisation();
    }
    core_.news.reportPause();
}

void Transport::button_pause() {
    config::guard(core_.errors, config::player("pauseup_mouseup"), [this] { pause(); });
}

void Transport::button_stop() {
    reset_time();
    core_.screen.playing.percent = 0;
    core_.screen.showPosition();
    Stop_play();
}

void Transport::reset_time() {
    core_.screen.playing.time = kNoTime;
    core_.screen.showTime();
}

void Transport::skip(std::int32_t seconds) {
    if (core_.state.RadioMode) {
        return; // a stream has no other place to go to
    }
    const sound::Handle channel = core_.state.active();
    std::int32_t place = time_.GetPlayingPos(channel) + seconds;
    if (core_.state.comfort.clampsSkips) {
        place = std::clamp(place, 0, std::max(time_.GetDuration(channel) - 1, 0));
    }
    time_.SetPlayingPos(channel, place, false);
    core_.news.reportSeek();
}

void Transport::five_seconds_fwd() {
    skip(kSkipSeconds);
}

void Transport::five_seconds_bck() {
    skip(-kSkipSeconds);
}

} // namespace tovik::player
