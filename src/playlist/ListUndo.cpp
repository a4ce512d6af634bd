// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/ListUndo.h"

#include "playlist/stdSS.h"

#include <utility>

namespace tovik::playlist {

ListUndo::ListUndo(stdSS& list) : list_(list) {
    list_.setHistory(this);
    list_.addObserver(*this);
}

ListUndo::~ListUndo() {
    list_.removeObserver(*this);
    list_.setHistory(nullptr);
}

ListUndo::Step::Step(const stdSS& list) : undo_(list.history()) {
    if (undo_ != nullptr) {
        outer_ = std::exchange(undo_->current_, ++undo_->lastStep_);
    }
}

ListUndo::Step::~Step() {
    if (undo_ != nullptr) {
        undo_->current_ = outer_;
    }
}

bool ListUndo::listens() const {
    return list_.comfort().keepsRemovedRows && !undoing_;
}

void ListUndo::forget() {
    changes_.clear();
    keptRows_ = 0;
    steps_ = 0;
}

void ListUndo::keep(RemovedRows removed) {
    if (listens()) {
        keptRows_ += removed.records.size();
        note({.step = current_, .what = std::move(removed)});
    }
}

/// Rows that come one behind the other, in one step or in none, are one change.
void ListUndo::rowsInserted(Row first, Row count) {
    if (!listens()) {
        rowsCleared();
        return;
    }
    Change* const last = changes_.empty() ? nullptr : &changes_.back();
    auto* const rows = last != nullptr ? std::get_if<Inserted>(&last->what) : nullptr;
    if (rows != nullptr && last->step == current_ && rows->first + rows->count == first) {
        rows->count += count;
    } else {
        note({.step = current_, .what = Inserted{first, count}});
    }
}

void ListUndo::rowMoved(Row from, Row to) {
    if (listens()) {
        note({.step = current_, .what = Moved{from, to}});
    } else {
        rowsCleared();
    }
}

void ListUndo::rowsRemoved(std::span<const Row> /*rows*/) {
    rowsCleared();
}

/// The places of what was kept no longer fit once something happened unseen.
void ListUndo::rowsCleared() {
    if (!list_.comfort().keepsRemovedRows && !undoing_) {
        forget();
    }
}

void ListUndo::note(Change change) {
    const bool begins = changes_.empty() || change.step == 0 || changes_.back().step != change.step;
    steps_ += begins ? 1 : 0;
    changes_.push_back(std::move(change));
    while (steps_ > 1 && (steps_ > kMostSteps || keptRows_ > kMostRows)) {
        dropOldest();
    }
}

void ListUndo::dropOldest() {
    const std::uint64_t step = changes_.front().step;
    do {
        if (const auto* const rows = std::get_if<RemovedRows>(&changes_.front().what)) {
            keptRows_ -= rows->records.size();
        }
        changes_.pop_front();
    } while (step != 0 && !changes_.empty() && changes_.front().step == step);
    --steps_;
}

void ListUndo::undo() {
    if (changes_.empty()) {
        return;
    }

    /// Where taking back breaks off, the places of what is left fit no more.
    class Undoing {
    public:
        explicit Undoing(ListUndo& undo) : undo_(undo) { undo_.undoing_ = true; }

        ~Undoing() {
            undo_.undoing_ = false;
            if (!done) {
                undo_.forget();
            }
        }

        Undoing(const Undoing&) = delete;
        Undoing& operator=(const Undoing&) = delete;

        bool done = false;

    private:
        ListUndo& undo_;
    };

    Undoing undoing(*this);
    const std::uint64_t step = changes_.back().step;
    do {
        Change change = std::move(changes_.back());
        changes_.pop_back();
        takeBack(std::move(change));
    } while (step != 0 && !changes_.empty() && changes_.back().step == step);
    --steps_;
    undoing.done = true;
}

void ListUndo::takeBack(Change change) {
    if (const auto* const rows = std::get_if<Inserted>(&change.what)) {
        list_.removeRange(rows->first, rows->count);
    } else if (const auto* const moved = std::get_if<Moved>(&change.what)) {
        list_.MoveRow(moved->to, moved->from < moved->to ? moved->from : moved->from + 1);
    } else {
        auto& removed = std::get<RemovedRows>(change.what);
        keptRows_ -= removed.records.size();
        list_.putBack(std::move(removed));
    }
}

} // namespace tovik::playlist
