// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/ListMirror.h"

#include "playlist/stdSS.h"

#include <algorithm>
#include <utility>

namespace tovik::playlist {

ListMirror::ListMirror(stdSS& list) : list_(list) {
    list_.addObserver(*this);
}

ListMirror::~ListMirror() {
    list_.removeObserver(*this);
}

std::int32_t ListMirror::ListCount() const noexcept {
    return list_.ListCount();
}

void ListMirror::ListIndex(std::int32_t item) {
    const std::int32_t before =
        std::exchange(listIndex_, item >= 0 && item < list_.ListCount() ? item : kNone);
    if (watch_ && before != listIndex_) {
        for (const std::int32_t changed : {before, listIndex_}) {
            if (changed != kNone) {
                watch_(changed);
            }
        }
    }
}

std::string_view ListMirror::List(std::int32_t item) const noexcept {
    return item < list_.ListCount() ? list_.text(item + 1, RowText::Title) : std::string_view();
}

void ListMirror::rowsInserted(Row first, Row count) {
    if (listIndex_ != kNone && first <= listIndex_ + 1) {
        listIndex_ += count;
    }
}

void ListMirror::rowsRemoved(std::span<const Row> rows) {
    const Row own = listIndex_ + 1;
    const auto at = std::lower_bound(rows.begin(), rows.end(), own);
    if (at != rows.end() && *at == own) {
        listIndex_ = kNone;
    } else if (listIndex_ != kNone) {
        listIndex_ -= static_cast<std::int32_t>(at - rows.begin());
    }
}

void ListMirror::rowMoved(Row from, Row to) {
    const Row own = listIndex_ + 1;
    if (own == from) {
        listIndex_ = to - 1;
    } else if (own > from && own <= to) {
        --listIndex_;
    } else if (own >= to && own < from) {
        ++listIndex_;
    }
}

void ListMirror::rowsCleared() {
    listIndex_ = kNone;
}

} // namespace tovik::playlist
