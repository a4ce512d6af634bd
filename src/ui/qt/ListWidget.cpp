// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/ListWidget.h"

#include "ui/qt/DisplayText.h"

#include <algorithm>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextDocument>
#include <QTimerEvent>
#include <QToolTip>
#include <utility>

namespace tovik::ui {

namespace {

constexpr int kFontPixels = 11;
constexpr int kRowPadding = 2;
constexpr int kTimeColumn = 30; ///< at the usual size of the font
constexpr int kTimePadding = 6;
constexpr int kSoonMs = 50;
constexpr QRgb kSelected = 0xFF404582;
constexpr Colour kMarked{255, 180, 60};

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
    colours_ = coloursOfPalette();
    fitScrollBar();
}

void ListWidget::setColours(const ListColours& colours) {
    colours_ = colours;
    ownColours_ = true;
    refresh();
}

void ListWidget::showTimes() {
    times_ = true;
    refresh();
}

void ListWidget::setScrollerPicture(ListScroller::Source source) {
    scroller_ = new ListScroller(std::move(source));
    scroller_->setStyleSheet(QString::fromLatin1(kScrollBarStyle));
    setVerticalScrollBar(scroller_);
    fitScroller();
    fitScrollBar();
}

void ListWidget::AlwaysShowScroller(bool always) {
    setVerticalScrollBarPolicy(always ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAsNeeded);
}

/// Before a picture is loaded the bar has another width than afterwards.
void ListWidget::fitScroller() {
    if (scroller_ != nullptr) {
        scroller_->setFactor(static_cast<double>(font().pixelSize()) / kFontPixels);
        // Lays the bar and the rows out anew.
        setViewportMargins({});
    }
}

ListColours ListWidget::coloursOfPalette() const {
    const auto colourOf = [this](QPalette::ColorRole role) {
        const QColor colour = palette().color(role);
        return Colour{.red = static_cast<std::uint8_t>(colour.red()),
                      .green = static_cast<std::uint8_t>(colour.green()),
                      .blue = static_cast<std::uint8_t>(colour.blue())};
    };
    const Colour text = colourOf(QPalette::Text);
    return {.BackgroundColor = colourOf(QPalette::Base),
            .BackgroundTimeColor = std::nullopt,
            .TitleTextColor = text,
            .TimeTextColor = text,
            .SelectedTitleTextColor = text,
            .SelectedTimeTextColor = text,
            .PlayedTitleTextColor = kMarked,
            .PlayedTimeTextColor = kMarked,
            .SelectedTitleBackColor = colourOf(QPalette::Highlight),
            .SelectedTimeBackColor = colourOf(QPalette::Highlight),
            .PlayedTitleBackColor = std::nullopt,
            .PlayedTimeBackColor = std::nullopt,
            .SelectedBorderColor = std::nullopt,
            .PlayedBorderColor = std::nullopt};
}

ListPainter ListWidget::painterOfRows() const {
    return {model_, colours_, fontMetrics(), timeWidth()};
}

int ListWidget::timeWidth() const {
    // Fonts differ: a time must not be cut.
    return times_ ? std::max(kTimeColumn, fontMetrics().horizontalAdvance(QStringLiteral("00:00")) +
                                              kTimePadding)
                  : 0;
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

std::optional<std::size_t> ListWidget::cursorRow() const {
    const auto row = model_.current();
    return row && *row < model_.rows() ? row : std::nullopt;
}

int ListWidget::rowHeight() const {
    return fontMetrics().height() + kRowPadding;
}

void ListWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const ListPainter rowPainter = painterOfRows();
    rowPainter.drawGround(painter, event->rect(), viewport()->width());
    const std::size_t first = firstRow();
    const std::size_t end = std::min(model_.rows(), first + static_cast<std::size_t>(wholeRows()));
    auto row = first + static_cast<std::size_t>(event->rect().top() / rowHeight());
    for (; row < end; ++row) {
        const QRect place = placeOf(row);
        if (place.top() > event->rect().bottom()) {
            break;
        }
        rowPainter.drawRow(painter, row, place);
    }
}

void ListWidget::resizeEvent(QResizeEvent* /*event*/) {
    fitScrollBar();
}

void ListWidget::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        if (!ownColours_) {
            colours_ = coloursOfPalette();
        }
        fitScroller();
        refresh();
    }
}

void ListWidget::showEvent(QShowEvent* event) {
    QAbstractScrollArea::showEvent(event);
    fitScroller();
    if (const auto row = std::exchange(wanted_, std::nullopt)) {
        scrollToRow(*row);
    }
}

bool ListWidget::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        const auto row = rowAt(help->pos().y());
        if (row && painterOfRows().overruns(*row, viewport()->width())) {
            const QString title = displayString(model_.text(*row));
            // The title is plain text, whatever characters it holds.
            QToolTip::showText(help->globalPos(),
                               Qt::mightBeRichText(title) ? title.toHtmlEscaped() : title,
                               viewport(), placeOf(*row));
            return true;
        }
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void ListWidget::fitScrollBar() {
    const int visible = wholeRows() * rowHeight();
    const auto all = static_cast<int>(model_.rows()) * rowHeight();
    QScrollBar* const bar = verticalScrollBar();
    bar->setSingleStep(rowHeight());
    bar->setPageStep(visible);
    bar->setRange(0, std::max(0, all - visible));
}

int ListWidget::wholeRows() const {
    return std::max(1, viewport()->height() / rowHeight());
}

/// A thumb that is dragged stands between two rows: the nearer one is the first.
std::size_t ListWidget::firstRow() const {
    const int height = rowHeight();
    return static_cast<std::size_t>((verticalScrollBar()->value() + height / 2) / height);
}

std::optional<std::size_t> ListWidget::rowAt(int y) const {
    if (y < 0 || y >= wholeRows() * rowHeight()) {
        return std::nullopt;
    }
    const std::size_t row = firstRow() + static_cast<std::size_t>(y / rowHeight());
    return row < model_.rows() ? std::optional(row) : std::nullopt;
}

QRect ListWidget::cellPlace(std::size_t row, int column) const {
    QRect place = placeOf(row);
    const int time = timeWidth();
    if (column == 0) {
        place.setWidth(place.width() - time);
    } else {
        place.setLeft(place.right() + 1 - time);
    }
    return place;
}

QRect ListWidget::placeOf(std::size_t row) const {
    const int height = rowHeight();
    return {0, (static_cast<int>(row) - static_cast<int>(firstRow())) * height, viewport()->width(),
            height};
}

} // namespace tovik::ui
