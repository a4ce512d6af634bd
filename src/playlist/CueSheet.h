// SPDX-License-Identifier: GPL-3.0-or-later
// Cue sheets: the text files that say which tracks are in which sound files. Pure; any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::playlist {

struct CueTrack {
    std::string title{};
    std::string performer{};
    std::int32_t startFrames = 0; ///< of 1/75 s, where INDEX 01 says
};

/// A file with the tracks in it.
struct CueFile {
    std::string name{}; ///< as it is written; mostly relative to the sheet
    std::vector<CueTrack> tracks{};
};

struct CueSheet {
    std::string title{};
    std::string performer{};
    std::vector<CueFile> files{};
};

/// More tracks than this are passed over; a disc has 99.
inline constexpr std::size_t kMostCueTracks = 10'000;

/// Reads the commands FILE, TRACK, TITLE, PERFORMER and INDEX 01, in any case of letters, and
/// passes over all else. Texts may stand in double quotes; they are bytes, as given.
[[nodiscard]] CueSheet readCueSheet(std::string_view text);

/// What a row for that file is called: performer and title of its only track, of the disc where it
/// holds several; empty where the sheet tells no title.
[[nodiscard]] std::string cueTitle(const CueSheet& sheet, const CueFile& file);

} // namespace tovik::playlist
