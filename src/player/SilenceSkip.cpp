// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/SilenceSkip.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "config/SettingText.h"
#include "player/ModeFaces.h"

#include <limits>

namespace tovik::player {

namespace {

/// As many ticks with silence, in one piece or in many, make a track count as over: a deliberate
/// oddity, for sound in between does not clear the count.
constexpr std::int16_t kTicksOfSilence = 10;

} // namespace

std::int16_t silenceCountsFrom(std::int16_t percent) {
    return base::toInt16(percent / 100.0);
}

void SilenceSkip::watch() {
    p_.sldTimer.setEnabled(p_.state.SilenceSkipOn);
}

bool SilenceSkip::opened() const {
    double progress = 0;
    if (p_.state.ActiveChannel != ChannelSlot::none) {
        try {
            const std::int32_t position = p_.time.GetPlayingPos(p_.state.active());
            progress = base::divide(position, p_.time.GetDuration(p_.state.active()));
        } catch (const base::RuntimeError&) {
            // The tick carries on behind a statement that failed, ten times a second: it says
            // nothing, and the track counts as at its start.
            progress = 0;
        }
    }
    return progress >= silenceCountsFrom(silenceThreshold_);
}

void SilenceSkip::SLD_Timer() {
    PlayerState& state = p_.state;
    if (p_.CrossFade.enabled() || !state.SilenceSkipOn || !state.IsPlaying || !opened()) {
        return;
    }
    if (p_.sound.BASS_ChannelGetLevel(state.active()) == 0 &&
        state.SilenceTicks < std::numeric_limits<std::int16_t>::max()) {
        ++state.SilenceTicks;
    }
    if (state.SilenceTicks < kTicksOfSilence || p_.list.ListCount() < 1) {
        return;
    }
    state.SilenceTicks = 0;
    config::guard(p_.errors, config::player("sldTimer"), [this] { p_.advance.endTrack(); });
}

void SilenceSkip::button_sld() {
    PlayerState& state = p_.state;
    state.SilenceSkipOn = !state.SilenceSkipOn;
    showMode(p_.elements, state, Mode::silenceSkip);
    watch();
    if (state.SilenceSkipOn) {
        silenceThreshold_ = p_.settings.getAs("SLDT", config::settingToInt16);
    }
}

} // namespace tovik::player
