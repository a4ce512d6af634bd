// SPDX-License-Identifier: GPL-3.0-or-later
// Taking rows out of a list.
#include "playlist/stdSS.h"

#include <algorithm>
#include <array>

namespace tovik::playlist {

namespace {

/// The number that a row has when others, in ascending order, are gone; 0 when it is among them.
Row rowBehind(std::span<const Row> removed, Row row) {
    const auto at = std::ranges::lower_bound(removed, row);
    if (at != removed.end() && *at == row) {
        return 0;
    }
    return row - static_cast<Row>(at - removed.begin());
}

} // namespace

void stdSS::Remove(Row row) {
    if (has(row)) {
        erase(std::array{row});
    }
}

void stdSS::MultiIzbris() {
    std::vector<Row> rows;
    rows.reserve(static_cast<std::size_t>(markedCount_) + 1);
    for (Row row = 1; row <= ListCount(); ++row) {
        if (row == SelectedIndex || at(row).marked) {
            rows.push_back(row);
        }
    }
    if (!rows.empty()) {
        erase(rows);
    }
}

/// Takes out rows given in ascending order, with what one removal after the other would leave.
void stdSS::erase(std::span<const Row> rows) {
    std::int64_t removedSeconds = 0;
    auto kept = rows_.begin() + (rows.front() - 1);
    for (std::size_t n = 0; n < rows.size(); ++n) {
        const Row row = rows[n];
        removedSeconds += at(row).seconds;
        markedCount_ -= at(row).marked ? 1 : 0;
        const Row next = n + 1 < rows.size() ? rows[n + 1] : ListCount() + 1;
        kept = std::move(rows_.begin() + row, rows_.begin() + (next - 1), kept);
    }
    rows_.erase(kept, rows_.end());
    playedIndex_ = rowBehind(rows, playedIndex_);
    if (soundingRow_) {
        soundingRow_ = rowBehind(rows, *soundingRow_);
    }
    SelectedIndex = 0;
    SilentMove = false;
    tell([rows](ListObserver& observer) { observer.rowsRemoved(rows); });
    addToTotal(-removedSeconds);
}

} // namespace tovik::playlist
