// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Volume.h"

#include "config/SettingText.h"
#include "player/LiveSetting.h"

#include <algorithm>

namespace tovik::player {

namespace {

constexpr int kKeep = -1;

/// A deliberate oddity: a change of volume is written with pan 0 and so centres the balance until
/// the next click on its lamps; a start of a track, which sets the balance first, loses it too.
/// `Comfort::keepsBalance` writes the balance instead.
constexpr int kCentredPan = 0;

} // namespace

void Volume::change_volume(std::int16_t value, std::int16_t /*absolute*/) {
    readMode();
    core_.state.CurrentVolume = std::clamp<std::int16_t>(value, 0, 100);
    changed();
    core_.screen.showVolumeLevel();
    apply();
}

void Volume::Channel_Set_Volume(std::int16_t value) {
    const PlayerState& state = core_.state;
    const int pan = state.comfort.keepsBalance ? state.BalanceValue : kCentredPan;
    if (state.CrossfadeLeg == 2 || state.playsStation()) {
        core_.sound.BASS_ChannelSetAttributes(state.PrimaryChannel, kKeep, value, pan);
    } else if (state.CrossfadeLeg == 1) {
        core_.sound.BASS_ChannelSetAttributes(state.SecondaryChannel, kKeep, value, pan);
    }
}

void Volume::readMode() {
    core_.state.GlobalVolumeMode = readLive(core_.settings, "EV2", config::settingToInt16);
}

void Volume::changed() const {
    core_.settings.changed("CVL");
}

void Volume::apply() {
    if (core_.state.GlobalVolumeMode == 0) {
        Channel_Set_Volume(core_.state.CurrentVolume);
    } else {
        core_.sound.BASS_SetVolume(core_.state.CurrentVolume);
    }
}

} // namespace tovik::player
