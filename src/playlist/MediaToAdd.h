// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of files, folders, addresses and lists that are added: which rows, in which order.
// Any thread; it waits for the disk.
#pragma once

#include "playlist/FindFiles.h"

#include <atomic>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace tovik::playlist {

/// How a folder is looked through.
struct FolderSearch {
    bool readsCueSheets = true; ///< one tells the titles of the files it names
    FileLimits limits{};
};

/// What is opened of the files that are named themselves.
struct MediaSearch {
    bool opensFolders = true;
    bool opensLists = true;   ///< playlist files and cue sheets
    bool takesAnyFile = true; ///< whatever its extension; false: others than music are passed over
    FolderSearch folder{};
};

struct MediaItem {
    enum class Kind : std::uint8_t {
        file,    ///< that was named: its title is its name with the extension
        found,   ///< in a folder, or by a cue sheet: its title is its name without
        address, ///< of the web
        list,    ///< a playlist file, whose entries are still to be read
    };

    Kind kind = Kind::file;
    std::string path{};
    std::string title{}; ///< empty: by the name

    friend bool operator==(const MediaItem&, const MediaItem&) = default;
};

/// What its row is called.
[[nodiscard]] std::string titleOf(const MediaItem& item);

/// What is to be added, and what could not be read.
struct MediaToAdd {
    std::vector<MediaItem> items{};
    std::string missing{}; ///< the first file that is not there, or is none
    std::error_code failure{};
};

/// Whether the name is that of a playlist file, by its extension in any case of letters.
[[nodiscard]] bool isPlaylistFile(std::string_view path);

/// Whether the name is that of a cue sheet, likewise.
[[nodiscard]] bool isCueSheet(std::string_view path);

/// The music in a folder: every file once, in the order that the limits tell, only those with one
/// of the scanned extensions. Playlist files are none of it: what they name is mostly there itself.
[[nodiscard]] std::vector<MediaItem> musicIn(const std::string& folder, const FolderSearch& search,
                                             const std::atomic<bool>& stop);

/// What these paths and addresses stand for, in their order, every file once. Tracks of discs are
/// not looked for. Of a cue sheet each
/// file that it names is one item; relative names are those beside the sheet, and for a file that
/// is not there one of the same name with another scanned extension is taken. Ends early when
/// `stop` is set.
[[nodiscard]] MediaToAdd mediaToAdd(std::span<const std::string> paths, const MediaSearch& search,
                                    const std::atomic<bool>& stop);

} // namespace tovik::playlist
