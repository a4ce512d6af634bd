// SPDX-License-Identifier: GPL-3.0-or-later
// Taking rows out of a list.
#include "playlist/ListUndo.h"
#include "playlist/stdSS.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <utility>

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
/// Two deliberate oddities: nothing is selected afterwards, and the rows are gone.
void stdSS::erase(std::span<const Row> rows) {
    const Row selected = SelectedIndex;
    keep(take(rows));
    if (comfort_->selectsNeighbour) {
        selectBeside(selected, rows);
    }
}

RemovedRows stdSS::take(std::span<const Row> rows) {
    const auto amongThem = [rows](Row row) {
        return std::ranges::binary_search(rows, row) ? row : 0;
    };
    RemovedRows removed{.places = {rows.begin(), rows.end()},
                        .selected = amongThem(SelectedIndex),
                        .played = amongThem(playedIndex_),
                        .sounding = amongThem(soundingRow_.value_or(0)),
                        .starts = starts_};
    removed.records.reserve(rows.size());
    std::int64_t removedSeconds = 0;
    auto kept = rows_.begin() + (rows.front() - 1);
    for (std::size_t n = 0; n < rows.size(); ++n) {
        const Row row = rows[n];
        removedSeconds += at(row).seconds;
        markedCount_ -= at(row).marked ? 1 : 0;
        removed.records.push_back(std::move(at(row)));
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
    return removed;
}

void stdSS::keep(RemovedRows removed) {
    if (history_ != nullptr && comfort_->keepsRemovedRows && !removed.records.empty()) {
        history_->keep(std::move(removed));
    }
}

/// A row that is still there stays selected; for one that is gone the one at its place is.
void stdSS::selectBeside(Row selected, std::span<const Row> removed) {
    if (const Row still = rowBehind(removed, selected); still != 0 || selected == 0) {
        SelectedIndex = still;
        return;
    }
    const auto before = std::ranges::lower_bound(removed, selected) - removed.begin();
    SelectIndex(std::min(selected - static_cast<Row>(before), ListCount()));
}

/// Numbers that count rows become those that the rows have once others came to these places.
void stdSS::makeRoom(std::span<const Row> places) {
    const auto shift = [places](Row& row) {
        for (const Row place : places) {
            if (row == 0 || place > row) {
                return;
            }
            ++row;
        }
    };
    shift(SelectedIndex);
    shift(selectionAnchor_);
    shift(playedIndex_);
    if (soundingRow_) {
        shift(*soundingRow_);
    }
}

void stdSS::putBack(RemovedRows removed) {
    std::vector<Row>& places = removed.places;
    const std::size_t count = removed.records.size();
    if (places.empty()) {
        places.resize(count);
        std::iota(places.begin(), places.end(), 1);
    }
    if (count == 0 || places.size() != count || places.front() < 1 ||
        static_cast<std::size_t>(places.back()) > rows_.size() + count) {
        return;
    }
    std::int64_t seconds = 0;
    std::vector<Record> all;
    all.reserve(rows_.size() + count);
    auto others = rows_.begin();
    for (std::size_t n = 0; n < count; ++n) {
        const auto until = rows_.begin() + (places[n] - 1 - static_cast<Row>(n));
        all.insert(all.end(), std::move_iterator(others), std::move_iterator(until));
        others = until;
        removed.records[n].marked = false;
        seconds += removed.records[n].seconds;
        all.push_back(std::move(removed.records[n]));
    }
    all.insert(all.end(), std::move_iterator(others), std::move_iterator(rows_.end()));
    rows_ = std::move(all);
    makeRoom(places);
    if (removed.starts == starts_) {
        playedIndex_ = removed.played != 0 ? removed.played : playedIndex_;
        soundingRow_ = removed.sounding != 0 ? removed.sounding : soundingRow_;
    }
    if (static_cast<std::size_t>(places.back() - places.front()) + 1 == count) {
        tell([&](ListObserver& observer) {
            observer.rowsInserted(places.front(), static_cast<Row>(count));
        });
    } else {
        tell([&](ListObserver& observer) { observer.rowsPutBack(places); });
    }
    addToTotal(seconds);
    if (removed.selected != 0) {
        SelectIndex(removed.selected);
    } else {
        showRow(places.front());
    }
}

void stdSS::removeRange(Row first, Row count) {
    std::vector<Row> rows;
    for (Row row = std::max(first, 1); row <= std::min(first + count - 1, ListCount()); ++row) {
        rows.push_back(row);
    }
    if (!rows.empty()) {
        erase(rows);
    }
}

void stdSS::moveToEnd(std::span<const Row> rows) {
    const auto count = static_cast<Row>(rows.size());
    if (rows.empty() || rows.front() > ListCount() - count) {
        return;
    }
    const Row selected = SelectedIndex;
    RemovedRows moved = take(rows);
    const Row before = ListCount();
    for (Row* const number : {&moved.selected, &moved.played, &moved.sounding}) {
        const auto place = std::ranges::find(moved.places, *number);
        *number = place == moved.places.end()
                      ? 0
                      : before + 1 + static_cast<Row>(place - moved.places.begin());
    }
    std::iota(moved.places.begin(), moved.places.end(), before + 1);
    SelectedIndex = rowBehind(rows, selected);
    putBack(std::move(moved));
}

} // namespace tovik::playlist
