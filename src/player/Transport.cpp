// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Transport.h"

#include "player/FadeTime.h"
#include "player/SoundDevice.h"

namespace tovik::player {

namespace {

/// Types of two syncs that are set and do nothing: the end of a track is found by looking.
constexpr std::uint32_t kChannelSync = 2147484648U;
constexpr std::uint32_t kRipperSync = 2147483650U;

/// The second one is meant for the stream of the ripper, which is not there yet.
constexpr sound::Handle kRipperStream = sound::kNoHandle;

constexpr std::int32_t kSkipSeconds = 5;

} // namespace

bool Transport::Burnbaby(const std::string& path, std::int32_t /*reserved*/,
                         const std::string& title) {
    bool started = false;
    config::guard(p_.errors, config::player("BurnBaby"), [&] { started = start(path, title); });
    return started;
}

void Transport::resetDevice() {
    // Silences the track before; the device itself stays open behind it.
    p_.sound.BASS_Free();
    static_cast<void>(openSoundDevice(p_.sound, p_.window.handle()));
    p_.opener.free(p_.state.PrimaryChannel);
    p_.opener.free(p_.state.SecondaryChannel);
}

bool Transport::start(const std::string& path, const std::string& title) {
    PlayerState& state = p_.state;
    state.CrossfadeLeg = 2;
    state.SilenceTicks = 0;
    ++state.TracksStarted;
    p_.facts.takeOverFields();
    p_.FadeOut.setEnabled(false);
    resetDevice();
    state.PrimaryChannel = p_.opener.open(path);
    if (state.PrimaryChannel == sound::kNoHandle) {
        const auto track = cdTrackOf(path);
        if (track && startCdTrack(*track)) {
            return true;
        }
        p_.facts.showSilence();
        p_.facts.showUnopened();
        return false;
    }
    state.ActiveChannel = ChannelSlot::primary;
    p_.starter.startPlainly(state.PrimaryChannel, path);
    p_.Timer3.setEnabled(true);
    p_.events.restartVisualisation();
    p_.facts.show(state.PrimaryChannel, path, title);
    setIdleSync(state.PrimaryChannel, kChannelSync);
    return true;
}

bool Transport::startCdTrack(std::uint32_t track) {
    PlayerState& state = p_.state;
    p_.sound.BASS_ChannelStop(state.PrimaryChannel);
    state.PrimaryChannel = p_.opener.openCdTrack(track);
    p_.sound.BASS_StreamPlay(state.PrimaryChannel, true, 0);
    if (state.PrimaryChannel == sound::kNoHandle) {
        return false;
    }
    p_.facts.showNothingKnown();
    setIdleSync(state.PrimaryChannel, kChannelSync);
    setIdleSync(kRipperStream, kRipperSync);
    state.IsPlaying = true;
    state.IsPaused = false;
    state.IsWmaStream = false;
    state.ActiveChannel = ChannelSlot::primary;
    p_.events.restartVisualisation();
    return true;
}

void Transport::setIdleSync(sound::Handle channel, std::uint32_t type) {
    static_cast<void>(p_.sound.BASS_ChannelSetSync(channel, type, 0, nullptr, 0));
}

void Transport::Stop_play() {
    config::guard(p_.errors, config::player("StopPlay"), [this] {
        p_.FadeOut.setEnabled(false);
        if (p_.state.IsPlaying) {
            p_.Timer3.setEnabled(false);
            for (const sound::Handle channel :
                 {p_.state.PrimaryChannel, p_.state.SecondaryChannel}) {
                p_.sound.BASS_StreamFree(channel);
                // A module is no stream: it lives on, and must not be heard.
                p_.sound.BASS_ChannelStop(channel);
            }
            p_.events.stopVisualisation();
            p_.state.IsPlaying = false;
        }
        p_.events.reportNothing(kNothingFormat, kNothingWord);
    });
}

void Transport::pause() {
    if (!p_.state.IsPlaying) {
        return;
    }
    p_.state.IsPaused = !p_.state.IsPaused;
    if (p_.state.IsPaused) {
        p_.sound.BASS_Pause();
    } else {
        p_.sound.BASS_Start();
    }
}

void Transport::button_play() {
    config::guard(p_.errors, config::player("playup_mouseup"), [this] {
        p_.elements.touch(ui::MainElement::playup).visible = true;
        p_.elements.touch(ui::MainElement::playdown).visible = false;
        if (p_.list.ListCount() > 0) {
            p_.state.IsPaused = false;
            if (p_.list.SelectedIndex == 0) {
                p_.list.SelectIndex(1);
            }
            Stdss_Play(std::to_string(p_.list.SelectedIndex));
        }
    });
}

void Transport::button_pause() {
    config::guard(p_.errors, config::player("pauseup_mouseup"), [this] {
        p_.elements.touch(ui::MainElement::pauseup).visible = true;
        p_.elements.touch(ui::MainElement::pausedown).visible = false;
        pause();
    });
}

void Transport::button_stop() {
    reset_time();
    p_.playing.percent = 0;
    p_.view.showPosition(p_.playing);
    Stop_play();
}

void Transport::reset_time() {
    p_.playing.time = kNoTime;
    p_.view.showTime(p_.playing);
}

void Transport::skip(std::int32_t seconds) {
    const sound::Handle channel = p_.state.active();
    p_.time.SetPlayingPos(channel, p_.time.GetPlayingPos(channel) + seconds, false);
}

void Transport::five_seconds_fwd() {
    skip(kSkipSeconds);
}

void Transport::five_seconds_bck() {
    skip(-kSkipSeconds);
}

void Transport::Stdss_Play(const std::string& /*row*/) {
    config::guard(p_.errors, config::player("playlist_play"), [this] {
        p_.list.GetData(p_.list.SelectedIndex);
        const std::int32_t seconds = fadeSeconds(p_.settings);
        const std::string path = p_.list.OutFileName;
        const bool started =
            p_.state.CrossfadeOn
                ? p_.crossfade.CrossFade_BurnBaby(path, fadeMilliseconds(seconds), "")
                : startAlone(path);
        // What did not open has no length, and the row keeps what it says.
        if (started) {
            p_.facts.refreshRowTime(p_.state.active());
            p_.facts.showTitles(p_.state.active());
        }
    });
}

bool Transport::startAlone(const std::string& path) {
    PlayerState& state = p_.state;
    state.CrossfadeLeg = 0;
    state.ActiveChannel = ChannelSlot::primary;
    for (const sound::Handle channel :
         {state.SecondaryChannel, state.SpareChannelC, state.SpareChannelD}) {
        p_.opener.free(channel);
    }
    return Burnbaby(path, 0, "");
}

void Transport::List1_DblClick() {
    const playlist::Row row = p_.mirror.ListIndex() + 1;
    p_.list.GetData(row);
    p_.list.SelectedIndex = row;
    const std::string path = p_.list.OutFileName;
    PlayerState& state = p_.state;
    if (state.CrossfadeOn && state.ClearCounterOnPlay) {
        state.ClearCounterOnPlay = false;
        state.TracksStarted = 0;
    }
    if (state.CrossfadeOn && state.TracksStarted != 0) {
        p_.crossfade.CrossFade_BurnBaby(path, fadeMilliseconds(fadeSeconds(p_.settings)), "");
    } else {
        Burnbaby(path, 0, "");
    }
}

} // namespace tovik::player
