// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/ListWidget.h"

#include "ui/qt/DisplayText.h"
#include "ui/qt/KeyCodes.h"

#include <algorithm>
#include <QPainter>
#include <QScrollBar>
#include <QTimerEvent>

namespace tovik::ui {

namespace {

constexpr int kFontPixels = 11;
constexpr int kRowPadding = 2;
constexpr int kTextMargin = 4;
constexpr int kSoonMs = 50;
constexpr QRgb kSelected = 0xFF595FA0;
constexpr QRgb kMarked = 0xFFFFB43C;

/// A slim bar that goes with any back colour.
const auto* const kScrollBarStyle =
    "QScrollBar:vertical { background: transparent; width: 9px; margin: 1px; }"
    "QScrollBar::handle:vertical { background: rgba(150, 156, 200, 170); border-radius: 3px;"
    " min-height: 18px; }"
    "QScrollBar::handle:vertical:hover { background: rgba(180, 186, 225, 220); }"
    "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
    "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }";

} // namespace

ListWidget::ListWidget(const ListModel& model, ListInput& input, const host::Dispatcher& dispatcher)
    : model_(model), input_(input), dispatcher_(dispatcher) {
    QFont small = font();
    small.setPixelSize(kFontPixels);
    setFont(small);
    QPalette colours = palette();
    colours.setColor(QPalette::Highlight, QColor::fromRgb(kSelected));
    setPalette(colours);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::ClickFocus);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    verticalScrollBar()->setStyleSheet(QString::fromLatin1(kScrollBarStyle));
    fitScrollBar();
}

void ListWidget::refresh() {
    fitScrollBar();
    viewport()->update();
}

void ListWidget::refreshSoon() {
    if (!soon_.isActive()) {
        soon_.start(kSoonMs, this);
    }
}

void ListWidget::timerEvent(QTimerEvent* event) {
    if (event->timerId() == soon_.timerId()) {
        soon_.stop();
        refresh();
    } else {
        QAbstractScrollArea::timerEvent(event);
    }
}

void ListWidget::refreshRow(std::size_t row) {
    viewport()->update(placeOf(row));
}

void ListWidget::scrollToRow(std::size_t row) {
    if (row >= model_.rows()) {
        return;
    }
    fitScrollBar();
    const QRect place = placeOf(row);
    QScrollBar* const bar = verticalScrollBar();
    if (place.top() < 0) {
        bar->setValue(bar->value() + place.top());
    } else if (place.bottom() >= viewport()->height()) {
        bar->setValue(bar->value() + place.bottom() + 1 - viewport()->height());
    }
}

void ListWidget::setCursorRow(std::optional<std::size_t> row) {
    cursor_ = row;
}

std::optional<std::size_t> ListWidget::cursorRow() const {
    return cursor_ && *cursor_ < model_.rows() ? cursor_ : std::nullopt;
}

int ListWidget::rowHeight() const {
    return fontMetrics().height() + kRowPadding;
}

void ListWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), palette().color(QPalette::Base));
    const std::size_t rows = model_.rows();
    const int height = rowHeight();
    const int scrolled = verticalScrollBar()->value();
    auto row = static_cast<std::size_t>((scrolled + event->rect().top()) / height);
    for (; row < rows; ++row) {
        const QRect place = placeOf(row);
        if (place.top() > event->rect().bottom()) {
            break;
        }
        drawRow(painter, row, place);
    }
}

void ListWidget::drawRow(QPainter& painter, std::size_t row, const QRect& place) const {
    QColor text = palette().color(QPalette::Text);
    if (model_.selected(row)) {
        painter.fillRect(place, palette().color(QPalette::Highlight));
    }
    if (model_.marked(row)) {
        text = QColor::fromRgb(kMarked);
    }
    painter.setPen(text);
    const QRect room = place.adjusted(kTextMargin, 0, -kTextMargin, 0);
    painter.drawText(
        room, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
        fontMetrics().elidedText(displayString(model_.text(row)), Qt::ElideRight, room.width()));
}

void ListWidget::resizeEvent(QResizeEvent* /*event*/) {
    fitScrollBar();
}

void ListWidget::mousePressEvent(QMouseEvent* event) {
    const auto row = rowAt(event->position().toPoint().y());
    // A press with another button keeps a selection that it hits, for whatever asks about it.
    if (row && (event->button() == Qt::LeftButton || !model_.selected(*row))) {
        choose(*row, modifiersOf(event->modifiers()));
    }
}

void ListWidget::mouseMoveEvent(QMouseEvent* /*event*/) {}

void ListWidget::mouseReleaseEvent(QMouseEvent* /*event*/) {}

void ListWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    const auto row = rowAt(event->position().toPoint().y());
    if (row && event->button() == Qt::LeftButton) {
        activate(*row);
    }
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
            activate(*cursor);
        }
        return;
    default:
        event->ignore();
        return;
    }
    choose(static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(target, 0, rows - 1)),
           modifiersOf(event->modifiers()));
}

void ListWidget::wheelEvent(QWheelEvent* event) {
    QAbstractScrollArea::wheelEvent(event);
    // At the end of the list the wheel must not turn to what the window does with it.
    event->accept();
}

void ListWidget::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        refresh();
    }
}

void ListWidget::fitScrollBar() {
    const int visible = viewport()->height();
    const int height = rowHeight();
    const auto all = static_cast<int>(model_.rows()) * height;
    QScrollBar* const bar = verticalScrollBar();
    bar->setSingleStep(height);
    bar->setPageStep(visible);
    bar->setRange(0, std::max(0, all - visible));
}

void ListWidget::choose(std::size_t row, Modifiers modifiers) {
    cursor_ = row;
    scrollToRow(row);
    call([&] { input_.selectRow(row, modifiers); });
}

void ListWidget::activate(std::size_t row) {
    call([&] { input_.activateRow(row); });
}

void ListWidget::call(const std::function<void()>& operation) {
    dispatcher_.run(operation);
    refresh();
}

std::optional<std::size_t> ListWidget::rowAt(int y) const {
    const int inside = y + verticalScrollBar()->value();
    if (inside < 0) {
        return std::nullopt;
    }
    const auto row = static_cast<std::size_t>(inside / rowHeight());
    return row < model_.rows() ? std::optional(row) : std::nullopt;
}

QRect ListWidget::placeOf(std::size_t row) const {
    const int height = rowHeight();
    return {0, static_cast<int>(row) * height - verticalScrollBar()->value(), viewport()->width(),
            height};
}

} // namespace tovik::ui
