// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps a list safe while the program runs, so that a crash loses no more than the last seconds.
// Interface thread; the file is written on a thread of its own.
#pragma once

#include "host/Clock.h"
#include "host/Paths.h"
#include "host/TimerFactory.h"
#include "playlist/ListEvents.h"
#include "playlist/ListWriter.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace tovik::playlist {

class stdSS;

/// Writes the list as "db/autosave.new.m3u" some time after its last change. The saved list itself
/// is left to the end of the program, which removes this one; a start that finds it takes it for
/// what a session that did not come to its end has left.
class ListKeeper final : private ListObserver {
public:
    /// From the last change to the write.
    static constexpr int kQuietMs = 5000;

    /// Whether the list of this session is kept at all. Asked each time before it is written.
    using Kept = std::function<bool()>;

    /// List, clock and paths must outlive the object.
    ListKeeper(stdSS& list, const host::Clock& clock, host::TimerFactory& timers,
               const host::Paths& paths, Kept kept);
    ~ListKeeper() override;
    ListKeeper(const ListKeeper&) = delete;
    ListKeeper& operator=(const ListKeeper&) = delete;

    /// As long as one lives the saved list is being read: rows that come are no change.
    class Loading {
    public:
        explicit Loading(ListKeeper& keeper) : keeper_(keeper) { keeper_.loading_ = true; }

        ~Loading() { keeper_.loading_ = false; }

        Loading(const Loading&) = delete;
        Loading& operator=(const Loading&) = delete;

    private:
        ListKeeper& keeper_;
    };

    /// The list goes its own way from now on: nothing is written any more, and what is being
    /// written is waited for.
    void end();

    /// The list was saved, or is not to be kept: what this session wrote, or took over from the
    /// one before, is of no more use. Raises what removing the file raises.
    void remove(bool saved);

    /// Waits until everything that was begun is on the disk.
    void wait() { writer_.wait(); }

private:
    void rowsInserted(Row first, Row count) override;
    void rowsRemoved(std::span<const Row> rows) override;
    void rowMoved(Row from, Row to) override;
    void rowsCleared() override;
    void rowChanged(Row row) override;

    void changed();
    void tick();

    stdSS& list_;
    const host::Clock& clock_;
    const host::Paths& paths_;
    Kept kept_;
    std::unique_ptr<host::Timer> timer_;
    std::int64_t lastChangeMs_ = 0;
    bool loading_ = false;
    bool ended_ = false;
    bool wrote_ = false;
    ListWriter writer_;
};

} // namespace tovik::playlist
