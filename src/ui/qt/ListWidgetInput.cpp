// SPDX-License-Identifier: GPL-3.0-or-later
// What mouse and keys do to a list.
#include "ui/qt/KeyCodes.h"
#include "ui/qt/ListAccess.h"
#include "ui/qt/ListWidget.h"

#include <algorithm>

namespace tovik::ui {

void ListWidget::mousePressEvent(QMouseEvent* event) {
    const auto row = rowAt(event->position().toPoint().y());
    if (!row) {
        return;
    }
    const bool left = event->button() == Qt::LeftButton;
    // A press with another button keeps a selection that it hits, for whatever asks about it.
    if (left || !model_.selected(*row)) {
        choose(*row, modifiersOf(event->modifiers()));
    }
    if (!left) {
        call([&] { input_.contextRow(*row); });
    }
}

void ListWidget::mouseMoveEvent(QMouseEvent* /*event*/) {}

void ListWidget::mouseReleaseEvent(QMouseEvent* /*event*/) {}

void ListWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    const auto row = rowAt(event->position().toPoint().y());
    const auto modifiers = modifiersOf(event->modifiers());
    if (row && event->button() == Qt::LeftButton && !modifiers.shift && !modifiers.control) {
        startRow(*row);
    }
}

void ListWidget::startRow(std::size_t row) {
    call([&] { input_.activateRow(row); });
}

void ListWidget::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    announceRow(*this);
}

void ListWidget::keyPressEvent(QKeyEvent* event) {
    const auto rows = static_cast<std::ptrdiff_t>(model_.rows());
    if (rows == 0) {
        event->ignore();
        return;
    }
    const auto cursor = cursorRow();
    const std::ptrdiff_t page = std::max(1, viewport()->height() / rowHeight() - 1);
    std::ptrdiff_t target = cursor ? static_cast<std::ptrdiff_t>(*cursor) : -1;
    switch (event->key()) {
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
        target = rows - 1;
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (cursor) {
            call([&] { input_.enterRow(*cursor); });
        }
        return;
    case Qt::Key_Delete: {
        bool used = false;
        call([&] { used = input_.removeRows(); });
        event->setAccepted(used);
        return;
    }
    default:
        event->ignore();
        return;
    }
    choose(static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(target, 0, rows - 1)), {});
}

void ListWidget::wheelEvent(QWheelEvent* event) {
    QAbstractScrollArea::wheelEvent(event);
    // At the end of the list the wheel must not turn to what the window does with it.
    event->accept();
}

void ListWidget::choose(std::size_t row, Modifiers modifiers) {
    scrollToRow(row);
    call([&] { input_.selectRow(row, modifiers); });
    announceRow(*this);
}

void ListWidget::call(const std::function<void()>& operation) {
    dispatcher_.run(operation);
    refresh();
}

} // namespace tovik::ui
