// SPDX-License-Identifier: GPL-3.0-or-later
// A track of the disc that is in a drive. Any thread.
#pragma once

#include "sound/cd/DriveWork.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace tovik::sound {

/// An audio track of a certain disc.
struct DiscPlace {
    std::uint32_t discNumber = 0;
    std::int32_t firstSector = 0;
    std::int32_t sectors = 0;
};

/// Where track `track` (from 0) of what is seen in a drive lies; nothing when there is no such
/// track, or it holds data.
[[nodiscard]] inline std::optional<DiscPlace> placeOf(const DriveView& view, std::uint32_t track) {
    if (!view.disc.toc || track >= view.disc.toc->tracks.size()) {
        return std::nullopt;
    }
    const DiscTrack& found = view.disc.toc->tracks[track];
    if (found.isData || found.sectors <= 0) {
        return std::nullopt;
    }
    return DiscPlace{
        .discNumber = view.discNumber, .firstSector = found.firstSector, .sectors = found.sectors};
}

} // namespace tovik::sound
