// SPDX-License-Identifier: GPL-3.0-or-later
// What each step of the start does.
#include "app/frmPlayer.h"

#include "base/ErrorPlace.h"
#include "base/Numbers.h"
#include "base/RegularFile.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "config/Profile.h"
#include "config/SettingText.h"
#include "player/SoundDevice.h"
#include "skin/UnpackSkin.h"
#include "ui/Twips.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace tovik::app {

namespace {

constexpr int kOldestSystem = 5;
constexpr std::uint32_t kSoundVersion = 0x00000002;
constexpr const char* kSoundTitle = "BASS.DLL";
constexpr std::uint32_t kInputOn = 131072;

} // namespace

void frmPlayer::Form_Initialize() {
    config::guard(errors_, config::player("Initialize"), [this] { take(kInitializeSteps); });
}

void frmPlayer::Form_Load() {
    try {
        take(kLoadSteps);
    } catch (...) {
        const base::RuntimeError error = config::currentError();
        endSplash();
        errors_.reportAndTell(error, config::player("Load"));
    }
}

void frmPlayer::takeFirstRun() {
    const std::string file = host_.paths.of(host::DataItem::FirstRun);
    std::string bytes;
    if (base::readWholeFile(file, bytes)) {
        return;
    }
    save("CLNG", config::profileValue(bytes, "Firstrun", "LNG"));
    static_cast<void>(std::remove(file.c_str()));
    state_.FirstRun = true;
}

void frmPlayer::save(const char* key, const std::string& text) {
    try {
        settings_.saveSetting(key, text);
    } catch (const base::RuntimeError& error) {
        unkept_.note(error);
    }
}

void frmPlayer::refuseOldSystem() {
    if (host_.operatingSystem.major < kOldestSystem) {
        language_.Language_File(settings_.getSetting("CLNG"));
        endWith(language_.get_Error_String(1), language_.get_Error_String(0));
    }
}

void frmPlayer::meetOtherInstance() {
    if (settings_.getAs("MI", config::settingToInt16) == 0 && AnotherInstance()) {
        window_.hide();
        endProcess(EXIT_SUCCESS);
    }
}

void frmPlayer::loadSkin() {
    skin::UnpackSkin(host_.paths, host_.dialogs);
    view_.skin.LoadMainSkin();
}

void frmPlayer::keepFaces() {
    view_.skin.SaveUpPictures();
    view_.panels.RefreshTabs();
}

void frmPlayer::loadSettings() {
    stored_.getSettings();
    playback_.silenceSkip.watch();
}

void frmPlayer::lookForOtherInstance() {
    passingBy_ = AnotherInstance() && state_.MultipleInstances != 1;
}

void frmPlayer::choosePanel() {
    state_.CurrentPanel = 1;
}

void frmPlayer::showSplash() {
    if (state_.ShowSplash) {
        window_.showSplash();
    }
}

void frmPlayer::endSplash() {
    if (state_.ShowSplash) {
        window_.endSplash();
    }
}

void frmPlayer::shapeWindow() {
    view_.shapeWindow();
}

void frmPlayer::applyTaskbar() {
    window_.setTaskbarButton(state_.ShowInTaskbar == 1);
}

void frmPlayer::enterDataFolder() {
    // Names in lists may be told from there. Without the folder other steps have failed already.
    std::error_code failure;
    std::filesystem::current_path(host_.paths.dataFolder(), failure);
}

void frmPlayer::checkSoundLibrary() {
    if (sound_.BASS_GetVersion() != kSoundVersion) {
        endWith("BASS version 2.0 was not loaded", kSoundTitle);
    }
}

void frmPlayer::openSound() {
    sound_.BASS_RecordInit(0);
    if (!player::openSoundDevice(sound_, window_.handle())) {
        endWith("Can't initialize device", kSoundTitle);
    }
}

void frmPlayer::openRecording() {
    static constexpr std::array<std::string_view, 3> kWanted = {"stereo out", "wave out mix",
                                                                "mono out"};
    for (int index = 0;; ++index) {
        const auto name = sound_.BASS_RecordGetInputName(index);
        if (!name) {
            break;
        }
        if (std::ranges::find(kWanted, base::toLowerAscii(*name)) != kWanted.end()) {
            sound_.BASS_RecordSetInput(static_cast<std::uint32_t>(index) | kInputOn);
            break;
        }
    }
    // Nothing listens to the mix yet, so nothing is delivered and nothing is spent.
    static_cast<void>(sound_.BASS_RecordStart(44100, 2, nullptr, 0));
}

void frmPlayer::drawEqualizer() {
    view_.sliders.draw();
}

void frmPlayer::showVolume() {
    stored_.read("CVL");
    view_.volumeBar.showHeight();
}

void frmPlayer::showModes() {
    stored_.read("TMD");
    view_.showModes();
}

void frmPlayer::showQuickList() {
    stored_.read("QPL");
    view_.panels.ApplyQuickList();
}

void frmPlayer::applyBalance() {
    playback_.balance.ApplyBalance(state_.BalanceValue);
}

void frmPlayer::showBalanceText() {
    view_.balanceBar.showStartText();
}

void frmPlayer::readMessenger() {
    stored_.read("MSN");
}

void frmPlayer::restoreEqualizer() {
    if (const auto damage = equalizerStore_.autoload_eq()) {
        // The start goes on with the bands that could be read.
        errors_.log(*damage, config::player("Load"));
    }
    equalizerStore_.autoload_db();
}

void frmPlayer::selectFirstRow() {
    if (stdSS_.ListCount() > 0) {
        stdSS_.SelectedIndex = 1;
    }
}

void frmPlayer::showWindow() {
    stored_.read("X");
    stored_.read("Y");
    window_.moveTo(state_.WindowLeft / ui::kTwipsPerPixel, state_.WindowTop / ui::kTwipsPerPixel);
    window_.show();
    state_.LoadFinished = true;
}

void frmPlayer::loadLanguage() {
    language_.Language_File(settings_.getSetting("CLNG"));
    language_.Load_Main_Win_LNG();
    language_.Load_Menus_Lng();
    language_.loadNames();
    view_.showWords();
}

void frmPlayer::makeKnown() {
    if (options_.checkInstance && !AnotherInstance()) {
        save("SHWND", std::to_string(window_.handle()));
    }
}

void frmPlayer::applyTopmost() {
    window_.setTopmost(staysOnTop());
}

void frmPlayer::startHelper(const std::string& name, const std::string& argument) {
    if (!host_.programs.start(name, {argument})) {
        throw base::withPlace(base::RuntimeError(base::ErrorNumber::FileNotFound), name);
    }
}

void frmPlayer::associateFileTypes() {
    if (state_.AssociateAtStart == 1) {
        startHelper("Tkstart.exe", settings_.getSetting("SFA"));
    }
}

void frmPlayer::checkForUpdates() {
    if (state_.CheckUpdates == 1) {
        startHelper("update.exe", version_.updateArgument());
    }
}

void frmPlayer::showCaptions() {
    screen_.playing.caption = version_.get_Tovik_Version();
    screen_.playing.miniCaption = screen_.playing.caption;
    screen_.showCaptions();
}

void frmPlayer::tellUnkept() {
    unkept_.endStart();
}

} // namespace tovik::app
