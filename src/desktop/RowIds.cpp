// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/RowIds.h"

#include <algorithm>
#include <utility>

namespace tovik::desktop {

RowIds::RowIds(playlist::stdSS& list) : list_(list) {
    list_.addObserver(*this);
    rowsInserted(1, list_.ListCount());
}

RowIds::~RowIds() {
    list_.removeObserver(*this);
}

RowIds::Id RowIds::idOf(playlist::Row row) const {
    return row > 0 && static_cast<std::size_t>(row) <= ids_.size()
               ? ids_.at(static_cast<std::size_t>(row) - 1)
               : 0;
}

playlist::Row RowIds::rowOf(Id id) const {
    const auto found = id == 0 ? ids_.end() : std::ranges::find(ids_, id);
    return found == ids_.end() ? 0 : static_cast<playlist::Row>(found - ids_.begin()) + 1;
}

void RowIds::rowsInserted(playlist::Row first, playlist::Row count) {
    const auto place = ids_.insert(ids_.begin() + (first - 1), static_cast<std::size_t>(count), 0);
    std::generate_n(place, count, [this] { return ++last_; });
    tell();
}

void RowIds::rowsPutBack(std::span<const playlist::Row> rows) {
    std::vector<Id> ids;
    ids.reserve(ids_.size() + rows.size());
    auto others = ids_.begin();
    for (const playlist::Row row : rows) {
        for (; static_cast<playlist::Row>(ids.size()) + 1 < row; ++others) {
            ids.push_back(*others);
        }
        ids.push_back(++last_);
    }
    ids.insert(ids.end(), others, ids_.end());
    ids_ = std::move(ids);
    tell();
}

void RowIds::rowsRemoved(std::span<const playlist::Row> rows) {
    for (const playlist::Row row : rows) {
        ids_.at(static_cast<std::size_t>(row) - 1) = 0;
    }
    std::erase(ids_, 0);
    tell();
}

void RowIds::rowMoved(playlist::Row from, playlist::Row to) {
    const auto first = ids_.begin();
    if (from < to) {
        std::rotate(first + (from - 1), first + from, first + to);
    } else {
        std::rotate(first + (to - 1), first + (from - 1), first + from);
    }
    tell();
}

void RowIds::rowsCleared() {
    ids_.clear();
    tell();
}

void RowIds::rowChanged(playlist::Row row) {
    if (wordsChanged) {
        wordsChanged(idOf(row));
    }
}

void RowIds::tell() const {
    if (changed) {
        changed();
    }
}

} // namespace tovik::desktop
