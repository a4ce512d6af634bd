// SPDX-License-Identifier: GPL-3.0-or-later
// The start and the end of the program, in their order.
#include "app/frmPlayer.h"

#include <array>

namespace tovik::app {

const std::span<const frmPlayer::Step> frmPlayer::kInitializeSteps = [] {
    static constexpr std::array kSteps = {
        Step{"take over the language of the installation", &frmPlayer::takeFirstRun},
        Step{"refuse a system that is too old", &frmPlayer::refuseOldSystem},
        Step{"leave to an instance that runs already", &frmPlayer::meetOtherInstance},
    };
    return std::span<const Step>(kSteps);
}();

const std::span<const frmPlayer::Step> frmPlayer::kLoadSteps = [] {
    static constexpr std::array kSteps = {
        Step{"unpack and bind the skin", &frmPlayer::loadSkin},
        Step{"read the settings", &frmPlayer::loadSettings},
        Step{"look for another instance", &frmPlayer::lookForOtherInstance},
        Step{"begin on the main panel", &frmPlayer::choosePanel},
        Step{"show the splash", &frmPlayer::showSplash},
        Step{"keep the faces of the buttons", &frmPlayer::keepFaces},
        Step{"read the command line", &frmPlayer::readCommandLine},
        Step{"shape the window", &frmPlayer::shapeWindow},
        Step{"show on the task bar or not", &frmPlayer::applyTaskbar},
        Step{"place the elements", &frmPlayer::later},
        Step{"read the speed of the visualisation", &frmPlayer::later},
        Step{"work in the data folder", &frmPlayer::enterDataFolder},
        Step{"check the sound library", &frmPlayer::checkSoundLibrary},
        Step{"open the sound", &frmPlayer::openSound},
        Step{"record the mix for visualisations", &frmPlayer::openRecording},
        Step{"draw the equalizer", &frmPlayer::drawEqualizer},
        Step{"show the volume", &frmPlayer::showVolume},
        Step{"show the modes", &frmPlayer::showModes},
        Step{"lay out the quick list", &frmPlayer::showQuickList},
        Step{"apply the balance", &frmPlayer::applyBalance},
        Step{"read whether messengers are told", &frmPlayer::readMessenger},
        Step{"restore the equalizer", &frmPlayer::restoreEqualizer},
        Step{"read the stations", &frmPlayer::later},
        Step{"select the first row", &frmPlayer::selectFirstRow},
        Step{"end the splash", &frmPlayer::endSplash},
        Step{"show the window", &frmPlayer::showWindow},
        Step{"select the visualisation", &frmPlayer::later},
        Step{"load the language", &frmPlayer::loadLanguage},
        Step{"show the balance as text", &frmPlayer::showBalanceText},
        Step{"open the file of the command line", &frmPlayer::openArgument},
        Step{"make this window known to later instances", &frmPlayer::makeKnown},
        Step{"listen to later instances", &frmPlayer::later},
        Step{"stay on top or not", &frmPlayer::applyTopmost, true},
        Step{"associate the file types", &frmPlayer::associateFileTypes, true},
        Step{"check for updates", &frmPlayer::checkForUpdates, true},
        Step{"set the captions", &frmPlayer::showCaptions, true},
        Step{"tell that nothing is kept", &frmPlayer::tellUnkept},
    };
    return std::span<const Step>(kSteps);
}();

const std::span<const frmPlayer::Step> frmPlayer::kEndSteps = [] {
    static constexpr std::array kSteps = {
        Step{"tell that nothing plays", &frmPlayer::tellNothingPlays},
        // The saved list is read once the window is shown.
        Step{"save the list", &frmPlayer::saveList, false, &frmPlayer::showWindow},
        Step{"hide the window", &frmPlayer::hideWindow},
        Step{"save the settings", &frmPlayer::saveSettings},
        Step{"save the equalizer", &frmPlayer::saveEqualizer, false, &frmPlayer::restoreEqualizer},
        Step{"save the stations", &frmPlayer::later},
        Step{"free the visualisation", &frmPlayer::later},
        Step{"free the sound library", &frmPlayer::freeSound},
        Step{"remove the tray icon", &frmPlayer::later},
    };
    return std::span<const Step>(kSteps);
}();

} // namespace tovik::app
