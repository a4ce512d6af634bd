// SPDX-License-Identifier: GPL-3.0-or-later
// A row of a list that is dragged to another place. Interface thread.
#pragma once

#include <cstddef>
#include <optional>

namespace tovik::ui {

/// The part of a list that is seen. Pixels count from the view's top edge.
struct RowView {
    std::size_t rows = 0;  ///< of the whole list
    std::size_t first = 0; ///< the row at the top
    std::size_t shown = 0; ///< how many fit
    int pitch = 1;         ///< from one row to the next, in pixels
};

class RowDrag {
public:
    /// Pixels that the pointer must go before a press becomes a drag: a hand is never quite still.
    static constexpr int kStart = 4;

    struct Move {
        std::size_t row;
        std::size_t before; ///< the row that it is to stand in front of; one past the last: the end

        friend bool operator==(const Move&, const Move&) = default;
    };

    /// The button went down on a row.
    void press(std::size_t row, int y);

    /// The pointer moved, or the rows under it. The place in front of the row under the pointer is
    /// the target; outside the view it is the nearest edge of what is seen.
    void moveTo(int y, const RowView& view);

    /// Ends it. What is to be moved; nothing where it never became a drag.
    std::optional<Move> release();

    void cancel() { *this = {}; }

    /// The button is down on a row.
    [[nodiscard]] std::optional<std::size_t> row() const noexcept { return row_; }

    /// The row in front of which the dragged one would come now; nothing before it is a drag.
    [[nodiscard]] std::optional<std::size_t> target() const noexcept { return target_; }

    /// Which way the list is to scroll under a pointer that left the view: -1 up, 1 down, or 0.
    [[nodiscard]] int scrolls(const RowView& view) const;

    /// Where the pointer was last.
    [[nodiscard]] int y() const noexcept { return y_; }

private:
    std::optional<std::size_t> row_;
    std::optional<std::size_t> target_;
    int pressedAt_ = 0;
    int y_ = 0;
};

} // namespace tovik::ui
