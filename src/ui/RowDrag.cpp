// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/RowDrag.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tovik::ui {

void RowDrag::press(std::size_t row, int y) {
    *this = {};
    row_ = row;
    pressedAt_ = y;
    y_ = y;
}

void RowDrag::moveTo(int y, const RowView& view) {
    if (!row_) {
        return;
    }
    y_ = y;
    if (!target_ && std::abs(y - pressedAt_) < kStart) {
        return;
    }
    const auto slot = static_cast<std::size_t>(std::max(y, 0) / std::max(view.pitch, 1));
    target_ = std::min(view.first + std::min(slot, view.shown), view.rows);
}

std::optional<RowDrag::Move> RowDrag::release() {
    const RowDrag ended = std::exchange(*this, {});
    return ended.row_ && ended.target_ ? std::optional(Move{*ended.row_, *ended.target_})
                                       : std::nullopt;
}

int RowDrag::scrolls(const RowView& view) const {
    if (!target_) {
        return 0;
    }
    if (y_ < 0) {
        return view.first > 0 ? -1 : 0;
    }
    const bool below = y_ >= static_cast<int>(view.shown) * view.pitch;
    return below && view.first + view.shown < view.rows ? 1 : 0;
}

} // namespace tovik::ui
