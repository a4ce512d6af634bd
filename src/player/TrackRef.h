// SPDX-License-Identifier: GPL-3.0-or-later
// A row on its way to the decoder. Interface thread.
#pragma once

#include "playlist/stdSS.h"

#include <string>

namespace tovik::player {

struct TrackRef {
    std::string path;
    std::string title;     ///< of its row
    playlist::Row row = 0; ///< 0: of no row
};

/// A row of the list. Row 0 has no path; one past the end is what was fetched before it.
[[nodiscard]] inline TrackRef trackOf(playlist::stdSS& list, playlist::Row row) {
    list.GetData(row);
    return {.path = list.OutFileName, .title = list.OutTitle, .row = row};
}

} // namespace tovik::player
