// SPDX-License-Identifier: GPL-3.0-or-later
// The player's list of rows: playlist, tracks of a disc, radio stations. Interface thread.
#pragma once

#include "base/Comfort.h"
#include "playlist/ListRecord.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::playlist {

class ListUndo;

/// Rows are counted from 1; 0 is no row. No operation reports an error: what asks for a row that
/// is not there has no effect on rows. The members whose names begin with a capital are the list
/// as the player's logic speaks of it; the others are for those who show it.
///
/// Nothing of a list is copied elsewhere. Texts are bytes, as given.
class stdSS {
public:
    stdSS() = default;
    ~stdSS() = default;
    stdSS(const stdSS&) = delete;
    stdSS& operator=(const stdSS&) = delete;

    // What `GetData` fetched last.
    std::string OutItemData;
    std::string OutFileName;
    std::string OutTitle;
    std::string OutTimeText;
    std::int32_t OutSeconds = 0;

    /// The selected row, 0 for none. May be written: the position then moves and nothing is
    /// redrawn.
    Row SelectedIndex = 0;

    /// While true, `Play` moves the played mark and raises no event.
    bool SilentMove = false;

    /// Shift or Ctrl is down; the view keeps it.
    bool ModifierHeld = false;

    /// 1 (`kShiftMask`) for Shift; the view keeps it.
    int ModifierMask = 0;

    static constexpr int kShiftMask = 1;

    [[nodiscard]] Row ListCount() const noexcept { return static_cast<Row>(rows_.size()); }

    /// The sum of all rows' seconds, kept up to date by difference. A sum that does not fit stays
    /// as it was.
    [[nodiscard]] std::int32_t TotalSeconds() const noexcept { return totalSeconds_; }

    /// Between `MS` and `NoMS`.
    [[nodiscard]] bool MultiActive() const noexcept { return multiActive_; }

    /// Appends a row. Neither selection nor played mark change.
    void AddItem(std::string_view ItemData, std::string_view FileName, std::string_view Title,
                 std::string_view TimeText, std::int32_t Seconds);

    /// Removes every row. Afterwards `OutTimeText` is "0", the other `Out` texts are empty.
    void Clear();

    /// Removes a row; nothing is selected any more, or what is at its place by then
    /// (`Comfort::selectsNeighbour`). What plays goes on: the played mark stays on its entry and
    /// goes with it.
    void Remove(Row row);

    /// The same for rows one behind the other; those that are not there are passed over.
    void removeRange(Row first, Row count);

    /// Removes the selected row and every marked row.
    void MultiIzbris();

    /// Takes a row to the place in front of another, or behind the last (`before` one past it), and
    /// selects it there. Nothing happens where that changes no order. Nothing is started anew; for
    /// the played mark see `movedMark` in stdSSMove.cpp.
    void MoveRow(Row row, Row before);

    /// Takes these rows, which are there, in ascending order, to the end of the list, looks and
    /// selection included.
    void moveToEnd(std::span<const Row> rows);

    /// Puts back what was removed, to the places that it names; what was selected of it then is so
    /// again. What plays has its look again unless something was started since. Nothing happens
    /// where the places do not fit the list.
    void putBack(RemovedRows removed);

    /// Rows may look otherwise than before, by no change of the list.
    void looksChanged(Row first, Row last) const;

    void RefreshTitle(Row row, std::string_view Title);

    /// The same, but nobody is told: for titles that change faster than anyone can see. Whoever
    /// sets them sees to it that the last one is told.
    void setTitle(Row row, std::string_view Title);

    /// Replaces the length; with the same seconds nothing changes, not even the text.
    void RefreshTime(Row row, std::int32_t Seconds, std::string_view TimeText);

    /// Whether its file could be played when that was tried last.
    void setUnplayable(Row row, bool unplayable);

    /// What its file says of itself was asked for and is in the row, as far as it has a place.
    void setFactsTaken(Row row);

    void AddFileName2(Row row, std::string_view FileName);

    /// Copies a row into the `Out` variables; row 0 or less empties them; a row past the end leaves
    /// them.
    void GetData(Row row);

    /// Makes the row the single selected one and shows it (0: none is selected). Nothing at all
    /// happens for the row that is selected already, so a multiple selection then stays.
    void SelectIndex(Row row);

    /// Marks the row as played and raises `Play`, or `PlayedAgain` if it was marked already.
    void Play(Row row);

    /// The road of a double click and of Enter. See `replayUsed_`.
    void StartRow(Row row);

    /// Gives the played look to the row that sounds, 0 for none. From then on the look goes only by
    /// this; before, and in a list that is never told, it goes by `Play`. The row that `Play` and
    /// `StartRow` compare with stays the one started last from the list.
    void showSounding(Row row);

    /// Shift: marks the range from the row selected last to this one, and nothing else. Otherwise
    /// the row's mark is toggled.
    void MS(Row row);

    /// The view was asked about the list, by the right button.
    void ContextClick() const;

    /// Ends a multiple selection; only the selected row stays marked.
    void NoMS();

    /// What of its behaviour is kinder; outlives the list. Nothing is without it.
    void obey(const base::Comfort& comfort) noexcept { comfort_ = &comfort; }

    [[nodiscard]] const base::Comfort& comfort() const noexcept { return *comfort_; }

    /// Who keeps the rows that are removed: none or one. Not owned.
    void setHistory(ListUndo* history) noexcept { history_ = history; }

    [[nodiscard]] ListUndo* history() const noexcept { return history_; }

    /// Who hears the events: none or one. Not owned.
    void setEvents(ListEvents* events) noexcept { events_ = events; }

    /// Observers are not owned and leave before they go. Not to be called by an observer.
    void addObserver(ListObserver& observer);
    void removeObserver(ListObserver& observer) noexcept;

    // What a view draws; all of it empty for a row that is not there.

    /// "12. " for row 12: it belongs to the place, not to the entry.
    [[nodiscard]] std::string numberText(Row row) const;

    /// Holds until the list changes.
    [[nodiscard]] std::string_view text(Row row, RowText which) const noexcept;

    [[nodiscard]] std::int32_t seconds(Row row) const noexcept;
    [[nodiscard]] bool isMarked(Row row) const noexcept;
    [[nodiscard]] bool isUnplayable(Row row) const noexcept;
    [[nodiscard]] bool factsTaken(Row row) const noexcept;

    /// The row with the played look, 0 for none.
    [[nodiscard]] Row SoundingRow() const noexcept { return lookRow(); }

    /// Whether the row has the played look.
    [[nodiscard]] bool isPlayed(Row row) const noexcept;

private:
    static constexpr base::Comfort kNoComfort{};

    using Record = ListRecord;

    [[nodiscard]] bool has(Row row) const noexcept { return row > 0 && row <= ListCount(); }

    [[nodiscard]] Record& at(Row row) { return rows_[static_cast<std::size_t>(row) - 1]; }

    [[nodiscard]] const Record& at(Row row) const {
        return rows_[static_cast<std::size_t>(row) - 1];
    }

    void setMark(Row row, bool marked) noexcept;
    void addToTotal(std::int64_t seconds);
    void erase(std::span<const Row> rows);
    [[nodiscard]] RemovedRows take(std::span<const Row> rows);
    void keep(RemovedRows removed);
    void selectBeside(Row selected, std::span<const Row> removed);
    void makeRoom(std::span<const Row> places);
    void raisePlay(Row row) const;
    void markRange(Row first, Row last);

    [[nodiscard]] Row lookRow() const noexcept { return soundingRow_.value_or(playedIndex_); }

    [[nodiscard]] Row movedMark(Row mark, Row from, Row to) const;
    void showRow(Row row) const;

    template <typename Tell>
    void tell(Tell observerCall) const {
        for (ListObserver* const observer : observers_) {
            observerCall(*observer);
        }
    }

    std::vector<Record> rows_;
    std::vector<ListObserver*> observers_;
    ListEvents* events_ = nullptr;
    const base::Comfort* comfort_ = &kNoComfort;
    ListUndo* history_ = nullptr;
    std::uint64_t starts_ = 0;       // of rows, and ends of what sounded
    Row playedIndex_ = 0;            // started last from the list
    std::optional<Row> soundingRow_; // has the played look; without one the row above has
    Row selectionAnchor_ = 0;
    Row markedCount_ = 0; // spares a walk over all rows when only the selected one is marked
    std::int32_t totalSeconds_ = 0;
    bool multiActive_ = false;

    // A deliberate oddity: never cleared, unless `Comfort::restartsEachTime` says otherwise. So
    // only the first restart of the played row in a session reaches the player by a double click;
    // later ones end in `PlayedAgain`, which nobody hears.
    bool replayUsed_ = false;
};

} // namespace tovik::playlist
