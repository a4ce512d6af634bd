// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Volume.h"

#include "config/SettingText.h"

namespace tovik::player {

namespace {

constexpr int kKeep = -1;

/// A deliberate oddity: a change of volume is written with pan 0 and so centres the balance until
/// the next click on its lamps; a start of a track, which sets the balance first, loses it too.
/// `Comfort::keepsBalance` writes the balance instead.
constexpr int kCentredPan = 0;

} // namespace

void Volume::Channel_Set_Volume(std::int16_t value) {
    const int pan = state_.comfort.keepsBalance ? state_.BalanceValue : kCentredPan;
    if (state_.CrossfadeLeg == 2) {
        sound_.BASS_ChannelSetAttributes(state_.PrimaryChannel, kKeep, value, pan);
    } else if (state_.CrossfadeLeg == 1) {
        sound_.BASS_ChannelSetAttributes(state_.SecondaryChannel, kKeep, value, pan);
    }
}

void Volume::readMode() {
    state_.GlobalVolumeMode = settings_.getAs("EV2", config::settingToInt16);
}

void Volume::changed() {
    settings_.changed("CVL");
}

void Volume::apply() {
    if (state_.GlobalVolumeMode == 0) {
        Channel_Set_Volume(state_.CurrentVolume);
    } else {
        sound_.BASS_SetVolume(state_.CurrentVolume);
    }
}

} // namespace tovik::player
