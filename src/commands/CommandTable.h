// SPDX-License-Identifier: GPL-3.0-or-later
// What the player can do, as data: keys, buttons, menus and the rest are views of this table.
// Any thread.
#pragma once

#include "config/LanguageTable.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace tovik::commands {

enum class CommandId : std::uint8_t {
    none, ///< what has no target does nothing
    // Playing.
    previous,
    play,
    pause,
    stop,
    next,
    previousButton, ///< as the button does it: the output sounds again first
    nextButton,
    stopWithFadeout,
    stopAfterCurrent,
    backFiveSeconds,
    forwardFiveSeconds,
    startOfList,
    endOfList,
    tenTracksBack,
    tenTracksForward,
    jumpToTime,
    jumpToTrack,
    musicSearch,
    // Adding media, and the list.
    addFile,
    addFolder,
    addLocation,
    locationButton, ///< the panel's button
    playDrive1,
    playDrive2,
    playDrive3,
    playDrive4,
    playDrive5,
    removeFromList,
    clearList,
    undoList, ///< what was done to the list last
    loadList,
    saveList,
    editTag,
    // The panels and the other windows.
    mainPanel,
    equalizerPanel,
    playlistPanel,
    ripPanel,
    radioPanel,
    preferences,
    about,
    miniMode,
    foldQuickList,
    // The looks.
    alwaysOnTop,
    timeElapsed,
    timeRemaining,
    visualisationNone,
    visualisationSpectrum,
    // The modes.
    repeat,
    shuffle,
    crossfade,
    silenceSkip,
    // The equalizer.
    equalizer,
    resetEqualizer,
    presetMenu,
    loadPreset,
    loadPresetFile,
    savePresetFile,
    // Ripping and radio.
    ripSettings,
    ripAll,
    ripSelected,
    ripMenu,
    cancelRip,
    radioPlay,
    radioDelete,
    radioInfo,
    addStation,
    startRecording,
    endRecording,
    // The list that was asked for a menu.
    listPlay,
    listDelete,
    listInfo,
    // The program.
    mainMenu,
    minimise,
    exit,
};

/// Where a language file holds the name of a command.
struct LanguageItem {
    config::LanguageSection section{};
    int number = 0;

    friend constexpr auto operator<=>(const LanguageItem&, const LanguageItem&) = default;
};

/// Whether a command shows a state.
enum class CommandKind : std::uint8_t {
    action, ///< it does something, once
    toggle, ///< on or off; each run flips it
    choice, ///< one of several that exclude each other
};

struct Command {
    CommandId id{};
    std::string_view name;                  ///< until a language says otherwise
    std::optional<LanguageItem> language{}; ///< none: no language names it
    CommandKind kind = CommandKind::action;
};

/// All of them, in the order of their numbers, without `none`.
[[nodiscard]] std::span<const Command> commandTable() noexcept;

/// The row of a command. Raises 9 for `none`.
[[nodiscard]] const Command& commandOf(CommandId id);

} // namespace tovik::commands
