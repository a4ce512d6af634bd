// SPDX-License-Identifier: GPL-3.0-or-later
// From a list to the widget that shows it. Interface thread.
#pragma once

#include "playlist/stdSS.h"
#include "ui/qt/ListWidget.h"

namespace tovik::app {

/// Tells a list widget what changed in its list.
class ListWatch final : private playlist::ListObserver {
public:
    /// Both must outlive it. `follows`: the widget scrolls to what the list wants to be seen.
    ListWatch(playlist::stdSS& list, ui::ListWidget& widget, bool follows)
        : list_(list), widget_(widget), follows_(follows) {
        list_.addObserver(*this);
    }

    ~ListWatch() override { list_.removeObserver(*this); }

    ListWatch(const ListWatch&) = delete;
    ListWatch& operator=(const ListWatch&) = delete;

private:
    using Row = playlist::Row;

    /// Lists count from 1, widgets from 0.
    [[nodiscard]] static std::size_t placeOf(Row row) { return static_cast<std::size_t>(row) - 1; }

    void rowsInserted(Row first, Row /*count*/) override { widget_.rowsInserted(placeOf(first)); }

    void rowsRemoved(std::span<const Row> rows) override {
        widget_.rowsRemoved(placeOf(rows.front()));
    }

    void rowMoved(Row from, Row to) override { widget_.rowMoved(placeOf(from), placeOf(to)); }

    void rowsCleared() override { widget_.rowsRemoved(0); }

    void rowChanged(Row row) override { widget_.rowChanged(placeOf(row)); }

    void looksChanged(Row first, Row last) override {
        widget_.looksChanged(placeOf(first), placeOf(last));
    }

    void showRow(Row row) override {
        if (follows_ && row > 0) {
            widget_.scrollToRow(placeOf(row));
        }
    }

    playlist::stdSS& list_;
    ui::ListWidget& widget_;
    bool follows_;
};

} // namespace tovik::app
