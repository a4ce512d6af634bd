// SPDX-License-Identifier: GPL-3.0-or-later
// What mouse and keys do to a list.
#include "ui/qt/KeyCodes.h"
#include "ui/qt/ListAccess.h"
#include "ui/qt/ListWidget.h"

#include <algorithm>

namespace tovik::ui {

namespace {

bool chooseMore(const Modifiers& modifiers) {
    return modifiers.shift || modifiers.control;
}

/// As on the whole desktop.
bool asksForMenu(const QKeyEvent& event) {
    return event.key() == Qt::Key_Menu ||
           (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

} // namespace

void ListWidget::mousePressEvent(QMouseEvent* event) {
    const int y = event->position().toPoint().y();
    const auto row = rowAt(y);
    const bool left = event->button() == Qt::LeftButton;
    pressedNowhere_ = !row;
    endDrag();
    if (!row) {
        return;
    }
    const Modifiers modifiers = modifiersOf(event->modifiers());
    // A press with another button keeps a selection that it hits, for whatever asks about it.
    if (left || !model_.selected(*row)) {
        choose(*row, modifiers);
    }
    if (!left) {
        dispatcher_.run([&] { input_.contextRow(*row); });
    } else if (!chooseMore(modifiers) && input_.movesRows()) {
        drag_.press(*row, y);
    }
}

void ListWidget::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() != Qt::LeftButton || chooseMore(modifiersOf(event->modifiers()))) {
        endDrag();
    } else if (drag_.row()) {
        drag(event->position().toPoint().y());
    }
}

void ListWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton && pressedNowhere_ &&
        !rowAt(event->position().toPoint().y())) {
        dispatcher_.run([&] { input_.contextNowhere(); });
    }
    if (event->button() != Qt::LeftButton || !drag_.row()) {
        return;
    }
    if (drag_.target()) {
        drag(event->position().toPoint().y());
    }
    const RowDrag dragged = drag_;
    endDrag();
    if (const auto target = dragged.target()) {
        dispatcher_.run([&] { input_.moveRow(*dragged.row(), *target); });
        announceRow(*this);
    }
}

void ListWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    const auto row = rowAt(event->position().toPoint().y());
    if (row && event->button() == Qt::LeftButton && !chooseMore(modifiersOf(event->modifiers()))) {
        startRow(*row);
    }
}

void ListWidget::startRow(std::size_t row) {
    dispatcher_.run([&] { input_.activateRow(row); });
}

void ListWidget::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    announceRow(*this);
}

void ListWidget::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    hold({});
    endDrag();
}

void ListWidget::hold(Modifiers modifiers) {
    if (modifiers != held_) {
        held_ = modifiers;
        dispatcher_.run([&] { input_.holdModifiers(modifiers); });
    }
}

void ListWidget::keyReleaseEvent(QKeyEvent* event) {
    hold({});
    event->ignore();
}

void ListWidget::keyPressEvent(QKeyEvent* event) {
    if (claimed_ && claimed_(keyEventOf(*event))) {
        event->ignore();
        return;
    }
    const auto cursor = cursorRow();
    const bool alt = event->modifiers().testFlag(Qt::AltModifier);
    const int key = event->key();
    if (key == Qt::Key_Escape && drag_.target()) {
        endDrag();
    } else if (model_.rows() == 0) { // NOLINT(bugprone-branch-clone): before all that asks a row
        event->ignore();
    } else if (alt && (key == Qt::Key_Up || key == Qt::Key_Down) && input_.movesRows()) {
        shiftRow(key);
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        if (cursor) {
            dispatcher_.run([&] { input_.enterRow(*cursor); });
        }
    } else if (cursor && asksForMenu(*event)) {
        scrollToRow(*cursor);
        dispatcher_.run([&] { input_.contextByKey(*cursor); });
    } else if (key == Qt::Key_Delete) {
        bool used = false;
        dispatcher_.run([&] { used = input_.removeRows(); });
        event->setAccepted(used);
    } else if (targetOf(key, cursor)) {
        moveCursor(key, event->modifiers().testFlag(Qt::ShiftModifier));
    } else {
        event->ignore();
    }
    const Modifiers modifiers = modifiersOf(event->modifiers());
    hold(chooseMore(modifiers) ? modifiers : Modifiers{});
}

std::optional<std::size_t> ListWidget::targetOf(int key, std::optional<std::size_t> from) const {
    const auto last = static_cast<std::ptrdiff_t>(model_.rows()) - 1;
    const std::ptrdiff_t page = std::max(1, wholeRows() - 1);
    std::ptrdiff_t target = from ? static_cast<std::ptrdiff_t>(*from) : -1;
    switch (key) {
    case Qt::Key_Up:
        target -= 1;
        break;
    case Qt::Key_Down:
        target += 1;
        break;
    case Qt::Key_PageUp:
        target -= page;
        break;
    case Qt::Key_PageDown:
        target += page;
        break;
    case Qt::Key_Home:
        target = 0;
        break;
    case Qt::Key_End:
        target = last;
        break;
    default:
        return std::nullopt;
    }
    return static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(target, 0, last));
}

/// With Shift the row that the selection began at stays the chosen one: the far end moves.
void ListWidget::moveCursor(int key, bool extends) {
    const auto cursor = cursorRow();
    if (!extends || !cursor) {
        choose(*targetOf(key, cursor), {});
        return;
    }
    const bool goesOn = range_ && range_->from == *cursor && range_->end < model_.rows();
    const std::size_t end = *targetOf(key, goesOn ? range_->end : *cursor);
    choose(end, {.shift = true});
    range_ = Range{*cursor, end};
}

void ListWidget::shiftRow(int key) {
    const auto row = cursorRow();
    const bool up = key == Qt::Key_Up;
    if (row && (up ? *row > 0 : *row + 1 < model_.rows())) {
        dispatcher_.run([&] { input_.moveRow(*row, up ? *row - 1 : *row + 2); });
        announceRow(*this);
    }
}

void ListWidget::wheelEvent(QWheelEvent* event) {
    QAbstractScrollArea::wheelEvent(event);
    // At the end of the list the wheel must not turn to what the window does with it.
    event->accept();
}

void ListWidget::choose(std::size_t row, Modifiers modifiers) {
    range_.reset();
    scrollToRow(row);
    dispatcher_.run([&] { input_.selectRow(row, modifiers); });
    announceRow(*this);
}

} // namespace tovik::ui
