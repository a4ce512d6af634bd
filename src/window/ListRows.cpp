// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/ListRows.h"

#include "base/TimeText.h"
#include "playlist/ListUndo.h"

namespace tovik::window {

namespace {

using playlist::stdSS;

constexpr int kCtrlMask = 2;

/// Lists count from 1, widgets from 0.
playlist::Row numberOf(std::size_t row) {
    return static_cast<playlist::Row>(row) + 1;
}

} // namespace

std::size_t ListRows::rows() const {
    return static_cast<std::size_t>(list_.ListCount());
}

std::string ListRows::text(std::size_t row) const {
    return std::string(list_.text(numberOf(row), playlist::RowText::Title));
}

std::string ListRows::numberText(std::size_t row) const {
    return list_.numberText(numberOf(row));
}

std::string ListRows::timeText(std::size_t row) const {
    const playlist::Row number = numberOf(row);
    if (seen_) {
        seen_(number);
    }
    if (comfort_ != nullptr && comfort_->skipsUnplayable && list_.isUnplayable(number)) {
        return kUnplayableMark;
    }
    const std::int32_t seconds = list_.seconds(number);
    return comfort_ != nullptr && comfort_->showsOneFormOfTime && seconds > 0
               ? base::shortTime(seconds)
               : std::string(list_.text(number, playlist::RowText::TimeText));
}

std::optional<std::size_t> ListRows::current() const {
    return list_.SelectedIndex > 0
               ? std::optional(static_cast<std::size_t>(list_.SelectedIndex) - 1)
               : std::nullopt;
}

bool ListRows::selected(std::size_t row) const {
    return list_.isMarked(numberOf(row));
}

bool ListRows::marked(std::size_t row) const {
    return list_.isPlayed(numberOf(row));
}

void ListRows::selectRow(std::size_t row, ui::Modifiers modifiers) {
    holdModifiers(modifiers);
    if (list_.ModifierHeld) {
        list_.MS(numberOf(row));
    } else {
        list_.SelectIndex(numberOf(row));
    }
}

void ListRows::activateRow(std::size_t row) {
    list_.SilentMove = false;
    list_.StartRow(numberOf(row));
}

void ListRows::enterRow(std::size_t /*row*/) {
    if (list_.MultiActive()) {
        list_.NoMS();
    }
    list_.SilentMove = false;
    list_.StartRow(list_.SelectedIndex);
}

void ListRows::contextRow(std::size_t row) {
    list_.SelectedIndex = numberOf(row);
    contextNowhere();
}

void ListRows::contextNowhere() {
    popUp({});
}

void ListRows::contextByKey(std::size_t row) {
    list_.SelectedIndex = numberOf(row);
    popUp(place_ ? std::optional(place_(row)) : std::nullopt);
}

void ListRows::popUp(const std::optional<menus::MenuPlace>& place) {
    list_.ContextClick();
    if (menus_ != nullptr) {
        menus_->popUpFor({this, this, info_}, place);
    }
}

void ListRows::holdModifiers(ui::Modifiers modifiers) {
    list_.ModifierHeld = modifiers.shift || modifiers.control;
    list_.ModifierMask =
        (modifiers.shift ? stdSS::kShiftMask : 0) | (modifiers.control ? kCtrlMask : 0);
}

void ListRows::moveRow(std::size_t row, std::size_t before) {
    const playlist::ListUndo::Step step(list_);
    list_.MoveRow(numberOf(row), numberOf(before));
}

bool ListRows::removeRows() {
    const playlist::ListUndo::Step step(list_);
    if (list_.MultiActive()) {
        list_.MultiIzbris();
    } else {
        list_.Remove(list_.SelectedIndex);
    }
    return true;
}

} // namespace tovik::window
