// SPDX-License-Identifier: GPL-3.0-or-later
// The sections of a language file, and how the rows of its table are written. For
// `LanguageTable.cpp`. Any thread.
#pragma once

#include "base/ComfortTable.h"
#include "config/LanguageTable.h"

#include <array>

namespace tovik::config::rows {

using S = LanguageSection;
using W = TextWindow;
using K = TextKind;
using Row = LanguageRow;

/// The English of "TovikNotice".
inline constexpr auto kEnglishNotices = std::to_array<std::string_view>({
    "Changes are not kept",
    "These parts of the ID3v2 tag will be lost: [x]",
    "Save all the same",
    "Cancel",
    "This file is no MPEG audio: its tags cannot be changed.",
    "connecting",
    "buffering [x] %",
    "reconnecting",
    "no such station",
    "The disc was taken out of its drive.",
    "parts of the disc cannot be read",
    "[x] gave no more picture and was ended",
    "Cannot be played: [x]",
    "The playlist is not empty. Shall [x] replace it, or be appended to it?",
    "&Replace",
    "&Append",
    "No playlist: [x]",
    "The settings were damaged and begin anew. The old ones are kept in [x]",
    "No skin package, or a damaged one: [x]",
    "the station does not answer",
    "no sound at this address",
    "The settings cannot be read. Until they can be, they are left as they are, and changes are "
    "not kept: [x]",
    "The playlist is empty: [x]",
    "No music in [x]",
    "No music without sub-folders: [x]",
});

/// The English of "TovikNames".
inline constexpr auto kEnglishNames = std::to_array<std::string_view>({
    "Player keys",
    "Equalizer",
    "Unfold the quick playlist",
    "Mini mode",
    "Cancel ripping",
    "Time",
    "Track",
    "Channels",
    "Format",
    "Tracks of the disc",
    "Radio stations",
    "Station",
    "60 Hz",
    "170 Hz",
    "310 Hz",
    "600 Hz",
    "1 kHz",
    "3 kHz",
    "6 kHz",
    "12 kHz",
    "14 kHz",
    "16 kHz",
    "Master",
    "Main menu",
    "Ripping",
    "Presets",
    "Visualisation",
    "Row of the list",
    "Audio CD",
    "Progress of the rip",
    "Undo",
});

/// The English of "TovikLists".
inline constexpr auto kEnglishLists = std::to_array<std::string_view>({
    "Drop files here, or press a button to add some",
    "Put in a disc and choose its drive",
    "Press a button to add a station",
});

/// The English of "TovikPreferences".
inline constexpr auto kEnglishPreferences = std::to_array<std::string_view>({
    "&Show the title when a track starts",
    "Command",
    "Keys",
    "Always",
    "New &keys",
    "C&lear",
    "Press the new keys of the command here.",
    "The keys of this command cannot be changed.",
    "Refused: these are the keys of [x].",
    "From now on these keys no longer do what they always did: [x].",
    "These keys cannot be used.",
    "Takes effect at the next start",
    "Folder",
    "Folders",
    "New keys are not kept: shortcuts.dat is no file of this player.",
    "The key of the last column is that of [x] by now.",
    "Show it as a &notification of the desktop",
    "For &Next and Previous",
});

/// The English of "TovikAbout".
inline constexpr auto kEnglishAbout = std::to_array<std::string_view>({
    "&Libraries",
    "Free software under the GNU General Public License, version 3 or later",
    "The program that looks for updates is not installed",
});

/// The English of "TovikDiscs".
inline constexpr auto kEnglishDiscs = std::to_array<std::string_view>({
    "Tracks",
    "Searching …",
    "Found, and kept for this disc",
    "Taken over",
    "None was chosen",
    "The server knows no such disc",
    "The search was called off",
    "There is no disc in the drive",
    "No server is set in the file CDDB/server.ini",
    "The server cannot be reached",
    "The server does not answer",
    "The server gives no answer that is of use",
    "Which disc is it?",
    "The server &knows several like this one:",
    "&OK",
    "&Cancel",
});

/// The English of "TovikRip".
inline constexpr auto kEnglishRip = std::to_array<std::string_view>({
    "[x] cannot be written.",
    "The program [x] is missing. It comes with the package [y].",
    "The disc is gone: [x] is not complete.",
    "Track [x] of [y]",
    "Track [x] of [y], [z] left",
    "[x] is not complete.",
    "The format \"[x]\" is unknown: nothing is ripped.",
});

/// The English of "TovikComfort": the tab, the master, the switches, their frame, and what is said
/// while the command line decides.
inline constexpr auto kEnglishComfort = [] {
    std::array<std::string_view, base::kComfortSwitches.size() + 4> words{
        "Comfort", "&Be as players are today, in all that follows"};
    for (std::size_t i = 0; i < base::kComfortSwitches.size(); ++i) {
        words.at(i + 2) = base::kComfortSwitches.at(i).words;
    }
    words.at(words.size() - 2) = "S&witches, which go with it unless they are set otherwise";
    words.back() = "The command line decides for now. What is set here counts from the next start.";
    return words;
}();

inline constexpr std::array<LanguageSectionRow, kLanguageSections> kSections{{
    {S::MainMenu, "MainMenu", 37, W::frmTSR},
    {S::VisMenu, "VisMenu", 2, W::frmTSR},
    {S::PlMenu, "PlMenu", 3, W::frmTSR},
    {S::PresetMenu, "PresetMenu", 3, W::frmTSR},
    {S::RipMenu, "RipMenu", 3, W::frmTSR},
    {S::PlayerWin, "PlayerWin", 54, W::frmPlayer},
    // The number 60 is asked for as well, though nothing takes its text and no file has it.
    {S::frmPreferences, "frmPreferences", 61, W::frmPreferences},
    {S::FrmLoadPreset, "FrmLoadPreset", 4, W::frmLoadPreset},
    {S::frmAddDir, "frmAddDir", 4, W::frmOpenDirectory},
    {S::frmSearchSong, "frmSearchSong", 6, W::frmJump2File},
    {S::frmAddStation, "frmAddStation", 4, W::frmaddst},
    {S::frmCdInfo, "frmCdInfo", 10, W::frmCdNFO},
    {S::Update, "Update", 5, W::Update},
    {S::frmOutPutPath, "frmOutPutPath", 3, W::frmRipDir},
    {S::frmAbout, "frmAbout", 5, W::frmAbout},
    {S::frmMp3Tag, "frmMp3Tag", 35, W::frmMp3Tag},
    {S::frmJump2Time, "frmJump2Time", 6, W::frmjump2time},
    {S::frmJump2Track, "frmJump2Track", 9, W::frmJump2Track},
    {S::Prompt, "Prompt", 4, W::None},
    {S::Error, "Error", 2, W::None},
    {S::Shortcuts, "Shortcuts", 36, W::frmPreferences},
    {S::Notice, "TovikNotice", static_cast<int>(kEnglishNotices.size()), W::None, kEnglishNotices},
    {S::TovikNames, "TovikNames", static_cast<int>(kEnglishNames.size()), W::frmPlayer,
     kEnglishNames},
    {S::TovikLists, "TovikLists", static_cast<int>(kEnglishLists.size()), W::frmPlayer,
     kEnglishLists},
    {S::TovikPreferences, "TovikPreferences", static_cast<int>(kEnglishPreferences.size()),
     W::frmPreferences, kEnglishPreferences},
    {S::TovikAbout, "TovikAbout", static_cast<int>(kEnglishAbout.size()), W::frmAbout,
     kEnglishAbout},
    {S::TovikDiscs, "TovikDiscs", static_cast<int>(kEnglishDiscs.size()), W::frmCdNFO,
     kEnglishDiscs},
    {S::TovikRip, "TovikRip", static_cast<int>(kEnglishRip.size()), W::None, kEnglishRip},
    {S::TovikComfort, "TovikComfort", static_cast<int>(kEnglishComfort.size()), W::frmPreferences,
     kEnglishComfort},
}};

constexpr Row put(S section, int item, std::string_view element, K kind = K::Caption, int index = 0,
                  int count = 1) {
    return {section, item,  count, kSections.at(static_cast<std::size_t>(section)).window,
            element, index, kind};
}

/// Captions of consecutive indices.
constexpr Row run(S section, int item, std::string_view element, int index, int count = 1) {
    return put(section, item, element, K::Caption, index, count);
}

constexpr Row title(S section) {
    return put(section, 0, "");
}

constexpr Row tip(S section, int item, std::string_view element, int index = 0, int count = 1) {
    return put(section, item, element, K::Tooltip, index, count);
}

/// An element of a window other than that of the section.
constexpr Row inWindow(S section, int item, W window, std::string_view element, K kind) {
    return {section, item, 1, window, element, 0, kind};
}

/// An element of the main window that has its words from another window's section.
constexpr Row inMain(S section, int item, std::string_view element, K kind) {
    return {section, item, 1, W::frmPlayer, element, 0, kind};
}

/// What a screen reader calls consecutive indices.
constexpr Row name(S section, int item, std::string_view element, int index = 0, int count = 1) {
    return {section, item, count, W::frmPlayer, element, index, K::Name};
}

/// A tab of the main window, named by the menu.
constexpr Row tab(int item, std::string_view element) {
    return inMain(S::MainMenu, item, element, K::Tooltip);
}

} // namespace tovik::config::rows
