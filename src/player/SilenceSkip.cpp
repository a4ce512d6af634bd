// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/SilenceSkip.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "config/SettingText.h"
#include "player/LiveSetting.h"

#include <limits>

namespace tovik::player {

namespace {

/// As many ticks with silence, in one piece or in many, make a track count as over: a deliberate
/// oddity, for sound in between does not clear the count.
constexpr std::int16_t kTicksOfSilence = 10;

constexpr double kAll = 100; ///< percent

} // namespace

std::int16_t silenceCountsFrom(std::int16_t percent) {
    return base::toInt16(percent / 100.0);
}

SilenceSkip::SilenceSkip(const Core& core, const Crossfade& crossfade)
    : core_(core), crossfade_(crossfade),
      sldTimer_(core.timers.makeTimer([this] { SLD_Timer(); })) {
    sldTimer_->setInterval(kSldTimerMs);
}

void SilenceSkip::watch() {
    sldTimer_->setEnabled(core_.state.SilenceSkipOn);
    if (core_.state.SilenceSkipOn && core_.state.comfort.readsThreshold) {
        readThreshold();
    }
}

bool SilenceSkip::opened() const {
    double progress = 0;
    if (core_.state.ActiveChannel != ChannelSlot::none) {
        try {
            const std::int32_t position = time_.GetPlayingPos(core_.state.active());
            progress = base::divide(position, time_.GetDuration(core_.state.active()));
        } catch (const base::RuntimeError&) {
            // The tick carries on behind a statement that failed, ten times a second: it says
            // nothing, and the track counts as at its start.
            progress = 0;
        }
    }
    const bool asIs = core_.state.comfort.takesSilenceShareAsIs;
    return progress >= (asIs ? silenceThreshold_ / kAll : silenceCountsFrom(silenceThreshold_));
}

/// Silence before this moment and behind it are two: with `Comfort::countsUnbrokenSilence` they do
/// not add up.
void SilenceSkip::endSilence() {
    if (core_.state.comfort.countsUnbrokenSilence) {
        core_.state.SilenceTicks = 0;
    }
}

void SilenceSkip::SLD_Timer() {
    PlayerState& state = core_.state;
    const bool pauses = state.IsPaused && state.comfort.countsUnbrokenSilence;
    if (crossfade_.runs() || !state.SilenceSkipOn || !state.IsPlaying || state.RadioMode ||
        pauses || !opened()) {
        endSilence();
        return;
    }
    const bool silent = core_.sound.BASS_ChannelGetLevel(state.active()) == 0;
    if (!silent) {
        endSilence();
    }
    if (silent && state.SilenceTicks < std::numeric_limits<std::int16_t>::max()) {
        ++state.SilenceTicks;
    }
    if (state.SilenceTicks < kTicksOfSilence || core_.lists.stdSS.ListCount() < 1) {
        return;
    }
    state.SilenceTicks = 0;
    config::guard(core_.errors, config::player("sldTimer"), [this] { end_->endTrack(); });
}

void SilenceSkip::readThreshold() {
    silenceThreshold_ = readLive(core_.settings, "SLDT", config::settingToInt16);
}

void SilenceSkip::button_sld() {
    PlayerState& state = core_.state;
    state.SilenceSkipOn = !state.SilenceSkipOn;
    core_.screen.showMode(Mode::silenceSkip);
    watch();
    if (state.SilenceSkipOn) {
        readThreshold();
    }
}

} // namespace tovik::player
