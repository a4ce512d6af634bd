// SPDX-License-Identifier: GPL-3.0-or-later
// Taking a row to another place.
#include "playlist/stdSS.h"

#include <algorithm>

namespace tovik::playlist {

/// Which number the played mark has after a row went from one place to another. A deliberate
/// oddity: the mark goes with the row itself, and with the one just above when that row went up,
/// but stays at its number when its entry was one of the others that made room, unless
/// `Comfort::keepsLookOnEntry` lets it go with every entry.
Row stdSS::movedMark(Row mark, Row from, Row to) const {
    if (mark == from) {
        return to;
    }
    if (comfort_->keepsLookOnEntry) {
        const bool madeRoom = mark >= std::min(from, to) && mark <= std::max(from, to);
        return madeRoom ? mark + (to < from ? 1 : -1) : mark;
    }
    return to < from && mark == from - 1 ? from : mark;
}

void stdSS::MoveRow(Row row, Row before) {
    if (!has(row) || before < 1 || before > ListCount() + 1 || before == row || before == row + 1) {
        return;
    }
    SilentMove = true;
    const Row to = before > row ? before - 1 : before;
    const auto [first, last] = std::minmax(row, to);
    // The marks of a selection belong to the places and are left there.
    const auto place = [this](Row at) { return rows_.begin() + (at - 1); };
    const bool up = to < row;
    if (up) {
        std::rotate(place(to), place(row), place(row) + 1);
    } else {
        std::rotate(place(row), place(row) + 1, place(to) + 1);
    }
    const bool carried = at(to).marked;
    for (Row at = to; at != row; at += up ? 1 : -1) {
        this->at(at).marked = this->at(up ? at + 1 : at - 1).marked;
    }
    at(row).marked = carried;
    playedIndex_ = movedMark(playedIndex_, row, to);
    if (soundingRow_) {
        soundingRow_ = movedMark(*soundingRow_, row, to);
    }
    tell([row, to](ListObserver& observer) { observer.rowMoved(row, to); });
    looksChanged(first, last);
    SelectIndex(to);
    SilentMove = false;
}

} // namespace tovik::playlist
