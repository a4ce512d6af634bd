// SPDX-License-Identifier: GPL-3.0-or-later
// What a list tells: its owner (events) and those who show it (changes). Interface thread.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace tovik::playlist {

/// The number of a row, from 1; 0 means none.
using Row = std::int32_t;

/// Events towards the owner of a list. A handler may change the list.
class ListEvents {
public:
    virtual ~ListEvents() = default;

    /// A row was started from the list.
    virtual void Play(const std::string& /*ItemData*/) {}

    /// `Play` was called for the row that is marked as played already.
    virtual void PlayedAgain() {}

    /// After every change of the sum, also by 0.
    virtual void TotalTimeChanged(std::int32_t /*TotalSeconds*/) {}

    /// The right button was pressed; raised by the view.
    virtual void ContextClick() {}
};

/// What those who show a list must know to refresh no more than what changed. Told when the list
/// is in its new state; an observer must not change the list in it.
class ListObserver {
public:
    virtual ~ListObserver() = default;

    /// Rows `first` to `first + count - 1` are new; those behind moved down.
    virtual void rowsInserted(Row /*first*/, Row /*count*/) {}

    /// These rows (their new numbers, ascending) are new, in several places. Told row by row where
    /// nobody has a quicker way.
    virtual void rowsPutBack(std::span<const Row> rows) {
        for (const Row row : rows) {
            rowsInserted(row, 1);
        }
    }

    /// These rows (their old numbers, ascending) are gone; those behind moved up.
    virtual void rowsRemoved(std::span<const Row> /*rows*/) {}

    /// A row was taken out and put in at another place; the numbers from one to the other changed.
    virtual void rowMoved(Row /*from*/, Row /*to*/) {}

    /// Every row is gone.
    virtual void rowsCleared() {}

    /// The title, the time or the file name of this row is another.
    virtual void rowChanged(Row /*row*/) {}

    /// Rows from `first` to `last` may have another look (marked, played), and with it the edges
    /// that their neighbours show.
    virtual void looksChanged(Row /*first*/, Row /*last*/) {}

    /// The row is to be scrolled into view.
    virtual void showRow(Row /*row*/) {}
};

} // namespace tovik::playlist
