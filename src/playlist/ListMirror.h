// SPDX-License-Identifier: GPL-3.0-or-later
// The plain list of titles beside the playlist: the same rows, counted from 0, with a selection
// of its own. It keeps no titles. Interface thread.
#pragma once

#include "playlist/ListEvents.h"

#include <cstdint>
#include <span>
#include <string_view>

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

    /// The selected item; -1 for none. It stays with its entry when others are removed and is none
    /// when its own entry is.
    [[nodiscard]] std::int32_t ListIndex() const noexcept { return listIndex_; }

    /// Selects an item; a number outside the list selects none.
    void ListIndex(std::int32_t item) noexcept;

    /// An item's title; empty outside the list. Holds until the list changes.
    [[nodiscard]] std::string_view List(std::int32_t item) const noexcept;

private:
    void rowsRemoved(std::span<const Row> rows) override;
    void rowsCleared() override;

    stdSS& list_;
    std::int32_t listIndex_ = kNone;
};

} // namespace tovik::playlist
