// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/ListFacts.h"

#include "base/TimeText.h"
#include "playlist/FileNames.h"

#include <algorithm>
#include <utility>

namespace tovik::player {

using playlist::Row;
using playlist::RowText;
using tags::FactsDesk;

namespace {

/// How many rows are looked at in one go, asked for or not.
constexpr Row kRowsAtOnce = 2000;

} // namespace

ListFacts::ListFacts(const Core& core, const host::MessagePump& pump, tags::FactsDesk& desk)
    : core_(core), pump_(pump), desk_(desk), look_(core_.timers.makeTimer([this] { look(); })) {
    look_->setInterval(kLookMs);
    core_.lists.stdSS.addObserver(*this);
    taking_ = desk_.addTaker(
        [this](const std::string& path, const tags::FileFacts& facts) { take(path, facts); });
}

ListFacts::~ListFacts() {
    core_.lists.stdSS.removeObserver(*this);
}

void ListFacts::begin() {
    begun_ = true;
    goOnFrom(1);
}

void ListFacts::follow() {
    goOnFrom(1);
}

void ListFacts::goOnFrom(Row row) {
    next_ = std::min(next_, row);
    askOnLater();
}

void ListFacts::rowsInserted(Row first, Row /*count*/) {
    goOnFrom(first);
}

void ListFacts::rowsRemoved(std::span<const Row> rows) {
    goOnFrom(rows.front());
}

void ListFacts::rowMoved(Row from, Row to) {
    goOnFrom(std::min(from, to));
}

void ListFacts::rowsCleared() {
    goOnFrom(1);
}

bool ListFacts::wanted(Row row) const {
    const playlist::stdSS& list = core_.lists.stdSS;
    if (list.factsTaken(row)) {
        return false;
    }
    const std::string_view path = list.text(row, RowText::FileName);
    return (list.seconds(row) <= 0 ||
            playlist::isNamedAfter(list.text(row, RowText::Title), path)) &&
           playlist::isOnDisk(path);
}

void ListFacts::ask(Row row, FactsDesk::Urgency urgency) {
    const std::string path(core_.lists.stdSS.text(row, RowText::FileName));
    std::vector<Row>& rows = asked_[path];
    if (std::ranges::find(rows, row) == rows.end()) {
        rows.push_back(row);
    }
    desk_.ask(path, urgency);
}

void ListFacts::rowSeen(Row row) {
    if (begun_ && core_.state.comfort.readsListAhead && wanted(row)) {
        ask(row, FactsDesk::Urgency::first);
    }
}

/// A list may change while it is being read or gone through by others: they come to their end
/// first.
void ListFacts::askOnLater() {
    if (begun_ && !later_ && !look_->enabled() && core_.state.comfort.readsListAhead) {
        later_ = true;
        desk_.callLater([this, alive = std::weak_ptr(taking_)] {
            if (alive.expired()) {
                return;
            }
            later_ = false;
            askOn();
        });
    }
}

void ListFacts::look() {
    if (!pump_.stepping()) {
        look_->setEnabled(false);
        askOn();
    }
}

void ListFacts::askOn() {
    if (!core_.state.comfort.readsListAhead || look_->enabled()) {
        return;
    }
    if (pump_.stepping()) {
        look_->setEnabled(true);
        return;
    }
    const Row count = core_.lists.stdSS.ListCount();
    const Row last = std::min<Row>(count, next_ + kRowsAtOnce - 1);
    while (next_ <= last && desk_.waiting() < kAhead) {
        const Row row = next_++;
        if (wanted(row)) {
            ask(row, FactsDesk::Urgency::last);
        }
    }
    if (next_ <= count && desk_.waiting() < kAhead) {
        askOnLater();
    }
}

void ListFacts::take(const std::string& path, const tags::FileFacts& facts) {
    const auto asked = asked_.find(path);
    if (asked == asked_.end()) {
        return;
    }
    const std::vector<Row> rows = std::move(asked->second);
    asked_.erase(asked);
    for (const Row row : rows) {
        // Where the list has changed since, what changed is gone through again.
        if (core_.lists.stdSS.text(row, RowText::FileName) == path) {
            apply(row, facts);
        }
    }
    askOn();
}

void ListFacts::apply(Row row, const tags::FileFacts& facts) {
    playlist::stdSS& list = core_.lists.stdSS;
    list.setFactsTaken(row);
    if (facts.nothing && core_.state.comfort.skipsUnplayable) {
        list.setUnplayable(row, true);
    }
    const std::string title = tags::listTitle(facts);
    if (!title.empty() &&
        playlist::isNamedAfter(list.text(row, RowText::Title), list.text(row, RowText::FileName))) {
        list.RefreshTitle(row, title);
    }
    if (facts.seconds > 0 && list.seconds(row) <= 0) {
        list.RefreshTime(row, facts.seconds, base::shortTime(facts.seconds));
    }
}

} // namespace tovik::player
