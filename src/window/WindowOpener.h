// SPDX-License-Identifier: GPL-3.0-or-later
// The windows beside the main window by name, and who opens them. Interface thread.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tovik::window {

/// Each has its row in the table of factories (src/dialogs/DialogTable.cpp).
enum class WindowId : std::uint8_t {
    loadPreset,    ///< the names of the presets
    openDirectory, ///< adds a folder to the playlist
    musicSearch,   ///< the search of the list by title
    jumpToTrack,   ///< the row of a number
    jumpToTime,    ///< a time of the track
    mp3Tag,        ///< the tag editor
    preferences,   ///< the settings
    ripFolder,     ///< the choice of a folder for new files
    about,         ///< what this program is
    addStation,    ///< a radio station
    discInfo,      ///< what is known of a disc
    discMatch,     ///< the discs that a server knows by one number
    count,         ///< how many there are
};

inline constexpr auto kWindows = static_cast<std::size_t>(WindowId::count);

/// As made it opens nothing: a player without a window.
class WindowOpener {
public:
    virtual ~WindowOpener() = default;

    /// Opens the window or, where it is open already, brings it to the front. One that holds up the
    /// others is closed again on return.
    virtual void open(WindowId /*window*/) {}
};

} // namespace tovik::window
