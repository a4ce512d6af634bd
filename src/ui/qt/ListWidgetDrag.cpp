// SPDX-License-Identifier: GPL-3.0-or-later
// Rows that are dragged to another place, and files that are dropped.
#include "ui/qt/DroppedFiles.h"
#include "ui/qt/ListWidget.h"

#include <algorithm>
#include <QDropEvent>
#include <QMimeData>
#include <QScrollBar>

namespace tovik::ui {

namespace {

constexpr int kEdgeMs = 50;
constexpr int kMarker = 2;

} // namespace

RowView ListWidget::rowView() const {
    return {.rows = model_.rows(),
            .first = firstRow(),
            .shown = static_cast<std::size_t>(wholeRows()),
            .pitch = rowHeight()};
}

QRect ListWidget::markerPlace() const {
    const auto target = drag_.target();
    if (!target) {
        return {};
    }
    return {0, placeOf(*target).top() - kMarker / 2, viewport()->width(), kMarker};
}

void ListWidget::drag(int y) {
    const QRect before = markerPlace();
    const RowView view = rowView();
    drag_.moveTo(y, view);
    if (const QRect now = markerPlace(); now != before) {
        viewport()->update(before);
        viewport()->update(now);
    }
    if (drag_.scrolls(view) == 0) {
        edge_.stop();
    } else if (!edge_.isActive()) {
        edge_.start(kEdgeMs, this);
    }
}

void ListWidget::endDrag() {
    edge_.stop();
    const QRect marker = markerPlace();
    drag_.cancel();
    if (!marker.isEmpty()) {
        viewport()->update(marker);
    }
}

void ListWidget::hideEvent(QHideEvent* event) {
    QAbstractScrollArea::hideEvent(event);
    endDrag();
}

void ListWidget::takeFiles(FileDrop take) {
    take_ = std::move(take);
    setAcceptDrops(static_cast<bool>(take_));
}

void ListWidget::showDropping(bool dropping) {
    if (dropping != dropping_) {
        dropping_ = dropping;
        viewport()->update();
    }
}

void ListWidget::dragEnterEvent(QDragEnterEvent* event) {
    if (take_ && offersFiles(*event->mimeData())) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
        showDropping(true);
    } else {
        event->ignore();
    }
}

void ListWidget::dragMoveEvent(QDragMoveEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(dropping_);
}

void ListWidget::dragLeaveEvent(QDragLeaveEvent* /*event*/) {
    showDropping(false);
}

void ListWidget::dropEvent(QDropEvent* event) {
    showDropping(false);
    if (!take_) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // Who dragged them waits for the end of this event, however long adding them takes.
    QMetaObject::invokeMethod(
        this,
        [this, paths = droppedPaths(*event->mimeData()),
         row = rowAt(event->position().toPoint().y())] {
            dispatcher_.run([&] { take_(paths, row); });
        },
        Qt::QueuedConnection);
}

} // namespace tovik::ui
