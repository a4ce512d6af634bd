// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/MenuTree.h"

#include <array>

namespace tovik::commands {

namespace {

using Id = CommandId;

constexpr MenuEntry opens(int depth, std::string_view name, std::string_view caption,
                          std::string_view image = {}) {
    return {.depth = depth, .name = name, .caption = caption, .image = image};
}

constexpr MenuEntry runs(int depth, std::string_view name, Id command,
                         std::string_view image = {}) {
    return {.depth = depth, .name = name, .command = command, .image = image};
}

constexpr MenuEntry runs(int depth, std::string_view name, int index, Id command) {
    return {.depth = depth, .name = name, .index = index, .command = command};
}

constexpr MenuEntry line(int depth, std::string_view name, std::optional<int> index = {}) {
    return {.depth = depth, .name = name, .index = index, .separator = true};
}

constexpr std::string_view kPlayback = "mnuplbitem1";
constexpr std::string_view kVisual = "sp";

constexpr auto kTree = std::to_array<MenuEntry>({
    opens(0, "mnuMain", "Main"),
    runs(1, "mnuAbout", Id::about, "help"),
    line(1, "mnusep1"),
    opens(1, "mnuPlay", "Play", "play"),
    runs(2, "mnuFile", Id::addFile, "ViewOpen"),
    runs(2, "mnuFolder", Id::addFolder, "Folder"),
    line(2, "mnublank1"),
    runs(2, "mnuDevice1", Id::playDrive1, "cdaudio"),
    runs(2, "mnuDevice2", Id::playDrive2, "cdaudio"),
    runs(2, "mnuDevice3", Id::playDrive3, "cdaudio"),
    runs(2, "mnuDevice4", Id::playDrive4, "cdaudio"),
    runs(2, "mnuDevice5", Id::playDrive5, "cdaudio"),
    line(2, "mnublank2"),
    runs(2, "mnuLocation", Id::addLocation, "location"),
    line(1, "mnusep_1"),
    runs(1, "mnuMainWin", Id::mainPanel, "main"),
    runs(1, "mnuEQWin", Id::equalizerPanel, "eq"),
    runs(1, "mnuPlaylistWin", Id::playlistPanel, "Playlist"),
    runs(1, "mnuRipWin", Id::ripPanel, "Rip"),
    runs(1, "mnuIRTWin", Id::radioPanel, "radio"),
    runs(1, "mnuPreWin", Id::preferences, "Pre"),
    line(1, "mnusep_2"),
    opens(1, "mnuPlayback", "Playback", "playback"),
    runs(2, kPlayback, 1, Id::previous),
    runs(2, kPlayback, 2, Id::play),
    runs(2, kPlayback, 3, Id::pause),
    runs(2, kPlayback, 4, Id::stop),
    runs(2, kPlayback, 5, Id::next),
    line(2, kPlayback, 6),
    runs(2, kPlayback, 7, Id::stopWithFadeout),
    runs(2, kPlayback, 8, Id::stopAfterCurrent),
    runs(2, kPlayback, 9, Id::backFiveSeconds),
    runs(2, kPlayback, 10, Id::forwardFiveSeconds),
    runs(2, kPlayback, 11, Id::startOfList),
    runs(2, kPlayback, 12, Id::endOfList),
    runs(2, kPlayback, 13, Id::tenTracksBack),
    runs(2, kPlayback, 14, Id::tenTracksForward),
    line(2, kPlayback, 15),
    runs(2, kPlayback, 16, Id::jumpToTime),
    runs(2, kPlayback, 17, Id::jumpToTrack),
    runs(2, kPlayback, 18, Id::musicSearch),
    opens(1, "mnuOptions", "Options", "options"),
    runs(2, "mnuTop", Id::alwaysOnTop),
    line(2, "mnusep2"),
    runs(2, "mnuElapsed", Id::timeElapsed),
    runs(2, "mnuRemaining", Id::timeRemaining),
    line(2, "mnusep3"),
    runs(2, "mnuLoop", Id::repeat),
    runs(2, "mnuShuffle", Id::shuffle),
    runs(2, "mnucrossfade", Id::crossfade),
    runs(2, "mnuSld", Id::silenceSkip),
    line(1, "mnusep_3"),
    runs(1, "mnuExit", Id::exit, "delete"),

    opens(0, "mnuRip", "Rip"),
    runs(1, "mnuRipSet", Id::ripSettings),
    line(1, "empty2"),
    runs(1, "mnuRipAll", Id::ripAll),
    runs(1, "mnuRipSel", Id::ripSelected),

    opens(0, "mnuPreset", "Preset"),
    runs(1, "mnuldpreset", Id::loadPreset),
    line(1, "empty"),
    runs(1, "mnuldpreset2", Id::loadPresetFile),
    runs(1, "mnusvpreset", Id::savePresetFile),

    opens(0, "vis", "Vis"),
    runs(1, kVisual, 0, Id::visualisationNone),
    line(1, kVisual, 1),
    runs(1, kVisual, 2, Id::visualisationSpectrum),

    opens(0, "mnupls", "playlist"),
    runs(1, "mnuplsPlay", Id::listPlay),
    runs(1, "mnuplsDel", Id::listDelete),
    runs(1, "mnuplsUndo", Id::undoList),
    line(1, "mnuplstre"),
    runs(1, "mnuplsinfo", Id::listInfo),
});

} // namespace

std::string menuKey(std::string_view name, int index) {
    return std::string(name) + "(" + std::to_string(index) + ")";
}

std::string MenuEntry::key() const {
    return index ? menuKey(name, *index) : std::string(name);
}

std::string_view MenuEntry::words() const {
    return command == CommandId::none ? caption : commandOf(command).name;
}

std::span<const MenuEntry> menuTree() noexcept {
    return kTree;
}

} // namespace tovik::commands
