// SPDX-License-Identifier: GPL-3.0-or-later
// The extensions by which files are known when they are added. Pure; any thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tovik::playlist {

/// In lower case. The order is that in which the rows of a folder tree come.
inline constexpr std::array<std::string_view, 16> AudioExtensions = {
    "mo3",  "xm",  "mod", "s3m", "it",  "mtm", "umx", "cda",
    "flac", "fla", "mp3", "ogg", "wav", "wma", "m3u", "pls",
};

/// A folder is looked through for the first ones: playlist files are none of its music.
inline constexpr std::size_t kScannedExtensions = 14;

/// Whether a dropped file becomes a row: its extension is one of all, in any case of letters.
[[nodiscard]] bool isDropped(std::string_view path);

/// Whether a file is music by its extension, in any case of letters: no playlist file.
[[nodiscard]] bool isMusic(std::string_view path);

/// How many rows a file gets when a folder is added: for each place in its extension and each of
/// the scanned ones one, if the latter occurs at that place or behind it, in any case of letters.
[[nodiscard]] std::int32_t scannedRows(std::string_view extension);

} // namespace tovik::playlist
