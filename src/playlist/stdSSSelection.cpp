// SPDX-License-Identifier: GPL-3.0-or-later
// Which rows of a list are selected, marked and played, and what a view raises.
#include "playlist/stdSS.h"

#include <algorithm>
#include <utility>

namespace tovik::playlist {

void stdSS::SelectIndex(Row row) {
    if (row == SelectedIndex) {
        return;
    }
    const Row before = std::exchange(SelectedIndex, row);
    setMark(before, false);
    looksChanged(before, before);
    selectionAnchor_ = row;
    setMark(row, true);
    looksChanged(row, row);
    showRow(row);
    NoMS();
}

void stdSS::Play(Row row) {
    if (row == playedIndex_ && !SilentMove) {
        showRow(row);
        if (events_ != nullptr) {
            events_->PlayedAgain();
        }
        return;
    }
    if (row <= 0) {
        return;
    }
    starts_ += SilentMove ? 0 : 1;
    const Row before = std::exchange(playedIndex_, row);
    if (SilentMove && soundingRow_ == before) {
        soundingRow_ = row; // the entry that sounds is the one that moved
    }
    looksChanged(before, before);
    looksChanged(row, row);
    if (!SilentMove) {
        raisePlay(row);
    }
}

void stdSS::ContextClick() const {
    if (events_ != nullptr) {
        events_->ContextClick();
    }
}

void stdSS::StartRow(Row row) {
    if (has(row) && row == playedIndex_ && !replayUsed_) {
        raisePlay(row);
        replayUsed_ = !comfort_->restartsEachTime;
    } else {
        Play(row);
    }
}

void stdSS::showSounding(Row row) {
    ++starts_;
    const Row before = lookRow();
    soundingRow_ = row;
    if (row != before) {
        looksChanged(before, before);
        looksChanged(row, row);
    }
}

void stdSS::MS(Row row) {
    multiActive_ = true;
    if (ModifierMask == kShiftMask) {
        const auto [first, last] = std::minmax(selectionAnchor_, row);
        markRange(first, last);
    } else {
        setMark(row, !isMarked(row));
        looksChanged(row, row);
    }
}

void stdSS::NoMS() {
    multiActive_ = false;
    const Row kept = isMarked(SelectedIndex) ? SelectedIndex : 0;
    if (markedCount_ > (kept == 0 ? 0 : 1)) {
        markRange(kept, kept);
    }
}

/// Marks these rows and no other. Numbers outside the list are passed over.
void stdSS::markRange(Row first, Row last) {
    Row changedFirst = ListCount() + 1;
    Row changedLast = 0;
    for (Row row = 1; row <= ListCount(); ++row) {
        const bool marked = row >= first && row <= last;
        if (at(row).marked != marked) {
            setMark(row, marked);
            changedFirst = std::min(changedFirst, row);
            changedLast = row;
        }
    }
    looksChanged(changedFirst, changedLast);
}

void stdSS::setMark(Row row, bool marked) noexcept {
    if (has(row) && at(row).marked != marked) {
        at(row).marked = marked;
        markedCount_ += marked ? 1 : -1;
    }
}

void stdSS::raisePlay(Row row) const {
    if (has(row) && events_ != nullptr) {
        events_->Play(std::string(text(row, RowText::ItemData)));
    }
}

} // namespace tovik::playlist
