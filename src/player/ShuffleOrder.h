// SPDX-License-Identifier: GPL-3.0-or-later
// Which rows the shuffle has played, and in which order: each once before any comes again, and a
// way back. Interface thread.
#pragma once

#include "host/RandomNumbers.h"
#include "playlist/ListEvents.h"
#include "playlist/stdSS.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::player {

/// A round is over when every row has had its turn. Rows keep their places in the order when others
/// come, go or move.
class ShuffleOrder final : private playlist::ListObserver {
public:
    using Row = playlist::Row;

    /// Both outlive the object.
    ShuffleOrder(playlist::stdSS& list, host::RandomNumbers& random);
    ~ShuffleOrder() override;
    ShuffleOrder(const ShuffleOrder&) = delete;
    ShuffleOrder& operator=(const ShuffleOrder&) = delete;

    /// The row that follows: on the way that was gone back, or any that had no turn in this round.
    /// Behind a round the next one begins, if it may, and not with the row before. None for an
    /// empty list and behind the last round.
    std::optional<Row> next(bool mayBeginAnew);

    /// What `next` will find, as long as nothing changes.
    [[nodiscard]] std::optional<Row> upcoming(bool mayBeginAnew);

    /// Whether `next` would find one.
    [[nodiscard]] bool hasNext(bool mayBeginAnew) const;

    /// The row before; none at the beginning.
    std::optional<Row> previous();

    /// A row plays. One that was started otherwise has had its turn by that.
    void noteStarted(Row row);

    void clear();

    /// The whole order as text, for the next session.
    [[nodiscard]] std::string text() const;

    /// Takes such a text for the list as it is. One that does not fit it is left.
    void restore(std::string_view text);

private:
    void rowsInserted(Row first, Row count) override;
    void rowsPutBack(std::span<const Row> rows) override;
    void rowsRemoved(std::span<const Row> rows) override;
    void rowMoved(Row from, Row to) override;

    void rowsCleared() override { clear(); }

    void beginRound();

    [[nodiscard]] bool has(Row row) const;
    [[nodiscard]] std::size_t waiting() const;
    [[nodiscard]] std::optional<Row> current() const;
    [[nodiscard]] Row draw() const;
    void append(Row row);
    void markPlayed(Row row);

    playlist::stdSS& list_;
    host::RandomNumbers& random_;
    std::vector<Row> way_;     ///< rows in the order in which they were played
    std::optional<Row> drawn_; ///< will be the next one
    std::size_t place_ = 0;    ///< on the way, from 1; 0: nothing was played
    std::vector<bool> played_; ///< by row less one: it had its turn in this round
    std::size_t playedRows_ = 0;
};

} // namespace tovik::player
