// SPDX-License-Identifier: GPL-3.0-or-later
// The start and the end of the program, and what is saved in between, in their order.
#include "app/frmPlayer.h"

#include <array>

namespace tovik::app {

const std::span<const frmPlayer::Step> frmPlayer::kInitializeSteps = [] {
    using P = frmPlayer;
    static constexpr std::array kSteps = {
        Step{"read what comfort is wanted", in<&P::ground_, &Ground::readComfort>},
        Step{"take over the language of the installation", in<&P::ground_, &Ground::takeFirstRun>},
        Step{"refuse a system that is too old", in<&P::ground_, &Ground::refuseOldSystem>},
        Step{"leave to an instance that runs already",
             in<&P::handOver_, &HandOver::meetOtherInstance>},
    };
    return std::span<const Step>(kSteps);
}();

const std::span<const frmPlayer::Step> frmPlayer::kLoadSteps = [] {
    using P = frmPlayer;
    static constexpr std::array kSteps = {
        Step{"unpack and bind the skin", in<&P::front_, &Front::loadSkin>},
        Step{"read the settings", &P::loadSettings},
        Step{"look for another instance", in<&P::ground_, &Ground::lookForOtherInstance>},
        Step{"begin on the main panel", in<&P::front_, &Front::choosePanel>},
        Step{"show the splash", in<&P::front_, &Front::showSplash>},
        Step{"keep the faces of the buttons", in<&P::front_, &Front::keepFaces>},
        Step{"read the command line", in<&P::startFile_, &StartFile::readCommandLine>},
        Step{"shape the window", in<&P::front_, &Front::shapeWindow>},
        Step{"show on the task bar or not", in<&P::front_, &Front::applyTaskbar>},
        Step{"place the elements", &P::later},
        Step{"read the speed of the visualisation", in<&P::visuals_, &Visuals::readSpeed>},
        Step{"work in the data folder", in<&P::ground_, &Ground::enterDataFolder>},
        Step{"check the sound library", in<&P::music_, &Music::checkSoundLibrary>},
        Step{"open the sound", in<&P::music_, &Music::openSound>},
        Step{"record the mix for visualisations", in<&P::music_, &Music::openRecording>},
        Step{"draw the equalizer", in<&P::front_, &Front::drawEqualizer>},
        Step{"show the volume", in<&P::front_, &Front::showVolume>},
        Step{"load the menus", in<&P::menus_, &Menus::load>},
        Step{"show the tray icon", in<&P::presence_, &Presence::showTray>},
        Step{"show the modes", in<&P::front_, &Front::showModes>},
        Step{"lay out the quick list", in<&P::front_, &Front::showQuickList>},
        Step{"apply the balance", in<&P::music_, &Music::applyBalance>},
        Step{"read whether messengers are told", in<&P::ground_, &Ground::readMessenger>},
        Step{"restore the equalizer", in<&P::tone_, &Tone::restoreEqualizer>},
        Step{"read the stations", in<&P::stations_, &Stations::readStations>},
        Step{"select the first row", in<&P::lists_, &Lists::selectFirstRow>},
        Step{"end the splash", in<&P::front_, &Front::endSplash>},
        Step{"show the window", in<&P::front_, &Front::showWindow>},
        Step{"select the visualisation", in<&P::visuals_, &Visuals::select>},
        Step{"load the language", &P::loadLanguage},
        Step{"show the balance as text", in<&P::front_, &Front::showBalanceText>},
        Step{"open the file of the command line", in<&P::startFile_, &StartFile::openArgument>},
        Step{"make this window known to later instances", in<&P::ground_, &Ground::makeKnown>},
        Step{"stay on top or not", in<&P::front_, &Front::applyTopmost>, true},
        Step{"associate the file types", in<&P::ground_, &Ground::associateFileTypes>, true},
        Step{"check for updates", in<&P::ground_, &Ground::checkForUpdates>, true},
        Step{"set the captions", in<&P::ground_, &Ground::showCaptions>, true},
        Step{"look for drives", in<&P::discs_, &Discs::lookForDrives>},
        Step{"tell that nothing is kept", in<&P::ground_, &Ground::tellUnkept>},
    };
    return std::span<const Step>(kSteps);
}();

const std::span<const frmPlayer::Step> frmPlayer::kEndSteps = [] {
    using P = frmPlayer;
    static constexpr std::array kSteps = {
        Step{"tell that nothing plays", in<&P::music_, &Music::tellNothingPlays>},
        // The saved list is read once the window is shown.
        Step{"save the list", in<&P::lists_, &Lists::saveList>, false,
             in<&P::front_, &Front::showWindow>},
        Step{"keep the place and the order of the list", in<&P::autoload_, &Autoload::keepSession>,
             false, in<&P::front_, &Front::showWindow>},
        Step{"save the shortcuts", in<&P::menus_, &Menus::saveShortcuts>, false,
             in<&P::menus_, &Menus::load>},
        Step{"hide the window", in<&P::front_, &Front::hideWindow>},
        Step{"hide the mini window", in<&P::presence_, &Presence::hideMini>},
        Step{"finish lists that are being saved", in<&P::filling_, &Filling::finishSaves>},
        Step{"save the settings", &P::saveSettings},
        Step{"save the equalizer", in<&P::tone_, &Tone::saveEqualizer>, false,
             in<&P::tone_, &Tone::restoreEqualizer>},
        Step{"save the stations", in<&P::stations_, &Stations::saveStations>, false,
             in<&P::stations_, &Stations::readStations>},
        Step{"let messengers hear the last of it", in<&P::desktop_, &Desktop::finishMessengers>},
        Step{"free the visualisation", in<&P::visuals_, &Visuals::free>},
        Step{"free the sound library", in<&P::music_, &Music::freeSound>},
        Step{"remove the tray icon", in<&P::presence_, &Presence::hideTray>},
    };
    return std::span<const Step>(kSteps);
}();

const std::span<const frmPlayer::Step> frmPlayer::kSessionSteps = [] {
    using P = frmPlayer;
    static constexpr std::array kSteps = {
        Step{"save the list so far", in<&P::lists_, &Lists::saveListSoFar>, false,
             in<&P::front_, &Front::showWindow>},
        Step{"keep the place and the order of the list", in<&P::autoload_, &Autoload::keepSession>,
             false, in<&P::front_, &Front::showWindow>},
        Step{"save the shortcuts", in<&P::menus_, &Menus::saveShortcuts>, false,
             in<&P::menus_, &Menus::load>},
        Step{"finish lists that are being saved", in<&P::filling_, &Filling::finishSaves>},
        Step{"save the settings", &P::saveSettings},
        Step{"save the equalizer", in<&P::tone_, &Tone::saveEqualizer>, false,
             in<&P::tone_, &Tone::restoreEqualizer>},
        Step{"save the stations", in<&P::stations_, &Stations::saveStations>, false,
             in<&P::stations_, &Stations::readStations>},
    };
    return std::span<const Step>(kSteps);
}();

} // namespace tovik::app
