// SPDX-License-Identifier: GPL-3.0-or-later
// Which text of a language file goes where. Any thread.
#pragma once

#include "config/TextTargets.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace tovik::config {

/// The sections of a language file.
enum class LanguageSection : std::uint8_t {
    MainMenu,
    VisMenu,
    PlMenu,
    PresetMenu,
    RipMenu,
    PlayerWin,
    frmPreferences,
    FrmLoadPreset,
    frmAddDir,
    frmSearchSong,
    frmAddStation,
    frmCdInfo,
    Update,
    frmOutPutPath,
    frmAbout,
    frmMp3Tag,
    frmJump2Time,
    frmJump2Track,
    Prompt,
    Error,
    Shortcuts,
    Notice,     ///< our own: what the window says of the program's state
    TovikNames, ///< what a screen reader calls elements
    TovikLists, ///< what empty lists say
    TovikPreferences,
    TovikAbout,
    TovikDiscs, ///< the search for what is known of a disc
    TovikRip,
    TovikComfort, ///< the page of comfort
};

inline constexpr std::size_t kLanguageSections = 29;

/// The windows that texts go to. The main menu's texts name tabs of the main window, too.
enum class TextWindow : std::uint8_t {
    frmTSR, ///< all menus
    frmPlayer,
    frmPreferences,
    frmLoadPreset,
    frmOpenDirectory,
    frmJump2File,
    frmaddst,
    frmCdNFO,
    Update,
    frmRipDir,
    frmAbout,
    frmMp3Tag,
    frmjump2time,
    frmJump2Track,
    frmDiscMatch, ///< the discs that a server knows by one number
    None,         ///< asked for by code
};

inline constexpr std::size_t kTextWindows = 15;

struct LanguageSectionRow {
    LanguageSection section;
    std::string_view name; ///< as in the file
    int items;             ///< the keys are item0 up to this number less one
    TextWindow window;     ///< where most of its texts go
    /// One for each item: what a file leaves out is taken from here, so that it is never blank.
    /// Empty for the sections of old, where it goes blank.
    std::span<const std::string_view> english{};
};

/// The sections in the order of the enumeration.
[[nodiscard]] std::span<const LanguageSectionRow, kLanguageSections> languageSections() noexcept;

/// Texts of consecutive items that go to consecutive indices of one element.
struct LanguageRow {
    LanguageSection section;
    int item; ///< the first
    int count;
    TextWindow window;
    std::string_view element; ///< empty: the window itself
    int index;                ///< the first, or `kEveryElement`
    TextKind kind;
};

/// All rows; those of one section stand together, in the order of their items.
[[nodiscard]] std::span<const LanguageRow> languageRows() noexcept;

/// The rows of one section.
[[nodiscard]] std::span<const LanguageRow> languageRowsOf(LanguageSection section) noexcept;

} // namespace tovik::config
