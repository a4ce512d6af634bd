// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/CommandTable.h"

#include "base/RuntimeError.h"

#include <array>

namespace tovik::commands {

namespace {

using Id = CommandId;
using enum CommandKind;

constexpr LanguageItem menu(int number) {
    return {config::LanguageSection::MainMenu, number};
}

constexpr LanguageItem window(int number) {
    return {config::LanguageSection::PlayerWin, number};
}

constexpr LanguageItem presets(int number) {
    return {config::LanguageSection::PresetMenu, number};
}

constexpr LanguageItem rip(int number) {
    return {config::LanguageSection::RipMenu, number};
}

constexpr LanguageItem radio(int number) {
    return {config::LanguageSection::PlMenu, number};
}

constexpr LanguageItem visualisation(int number) {
    return {config::LanguageSection::VisMenu, number};
}

constexpr auto kTable = std::to_array<Command>({
    {Id::previous, "Previous", menu(21)},
    {Id::play, "Play", menu(22)},
    {Id::pause, "Pause", menu(23)},
    {Id::stop, "Stop", menu(24)},
    {Id::next, "Next", menu(25)},
    {Id::previousButton, "Previous", window(11)},
    {Id::nextButton, "Next", window(15)},
    {Id::stopWithFadeout, "Stop with fadeout", menu(26)},
    {Id::stopAfterCurrent, "Stop after current", menu(27), toggle},
    {Id::backFiveSeconds, "Back 5 seconds", menu(28)},
    {Id::forwardFiveSeconds, "Fwd  5 seconds", menu(29)},
    {Id::startOfList, "Start of list", menu(30)},
    {Id::endOfList, "End of list", menu(31)},
    {Id::tenTracksBack, "10 tracks back", menu(32)},
    {Id::tenTracksForward, "10 tracks fwd", menu(33)},
    {Id::jumpToTime, "Jump to time", menu(34)},
    {Id::jumpToTrack, "Jump to track", menu(35)},
    {Id::musicSearch, "Music search", menu(36)},
    {Id::addFile, "File", menu(2)},
    {Id::addFolder, "Folder", menu(3)},
    {Id::addLocation, "Location", menu(4)},
    {Id::locationButton, "Add location", window(29)},
    {Id::playDrive1, "Audio CD"},
    {Id::playDrive2, "Audio CD"},
    {Id::playDrive3, "Audio CD"},
    {Id::playDrive4, "Audio CD"},
    {Id::playDrive5, "Audio CD"},
    {Id::removeFromList, "Delete", window(30)},
    {Id::clearList, "Clear", window(31)},
    {Id::undoList, "Undo", LanguageItem{config::LanguageSection::TovikNames, 30}},
    {Id::loadList, "Load", window(32)},
    {Id::saveList, "Save", window(33)},
    {Id::editTag, "View file info"},
    {Id::mainPanel, "Main", menu(5)},
    {Id::equalizerPanel, "EQ", menu(6)},
    {Id::playlistPanel, "Playlist", menu(7)},
    {Id::ripPanel, "Audio CD Ripper", menu(8)},
    {Id::radioPanel, "Internet Radio Tuner", menu(9)},
    {Id::preferences, "Preferences", menu(10)},
    {Id::about, "About", menu(0)},
    {Id::miniMode, "Mini mode", {}, toggle},
    {Id::foldQuickList, "Quick playlist", {}, toggle},
    {Id::alwaysOnTop, "Always On Top", menu(12), toggle},
    {Id::timeElapsed, "Time Elapsed", menu(13), choice},
    {Id::timeRemaining, "Time Remaining", menu(14), choice},
    {Id::visualisationNone, "None", visualisation(0), choice},
    {Id::visualisationSpectrum, "Spectrum analyzer(internal)", visualisation(1), choice},
    {Id::repeat, "Repeat", menu(15), toggle},
    {Id::shuffle, "Shuffle", menu(16), toggle},
    {Id::crossfade, "Crossfade", menu(17), toggle},
    {Id::silenceSkip, "Silence Detection", menu(18), toggle},
    {Id::equalizer, "EQ on", window(24), toggle},
    {Id::resetEqualizer, "Reset", window(26)},
    {Id::presetMenu, "Presets", window(25)},
    {Id::loadPreset, "Load", presets(0)},
    {Id::loadPresetFile, "Load from file", presets(1)},
    {Id::savePresetFile, "Save to file", presets(2)},
    {Id::ripSettings, "Ripper Settings", rip(0)},
    {Id::ripAll, "Rip All Tracks", rip(1)},
    {Id::ripSelected, "Rip Selected Track(s)", rip(2)},
    {Id::ripMenu, "Rip", window(34)},
    {Id::cancelRip, "Cancel"},
    {Id::radioPlay, "Play station", window(35)},
    {Id::radioDelete, "Remove station", window(37)},
    {Id::radioInfo, "View station info"},
    {Id::addStation, "Add station", window(36)},
    {Id::startRecording, "Save the stream", window(38)},
    {Id::endRecording, "Stop saving the stream", window(39)},
    {Id::listPlay, "Play", radio(0)},
    {Id::listDelete, "Delete", radio(1)},
    {Id::listInfo, "View file info", radio(2)},
    {Id::mainMenu, "Main"},
    {Id::minimise, "Minimise", window(17)},
    {Id::exit, "Exit", menu(19)},
});

constexpr bool inOrderOfNumbers() {
    for (std::size_t i = 0; i < kTable.size(); ++i) {
        if (static_cast<std::size_t>(kTable[i].id) != i + 1) {
            return false;
        }
    }
    return static_cast<std::size_t>(Id::exit) == kTable.size();
}

static_assert(inOrderOfNumbers());

} // namespace

std::span<const Command> commandTable() noexcept {
    return kTable;
}

const Command& commandOf(CommandId id) {
    const auto number = static_cast<std::size_t>(id);
    if (number == 0 || number > kTable.size()) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    return kTable.at(number - 1);
}

} // namespace tovik::commands
