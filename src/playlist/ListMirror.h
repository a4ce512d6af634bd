// SPDX-License-Identifier: GPL-3.0-or-later
// The plain list of titles beside the playlist: the same rows, counted from 0, with a selection
// of its own. It keeps no titles. Interface thread.
#pragma once

#include "playlist/ListEvents.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <utility>

namespace tovik::playlist {

class stdSS;

/// Item n shows row n + 1 of the list.
class ListMirror final : private ListObserver {
public:
    static constexpr std::int32_t kNone = -1;

    /// The list must outlive the mirror.
    explicit ListMirror(stdSS& list);
    ~ListMirror() override;
    ListMirror(const ListMirror&) = delete;
    ListMirror& operator=(const ListMirror&) = delete;

    [[nodiscard]] std::int32_t ListCount() const noexcept;

    /// Hears of an item that was selected or is so now; it must not change the list.
    using ItemWatch = std::function<void(std::int32_t item)>;

    /// One watch at a time; it hears of what is selected anew, not of what the list's own changes
    /// do to the number. An empty one hears nothing.
    void watchSelection(ItemWatch watch) { watch_ = std::move(watch); }

    /// The selected item; -1 for none. It stays with its entry when others go or are moved, and is
    /// none when its own entry goes.
    [[nodiscard]] std::int32_t ListIndex() const noexcept { return listIndex_; }

    /// Selects an item; a number outside the list selects none.
    void ListIndex(std::int32_t item);

    /// An item's title; empty outside the list. Holds until the list changes.
    [[nodiscard]] std::string_view List(std::int32_t item) const noexcept;

private:
    void rowsInserted(Row first, Row count) override;
    void rowsRemoved(std::span<const Row> rows) override;
    void rowMoved(Row from, Row to) override;
    void rowsCleared() override;

    stdSS& list_;
    std::int32_t listIndex_ = kNone;
    ItemWatch watch_;
};

} // namespace tovik::playlist
