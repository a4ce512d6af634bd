// SPDX-License-Identifier: GPL-3.0-or-later
// Brings what files say of themselves into the rows of the list: those in sight first, then the
// rest of it. Interface thread.
#pragma once

#include "host/MessagePump.h"
#include "player/Core.h"
#include "tags/FactsDesk.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace tovik::player {

/// A row that is named after its file gets a title, one without a length gets that; what a list
/// told of a row stays. Nothing happens without `Comfort::readsListAhead`.
class ListFacts final : private playlist::ListObserver {
public:
    /// All outlive the object. Nothing is read before `begin`. While a step of the pump is being
    /// taken only rows in sight are: a list that is being loaded would wait a little for each
    /// answer.
    ListFacts(const Core& core, const host::MessagePump& pump, tags::FactsDesk& desk);
    ~ListFacts() override;
    ListFacts(const ListFacts&) = delete;
    ListFacts& operator=(const ListFacts&) = delete;

    /// From now on the list is read, as soon as the program has time for it.
    void begin();

    /// A row is being drawn: it has its turn before those that are not.
    void rowSeen(playlist::Row row);

    /// The record of comfort changed: the list is gone through once more.
    void follow();

    /// How many rows are asked for ahead: the reader has something to do while the interface thread
    /// is busy, and what comes in at once is still a matter of a few milliseconds.
    static constexpr std::size_t kAhead = 200;

    /// How often it looks whether a long loop has come to its end.
    static constexpr int kLookMs = 250;

private:
    void rowsInserted(playlist::Row first, playlist::Row count) override;
    void rowsRemoved(std::span<const playlist::Row> rows) override;
    void rowMoved(playlist::Row from, playlist::Row to) override;
    void rowsCleared() override;

    void goOnFrom(playlist::Row row);
    [[nodiscard]] bool wanted(playlist::Row row) const;
    void ask(playlist::Row row, tags::FactsDesk::Urgency urgency);
    void askOn();
    void askOnLater();
    void look();
    void take(const std::string& path, const tags::FileFacts& facts);
    void apply(playlist::Row row, const tags::FileFacts& facts);

    const Core& core_;
    const host::MessagePump& pump_;
    tags::FactsDesk& desk_;
    std::unique_ptr<host::Timer> look_; ///< ticks while a loop is being waited for
    /// The rows of a file when it was asked for.
    std::unordered_map<std::string, std::vector<playlist::Row>> asked_;
    playlist::Row next_ = 1; ///< the first that was not looked at
    bool begun_ = false;
    bool later_ = false; ///< a call is on its way
    tags::FactsDesk::Taking taking_;
};

} // namespace tovik::player
