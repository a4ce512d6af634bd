// SPDX-License-Identifier: GPL-3.0-or-later
// What others may know of the player, in the terms of the Media Player Remote Interfacing
// Specification 2.2 (MPRIS). Any thread.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tovik::desktop {

/// Of one track. Texts are valid UTF-8, an empty one is not known.
struct RemoteTrack {
    std::string trackId;     ///< an object path
    std::int64_t length = 0; ///< microseconds; 0: not known, or without an end
    std::string title{};
    std::string artist{};
    std::string album{};
    std::string genre{};
    std::string year{};
    std::string url{};
    std::string artUrl{};

    bool operator==(const RemoteTrack&) const = default;
};

struct RemoteState {
    std::string PlaybackStatus = "Stopped";
    std::string LoopStatus = "None";
    bool Shuffle = false;
    double Volume = 0; ///< 0 to 1
    RemoteTrack Metadata;
    bool CanGoNext = false;
    bool CanGoPrevious = false;
    bool CanPlay = false;
    bool CanPause = false;
    bool CanSeek = false;

    bool operator==(const RemoteState&) const = default;
};

/// The path that stands for "no track".
inline constexpr const char* kNoTrack = "/org/mpris/MediaPlayer2/TrackList/NoTrack";

/// The paths of the tracks of the list begin so.
inline constexpr const char* kTrackPath = "/org/tovik/track/";

} // namespace tovik::desktop
