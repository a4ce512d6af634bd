// SPDX-License-Identifier: GPL-3.0-or-later
// A list of rows of one height that asks its model only for what is visible, so that its cost does
// not grow with the list. Interface thread.
#pragma once

#include "host/Dispatcher.h"
#include "ui/ListColours.h"
#include "ui/ListModel.h"
#include "ui/qt/ListPainter.h"
#include "ui/qt/ListScroller.h"

#include <optional>
#include <QAbstractScrollArea>
#include <QBasicTimer>

namespace tovik::ui {

/// Rows are shown whole or not at all. Without colours of its own it takes `Base`, `Text` and
/// `Highlight` of the palette. Keys that it does not use go on to the window.
class ListWidget final : public QAbstractScrollArea {
public:
    /// All three must outlive the widget.
    ListWidget(const ListModel& model, ListInput& input, const host::Dispatcher& dispatcher);

    void setColours(const ListColours& colours);

    /// Those in force.
    [[nodiscard]] const ListColours& colours() const { return colours_; }

    /// Gives the list a column for the times, right of the texts.
    void showTimes();

    /// Where the scroll bar finds its picture; see `ListScroller`.
    void setScrollerPicture(ListScroller::Source source);

    /// Keeps the scroll bar also while all rows fit.
    void AlwaysShowScroller(bool always);

    /// Rows came, went or look different.
    void refresh();

    /// As `refresh`, but soon and once for many calls: for rows that come one after the other.
    void refreshSoon();

    /// One row looks different; nothing is painted if it is out of sight.
    void refreshRow(std::size_t row);

    /// Scrolls as little as makes the row whole; while the list is hidden, once it shows.
    void scrollToRow(std::size_t row);

    /// The height of one row in pixels.
    [[nodiscard]] int rowHeight() const;

    // For screen readers --------------------------------------------------------------------------

    [[nodiscard]] const ListModel& model() const noexcept { return model_; }

    /// Titles, and times if it shows them.
    [[nodiscard]] int columns() const noexcept { return times_ ? 2 : 1; }

    /// Where a cell is in the viewport, in sight or not.
    [[nodiscard]] QRect cellPlace(std::size_t row, int column) const;

    /// As the user does it: a press on a row, and a double click.
    void chooseRow(std::size_t row) { choose(row, {}); }

    void startRow(std::size_t row);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void fitScrollBar();
    void fitScroller();
    [[nodiscard]] ListColours coloursOfPalette() const;
    [[nodiscard]] ListPainter painterOfRows() const;
    [[nodiscard]] int timeWidth() const;
    [[nodiscard]] std::optional<std::size_t> cursorRow() const;
    void choose(std::size_t row, Modifiers modifiers);
    /// Runs a call on the logic and shows what it did.
    void call(const std::function<void()>& operation);
    /// How many rows fit; what is left over below them stays empty.
    [[nodiscard]] int wholeRows() const;
    [[nodiscard]] std::size_t firstRow() const;
    [[nodiscard]] std::optional<std::size_t> rowAt(int y) const;
    [[nodiscard]] QRect placeOf(std::size_t row) const;

    const ListModel& model_;
    ListInput& input_;
    const host::Dispatcher& dispatcher_;
    ListColours colours_;
    bool ownColours_ = false;
    bool times_ = false;
    ListScroller* scroller_ = nullptr;  ///< none: a plain bar
    std::optional<std::size_t> wanted_; ///< to be scrolled to when the list shows
    QBasicTimer soon_;
};

} // namespace tovik::ui
