// SPDX-License-Identifier: GPL-3.0-or-later
// A number for each row of a list, which stays the entry's own while it is in the list. Interface
// thread.
#pragma once

#include "playlist/stdSS.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace tovik::desktop {

class RowIds final : private playlist::ListObserver {
public:
    using Id = std::uint64_t;

    /// The list outlives the object.
    explicit RowIds(playlist::stdSS& list);
    ~RowIds() override;
    RowIds(const RowIds&) = delete;
    RowIds& operator=(const RowIds&) = delete;

    /// From 1 on, never given twice; 0 for a row that is not there.
    [[nodiscard]] Id idOf(playlist::Row row) const;

    /// 0 for a number that no row has.
    [[nodiscard]] playlist::Row rowOf(Id id) const;

    /// Called when the rows or their order changed, or another one may be selected.
    std::function<void()> changed{};

    /// Called when the words of that row changed.
    std::function<void(Id row)> wordsChanged{};

private:
    void rowsInserted(playlist::Row first, playlist::Row count) override;
    void rowsPutBack(std::span<const playlist::Row> rows) override;
    void rowsRemoved(std::span<const playlist::Row> rows) override;
    void rowMoved(playlist::Row from, playlist::Row to) override;
    void rowsCleared() override;
    void rowChanged(playlist::Row row) override;

    void looksChanged(playlist::Row /*first*/, playlist::Row /*last*/) override { tell(); }

    void tell() const;

    playlist::stdSS& list_;
    std::vector<Id> ids_;
    Id last_ = 0;
};

} // namespace tovik::desktop
