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
        // Nothing that goes wrong in telling it may keep the process alive, either.
        errors_.reportUnguarded(config::currentError());
    }
    endProcess(EXIT_SUCCESS);
}

void frmPlayer::tellNothingPlays() {
    news_.reportNothing(player::kNothingFormat, player::kNothingWord);
}

void frmPlayer::saveList() {
    listKeeper_.end();
    if (listLost_) {
        return; // what could not be read stays where it is
    }
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
    struct Saved {
        const char* key;
        Action reader; ///< as in a step
        std::string value;
    };

    constexpr Action kGroup = &frmPlayer::loadSettings;
    constexpr Action kPlace = &frmPlayer::showWindow;
    const std::array<Saved, 12> values = {{
        {"CVL", kGroup, std::to_string(state_.CurrentVolume)},
        {"SHF", kGroup, flag(state_.ShuffleOn)},
        {"EQ", kGroup, flag(state_.EqualizerOn)},
        {"RPT", kGroup, flag(state_.RepeatOn)},
        {"CFD", kGroup, flag(state_.CrossfadeOn)},
        {"BLV", kGroup, std::to_string(state_.BalanceValue)},
        {"TMD", &frmPlayer::showModes, std::to_string(state_.TimeDisplayMode)},
        {"SLD", kGroup, flag(state_.SilenceSkipOn)},
        {"CVP", kGroup, std::to_string(state_.CurrentVisPlugin)},
        {"X", kPlace, std::to_string(window_.left() * ui::kTwipsPerPixel)},
        {"Y", kPlace, std::to_string(window_.top() * ui::kTwipsPerPixel)},
        {"QPL", &frmPlayer::showQuickList, state_.QuickListOpen ? "1" : "2"},
    }};
    for (const Saved& saved : values) {
        if (wasTaken(saved.reader)) {
            settings_.saveSetting(saved.key, saved.value);
        }
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
