// SPDX-License-Identifier: GPL-3.0-or-later
// A drive as the sound library needs it: the machine's, an image of a disc, or one that a test
// makes up. All members may wait, a scratched disc for minutes, except those that say they do not;
// one thread at a time calls them (see DriveThread), never the interface thread.
#pragma once

#include "sound/api/DiscToc.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace tovik::sound {

enum class DoorAction { close, open, lock, unlock };

/// What a drive can do.
struct DriveFacts {
    bool canOpen = false;       ///< opens its tray by itself
    bool canLock = false;       ///< can keep it shut
    std::uint32_t maxSpeed = 0; ///< kB a second; 0: unknown
    std::uint32_t cache = 0;    ///< kB; 0: unknown
};

/// What is in a drive.
struct DiscLook {
    std::optional<DiscToc> toc; ///< nothing without a disc, or with one that has no tracks
    std::string text;           ///< CD-Text, see BASS_CD_GetID; empty: none
};

/// What became of a read.
struct SectorRead {
    std::size_t sectors = 0; ///< that were read, from the first one asked for; may be fewer
    /// Why it is none; `unreadable`: the first sector asked for is.
    DiscTrouble trouble = DiscTrouble::none;
};

/// Reads a part of a disc from its beginning to its end, with verification. Belongs to the drive
/// that made it, and is used as that is.
class VerifiedReader {
public:
    virtual ~VerifiedReader() = default;

    /// Reads the next sectors into `bytes`, a multiple of kSectorBytes, 16-bit little-endian
    /// stereo. What cannot be read is silence and counts as lost; the disc's end and its loss are
    /// troubles.
    [[nodiscard]] virtual SectorRead read(std::span<std::byte> bytes) = 0;

    /// Sectors that could not be read so far, and places that had to be read again. Does not wait.
    [[nodiscard]] virtual DiscReport report() const = 0;
};

class CdDrive {
public:
    virtual ~CdDrive() = default;

    /// What the user knows it by. Does not wait.
    [[nodiscard]] virtual std::string description() const = 0;

    /// Does not wait.
    [[nodiscard]] virtual DriveFacts facts() const = 0;

    /// Looks which disc is in it.
    [[nodiscard]] virtual DiscLook look() = 0;

    /// Whether the disc may be another one, or gone, since this was asked last.
    [[nodiscard]] virtual bool discChanged() = 0;

    /// Reads sectors of audio into `bytes`, a multiple of kSectorBytes, 16-bit little-endian
    /// stereo, without verification. It may read fewer than asked.
    [[nodiscard]] virtual SectorRead read(std::int32_t sector, std::span<std::byte> bytes) = 0;

    /// What reads the sectors from `first` on, `sectors` of them, with verification; null when that
    /// cannot be. The drive outlives it.
    [[nodiscard]] virtual std::unique_ptr<VerifiedReader> verified(std::int32_t first,
                                                                   std::int32_t sectors) = 0;

    /// Whether the drive did it.
    virtual bool door(DoorAction action) = 0;
};

} // namespace tovik::sound
