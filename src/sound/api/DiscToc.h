// SPDX-License-Identifier: GPL-3.0-or-later
// The table of contents of a disc. A sector is 1/75 s: 588 frames, 2352 bytes of 16-bit stereo.
// Any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tovik::sound {

inline constexpr std::int32_t kSectorsPerSecond = 75;
inline constexpr std::size_t kSectorBytes = 2352;
inline constexpr std::size_t kSectorFrames = 588;

/// A drive's first sector is 0; the times that a disc itself tells begin this much earlier (2 s),
/// as do the offsets that disc ids are made of.
inline constexpr std::int32_t kLeadInSectors = 150;

struct DiscTrack {
    std::int32_t firstSector = 0; ///< where it begins, behind its pre-gap
    std::int32_t sectors = 0;     ///< up to the next track, or to the end of its session
    bool isData = false;          ///< holds files and cannot be heard

    [[nodiscard]] bool operator==(const DiscTrack&) const = default;
};

struct DiscToc {
    int firstNumber = 1;           ///< what the disc calls its first track; 1 on nearly all
    std::vector<DiscTrack> tracks; ///< in their order, 1 to 99
    std::int32_t leadOut = 0;      ///< the sector behind the last one

    [[nodiscard]] bool operator==(const DiscToc&) const = default;
};

/// What went wrong with a track of a disc that was being read; the last ones end it.
enum class DiscTrouble {
    none,
    unreadable, ///< some sectors cannot be read: silence stands for them
    noTrack,    ///< the disc has no such track, or it is one with data
    noDisc,     ///< the disc was taken out, or is another one
    noDrive,    ///< the drive is gone
};

/// How the reading of a track went.
struct DiscReport {
    DiscTrouble trouble = DiscTrouble::none;
    std::int32_t lostSectors = 0; ///< that could not be read so far
    std::int32_t repaired = 0;    ///< places that a verified read had to read again
};

} // namespace tovik::sound
