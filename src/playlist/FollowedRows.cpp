// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/FollowedRows.h"

#include "playlist/stdSS.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace tovik::playlist {

FollowedRows::FollowedRows(stdSS& list)
    : list_(list), rows_(static_cast<std::size_t>(list.ListCount())) {
    std::iota(rows_.begin(), rows_.end(), 1);
    list_.addObserver(*this);
}

FollowedRows::~FollowedRows() {
    list_.removeObserver(*this);
}

void FollowedRows::rowsInserted(Row first, Row count) {
    std::for_each(std::ranges::lower_bound(rows_, first), rows_.end(),
                  [count](Row& row) { row += count; });
}

void FollowedRows::rowsRemoved(std::span<const Row> rows) {
    std::vector<Row> left;
    left.reserve(rows_.size());
    for (const Row row : rows_) {
        const auto gone = std::ranges::lower_bound(rows, row);
        if (gone == rows.end() || *gone != row) {
            left.push_back(row - static_cast<Row>(gone - rows.begin()));
        }
    }
    rows_ = std::move(left);
}

void FollowedRows::rowMoved(Row from, Row to) {
    for (Row& row : rows_) {
        if (row == from) {
            row = to;
        } else if (from < row && row <= to) {
            --row;
        } else if (to <= row && row < from) {
            ++row;
        }
    }
    std::ranges::sort(rows_);
}

void FollowedRows::rowsCleared() {
    rows_.clear();
}

} // namespace tovik::playlist
