// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/QuickListRows.h"

#include "window/ListRows.h"

namespace tovik::window {

std::size_t QuickListRows::rows() const {
    return static_cast<std::size_t>(mirror_.ListCount());
}

std::string QuickListRows::text(std::size_t row) const {
    return std::string(mirror_.List(static_cast<std::int32_t>(row)));
}

std::string QuickListRows::numberText(std::size_t row) const {
    const bool marks = comfort_ != nullptr && comfort_->skipsUnplayable &&
                       list_.isUnplayable(static_cast<playlist::Row>(row) + 1);
    return marks ? std::string(kUnplayableMark) + " " : std::string();
}

std::optional<std::size_t> QuickListRows::current() const {
    const std::int32_t item = mirror_.ListIndex();
    return item >= 0 ? std::optional(static_cast<std::size_t>(item)) : std::nullopt;
}

bool QuickListRows::selected(std::size_t row) const {
    return mirror_.ListIndex() == static_cast<std::int32_t>(row);
}

bool QuickListRows::marked(std::size_t row) const {
    return list_.isPlayed(static_cast<playlist::Row>(row) + 1);
}

void QuickListRows::selectRow(std::size_t row, ui::Modifiers /*modifiers*/) {
    mirror_.ListIndex(static_cast<std::int32_t>(row));
    list_.SelectIndex(static_cast<playlist::Row>(row) + 1);
}

void QuickListRows::activateRow(std::size_t row) {
    mirror_.ListIndex(static_cast<std::int32_t>(row));
    player_.List1_DblClick();
}

void QuickListRows::moveRow(std::size_t row, std::size_t before) {
    list_.MoveRow(static_cast<playlist::Row>(row) + 1, static_cast<playlist::Row>(before) + 1);
}

bool QuickListRows::removeRows() {
    list_.Remove(mirror_.ListIndex() + 1);
    return true;
}

void QuickListRows::contextRow(std::size_t /*row*/) {
    contextNowhere();
}

void QuickListRows::contextNowhere() {
    popUp({});
}

void QuickListRows::contextByKey(std::size_t row) {
    popUp(place_ ? std::optional(place_(row)) : std::nullopt);
}

void QuickListRows::popUp(const std::optional<menus::MenuPlace>& place) {
    if (menus_ != nullptr) {
        // What tells of a row goes by the playlist, which may have another one selected.
        const playlist::Row row = mirror_.ListIndex() + 1;
        if (row > 0 && row != list_.SelectedIndex) {
            list_.SelectIndex(row);
        }
        menus_->popUpFor({this, this}, place);
    }
}

} // namespace tovik::window
