// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of a list, and what is kept of those that were taken out. Interface thread.
#pragma once

#include "playlist/ListEvents.h"
#include "playlist/RowTexts.h"

#include <cstdint>
#include <vector>

namespace tovik::playlist {

/// One row of a list.
struct ListRecord {
    RowTexts texts;
    std::int32_t seconds = 0;
    bool marked = false;
    bool unplayable = false;
    bool factsTaken = false; ///< of its file
};

/// Rows with their places, and what was so of them when they went. They are moved out of the list
/// and back into it, never copied.
struct RemovedRows {
    std::vector<Row> places{}; ///< ascending; empty: the rows were all of the list
    std::vector<ListRecord> records{};
    Row selected = 0;         ///< the selected row, if it was one of them
    Row played = 0;           ///< the row that was started last from the list, likewise
    Row sounding = 0;         ///< the row with the played look, likewise
    std::uint64_t starts = 0; ///< how many starts the list had seen; another one outdates the two
};

} // namespace tovik::playlist
