// SPDX-License-Identifier: GPL-3.0-or-later
// What was done to a list, step by step, so that it can be taken back. Interface thread.
#pragma once

#include "playlist/ListRecord.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <variant>

namespace tovik::playlist {

class stdSS;

/// Knows of rows that came, went or moved, and of nothing else. Works while
/// `Comfort::keepsRemovedRows` says so; what happens otherwise makes it forget. Of a list of any
/// length a step costs no more than the change itself: rows that go are moved here.
class ListUndo final : private ListObserver {
public:
    /// What is kept: as many steps, and as many removed rows in all of them together. The last step
    /// is kept however long it is.
    static constexpr std::size_t kMostSteps = 100;
    static constexpr std::size_t kMostRows = 500'000;

    /// The list outlives the object; it has one history at most.
    explicit ListUndo(stdSS& list);
    ~ListUndo() override;
    ListUndo(const ListUndo&) = delete;
    ListUndo& operator=(const ListUndo&) = delete;

    /// Whatever is done to the list as long as one lives is one step. Of one in another the inner
    /// one counts: a command in the middle of a long job has a step of its own. Nothing for a list
    /// without a history.
    class Step {
    public:
        explicit Step(const stdSS& list);
        ~Step();
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;

    private:
        ListUndo* undo_;
        std::uint64_t outer_ = 0;
    };

    [[nodiscard]] bool canUndo() const noexcept { return !changes_.empty(); }

    /// Takes the last step back. Rows that come back are selected as they were.
    void undo();

    /// Forgets everything, as behind a list that was read at the start.
    void forget();

    /// For the list, which gives away here what it removes.
    void keep(RemovedRows removed);

private:
    struct Inserted {
        Row first = 0;
        Row count = 0;
    };

    struct Moved {
        Row from = 0;
        Row to = 0;
    };

    struct Change {
        std::uint64_t step = 0; ///< 0: alone
        std::variant<Inserted, Moved, RemovedRows> what;
    };

    void rowsInserted(Row first, Row count) override;
    void rowsRemoved(std::span<const Row> rows) override;
    void rowMoved(Row from, Row to) override;
    void rowsCleared() override;

    [[nodiscard]] bool listens() const;
    void note(Change change);
    void dropOldest();
    void takeBack(Change change);

    stdSS& list_;
    std::deque<Change> changes_; ///< the last one is the newest
    std::size_t keptRows_ = 0;
    std::size_t steps_ = 0;      ///< among the changes
    std::uint64_t current_ = 0;  ///< the step that lives; 0: none
    std::uint64_t lastStep_ = 0; ///< the newest number that was given
    bool undoing_ = false;
};

} // namespace tovik::playlist
