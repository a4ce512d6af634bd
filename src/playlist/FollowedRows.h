// SPDX-License-Identifier: GPL-3.0-or-later
// Rows of a list, wherever they go. Interface thread.
#pragma once

#include "playlist/ListEvents.h"

#include <span>
#include <vector>

namespace tovik::playlist {

class stdSS;

/// Knows which rows they are by now while others come, go and move.
class FollowedRows final : private ListObserver {
public:
    /// All rows that are there. The list outlives the object.
    explicit FollowedRows(stdSS& list);
    ~FollowedRows() override;
    FollowedRows(const FollowedRows&) = delete;
    FollowedRows& operator=(const FollowedRows&) = delete;

    /// Those that are left, ascending.
    [[nodiscard]] const std::vector<Row>& rows() const noexcept { return rows_; }

private:
    void rowsInserted(Row first, Row count) override;
    void rowsRemoved(std::span<const Row> rows) override;
    void rowMoved(Row from, Row to) override;
    void rowsCleared() override;

    stdSS& list_;
    std::vector<Row> rows_;
};

} // namespace tovik::playlist
