// SPDX-License-Identifier: GPL-3.0-or-later
// What a list paints and how it scrolls when its rows change.
#include "ui/qt/ListWidget.h"

#include <algorithm>
#include <QScrollBar>
#include <QTimerEvent>
#include <utility>

namespace tovik::ui {

namespace {

constexpr int kSoonMs = 50;

} // namespace

void ListWidget::refresh() {
    fitScrollBar();
    viewport()->update();
}

void ListWidget::rowsInserted(std::size_t first) {
    // A long read gives way to the window again and again: a list that was painted anew each time
    // would make it wait for the painting.
    newFrom_ = std::min(newFrom_.value_or(first), first);
    if (!soon_.isActive()) {
        soon_.start(kSoonMs, this);
    }
}

void ListWidget::rowsRemoved(std::size_t first) {
    endDrag();
    fitScrollBar();
    updateFrom(first);
}

void ListWidget::rowMoved(std::size_t from, std::size_t to) {
    endDrag();
    looksChanged(std::min(from, to), std::max(from, to));
}

void ListWidget::rowChanged(std::size_t row) {
    viewport()->update(placeOf(row));
}

void ListWidget::looksChanged(std::size_t first, std::size_t last) {
    const std::size_t top = firstRow();
    const std::size_t bottom = top + static_cast<std::size_t>(wholeRows()) - 1;
    const std::size_t from = std::max(first > 0 ? first - 1 : 0, top);
    const std::size_t to = std::min(last + 1, bottom);
    if (from <= to) {
        viewport()->update(placeOf(from) | placeOf(to));
    }
}

void ListWidget::updateFrom(std::size_t row) {
    const std::size_t edge = row > 0 ? row - 1 : 0;
    const int top = edge > firstRow() ? placeOf(edge).top() : 0;
    if (edge < firstRow() + static_cast<std::size_t>(wholeRows())) {
        viewport()->update(0, top, viewport()->width(), viewport()->height() - top);
    }
}

void ListWidget::timerEvent(QTimerEvent* event) {
    if (event->timerId() == soon_.timerId()) {
        soon_.stop();
        fitScrollBar();
        if (const auto first = std::exchange(newFrom_, std::nullopt)) {
            updateFrom(*first);
        }
    } else if (event->timerId() == edge_.timerId()) {
        QScrollBar* const bar = verticalScrollBar();
        bar->setValue(bar->value() + drag_.scrolls(rowView()) * rowHeight());
        drag(drag_.y());
    } else {
        QAbstractScrollArea::timerEvent(event);
    }
}

void ListWidget::scrollToRow(std::size_t row) {
    if (!isVisible()) {
        // What is hidden has not got its size yet.
        wanted_ = row;
        return;
    }
    if (row >= model_.rows()) {
        return;
    }
    fitScrollBar();
    const auto shown = static_cast<std::size_t>(wholeRows());
    if (row < firstRow()) {
        verticalScrollBar()->setValue(static_cast<int>(row) * rowHeight());
    } else if (row >= firstRow() + shown) {
        verticalScrollBar()->setValue(static_cast<int>(row + 1 - shown) * rowHeight());
    }
}

void ListWidget::fitScrollBar() {
    const int visible = wholeRows() * rowHeight();
    const auto all = static_cast<int>(model_.rows()) * rowHeight();
    QScrollBar* const bar = verticalScrollBar();
    bar->setSingleStep(rowHeight());
    // A page leaves one row of what was seen.
    bar->setPageStep(std::max(visible - rowHeight(), rowHeight()));
    bar->setRange(0, std::max(0, all - visible));
}

} // namespace tovik::ui
