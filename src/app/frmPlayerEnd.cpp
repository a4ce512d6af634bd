// SPDX-License-Identifier: GPL-3.0-or-later
// What each step of the end does.
#include "app/frmPlayer.h"

#include "config/SettingText.h"
#include "ui/Twips.h"

#include <array>

namespace tovik::app {

namespace {

std::string flag(bool value) {
    return std::string(config::flagText(value));
}

} // namespace

void frmPlayer::kill_me() {
    try {
        // A save that fails ends the list of things to do, never the way out.
        config::guard(errors_, config::player("kill process"), [this] { take(kEndSteps); });
    } catch (...) {
        // Not even the log could be written: the box alone tells it.
        errors_.reportUnguarded(config::currentError());
    }
    endProcess(EXIT_SUCCESS);
}

void frmPlayer::tellNothingPlays() {
    events_.reportNothing(player::kNothingFormat, player::kNothingWord);
}

void frmPlayer::saveList() {
    listKeeper_.end();
    const bool saves = files_.savesAtExit(state_.DirAddIdle);
    if (saves) {
        files_.autosave_playlist();
    }
    listKeeper_.remove(saves);
}

void frmPlayer::hideWindow() {
    window_.hide();
}

void frmPlayer::saveSettings() {
    const std::array<std::pair<const char*, std::string>, 12> values = {{
        {"CVL", std::to_string(state_.CurrentVolume)},
        {"SHF", flag(state_.ShuffleOn)},
        {"EQ", flag(state_.EqualizerOn)},
        {"RPT", flag(state_.RepeatOn)},
        {"CFD", flag(state_.CrossfadeOn)},
        {"BLV", std::to_string(state_.BalanceValue)},
        {"TMD", std::to_string(state_.TimeDisplayMode)},
        {"SLD", flag(state_.SilenceSkipOn)},
        {"CVP", std::to_string(state_.CurrentVisPlugin)},
        {"X", std::to_string(window_.left() * ui::kTwipsPerPixel)},
        {"Y", std::to_string(window_.top() * ui::kTwipsPerPixel)},
        {"QPL", state_.QuickListOpen ? "1" : "2"},
    }};
    for (const auto& [key, value] : values) {
        settings_.saveSetting(key, value);
    }
}

void frmPlayer::saveEqualizer() {
    equalizerStore_.autosave_eq();
    equalizerStore_.autosave_db();
}

void frmPlayer::freeSound() {
    sound_.BASS_RecordFree();
    sound_.BASS_Stop();
    const std::array channels = {state_.PrimaryChannel, state_.SecondaryChannel,
                                 state_.SpareChannelC, state_.SpareChannelD};
    for (const sound::Handle channel : channels) {
        sound_.BASS_StreamFree(channel);
    }
    for (const sound::Handle channel : channels) {
        sound_.BASS_MusicFree(channel);
    }
    sound_.BASS_Free();
}

} // namespace tovik::app
