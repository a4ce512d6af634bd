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
constexpr double kPitch =
    15; ///< a box of 13 pixels for the font and one on each side, at its usual size
constexpr int kTimeColumn = 30; ///< at the usual size of the font
constexpr int kTimePadding = 6;
constexpr QRgb kSelected = 0xFF404582;
constexpr Colour kMarked{255, 180, 60};
constexpr int kHintMargin = 8;
constexpr int kTooltipLine = 80;
constexpr int kTooltipMost = 4000;

/// A slim bar that goes with any back colour.
const auto* const kScrollBarStyle =
    "QScrollBar:vertical { background: transparent; width: 9px; margin: 1px; }"
    "QScrollBar::handle:vertical { background: rgba(150, 156, 200, 170); border-radius: 3px;"
    " min-height: 18px; }"
    "QScrollBar::handle:vertical:hover { background: rgba(180, 186, 225, 220); }"
    "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
    "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }";

/// Plain text in lines that fit the screen, whatever characters it holds.
QString tooltipOf(const QString& title) {
    QString lines;
    qsizetype begin = 0;
    const qsizetype end = std::min<qsizetype>(title.size(), kTooltipMost);
    while (begin < end) {
        qsizetype length = std::min<qsizetype>(kTooltipLine, end - begin);
        if (begin + length < end) {
            const qsizetype blank = title.lastIndexOf(QLatin1Char(' '), begin + length);
            if (blank > begin) {
                length = blank - begin + 1;
            } else if (title.at(begin + length - 1).isHighSurrogate()) {
                --length;
            }
        }
        lines += (begin > 0 ? QStringLiteral("\n") : QString()) + title.mid(begin, length);
        begin += length;
    }
    if (!Qt::mightBeRichText(lines)) {
        return lines;
    }
    return lines.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br/>"));
}

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

void ListWidget::BackGroundPicture(QImage picture, const ListBackground& how) {
    picture_ = std::move(picture);
    background_ = how;
    viewport()->update();
}

void ListWidget::setHint(const QString& hint) {
    if (hint != hint_) {
        hint_ = hint;
        viewport()->update();
    }
}

void ListWidget::drawHint(QPainter& painter) const {
    painter.setPen(qtColour(hintColour(colours_)));
    const int margin = kHintMargin * font().pixelSize() / kFontPixels;
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignCenter | Qt::TextWordWrap, hint_);
}

std::optional<std::size_t> ListWidget::cursorRow() const {
    const auto row = model_.current();
    return row && *row < model_.rows() ? row : std::nullopt;
}

int ListWidget::rowHeight() const {
    return std::max(1, qRound(kPitch * font().pixelSize() / kFontPixels));
}

void ListWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const ListPainter rowPainter = painterOfRows();
    rowPainter.drawGround(painter, event->rect(), viewport()->width());
    if (model_.rows() == 0) {
        drawHint(painter);
    } else if (!picture_.isNull()) {
        const QRect view = viewport()->rect();
        rowPainter.drawPicture(painter, picture_,
                               backgroundPlace(background_, picture_.size(), view.size(),
                                               static_cast<int>(firstRow()) * rowHeight()),
                               view);
    }
    const std::size_t first = firstRow();
    const std::size_t end = std::min(model_.rows(), first + static_cast<std::size_t>(wholeRows()));
    auto row = first + static_cast<std::size_t>(event->rect().top() / rowHeight());
    for (; row < end; ++row) {
        const QRect place = placeOf(row);
        if (place.top() > event->rect().bottom()) {
            break;
        }
        if (event->region().intersects(place)) {
            rowPainter.drawRow(painter, row, place);
        }
    }
    if (const QRect marker = markerPlace(); !marker.isEmpty()) {
        painter.fillRect(marker, qtColour(colours_.TitleTextColor));
    }
    if (dropping_) {
        painter.setPen(qtColour(colours_.TitleTextColor));
        painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
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
            QToolTip::showText(help->globalPos(), tooltipOf(displayString(model_.text(*row))),
                               viewport(), placeOf(*row));
            return true;
        }
    }
    return QAbstractScrollArea::viewportEvent(event);
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
