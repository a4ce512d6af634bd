// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/ListKeeper.h"

#include "base/FileErrors.h"
#include "playlist/M3uList.h"
#include "playlist/stdSS.h"

#include <filesystem>
#include <utility>

namespace tovik::playlist {

ListKeeper::ListKeeper(stdSS& list, const host::Clock& clock, host::TimerFactory& timers,
                       const host::Paths& paths, Kept kept)
    : list_(list), clock_(clock), paths_(paths), kept_(std::move(kept)),
      timer_(timers.makeTimer([this] { tick(); })) {
    list_.addObserver(*this);
}

ListKeeper::~ListKeeper() {
    list_.removeObserver(*this);
}

void ListKeeper::end() {
    ended_ = true;
    timer_->setEnabled(false);
    writer_.wait();
}

void ListKeeper::remove(bool saved) {
    if (saved || wrote_) {
        std::error_code failure; // where it stays, the next start takes it for newer than it is
        std::filesystem::remove(paths_.of(host::DataItem::UnsavedList), failure);
        base::raiseFailure(failure);
    }
}

void ListKeeper::rowsInserted(Row /*first*/, Row /*count*/) {
    if (!loading_) {
        changed();
    }
}

void ListKeeper::rowsRemoved(std::span<const Row> /*rows*/) {
    changed();
}

void ListKeeper::rowMoved(Row /*from*/, Row /*to*/) {
    changed();
}

void ListKeeper::rowsCleared() {
    changed();
}

void ListKeeper::rowChanged(Row /*row*/) {
    changed();
}

void ListKeeper::changed() {
    if (ended_) {
        return;
    }
    // The timer is not set anew each time: a folder may bring a hundred thousand rows.
    lastChangeMs_ = clock_.monotonicMs();
    if (!timer_->enabled()) {
        timer_->setInterval(kQuietMs);
        timer_->setEnabled(true);
    }
}

void ListKeeper::tick() {
    const std::int64_t quietMs = clock_.monotonicMs() - lastChangeMs_;
    if (quietMs < kQuietMs) {
        timer_->setInterval(static_cast<int>(kQuietMs - quietMs));
        return;
    }
    timer_->setEnabled(false);
    if (kept_()) {
        wrote_ = true;
        writer_.write(paths_.of(host::DataItem::UnsavedList), m3uText(list_));
    }
}

} // namespace tovik::playlist
