// SPDX-License-Identifier: GPL-3.0-or-later
// Which track of the disc a row of its list stands for. Rows and tracks run apart where tracks
// without a length have no row. Any thread.
#pragma once

#include "player/TrackOpener.h"
#include "playlist/stdSS.h"

#include <cstdint>
#include <optional>

namespace tovik::cd {

/// The track of a row, counted from 0, by the name of the row's file; nothing where that names
/// none. Raises what `cdTrackOf` raises.
[[nodiscard]] inline std::optional<std::int32_t> trackOfRow(const playlist::stdSS& list,
                                                            playlist::Row row) {
    const auto track = player::cdTrackOf(list.text(row, playlist::RowText::FileName));
    return track && track->number > 0 ? std::optional(static_cast<std::int32_t>(track->number) - 1)
                                      : std::nullopt;
}

/// The row of a track, counted from 1; 0 where it has none. Raises what `cdTrackOf` raises.
[[nodiscard]] inline playlist::Row rowOfTrack(const playlist::stdSS& list, std::int32_t track) {
    for (playlist::Row row = 1; row <= list.ListCount(); ++row) {
        if (trackOfRow(list, row) == track) {
            return row;
        }
    }
    return 0;
}

} // namespace tovik::cd
