// SPDX-License-Identifier: GPL-3.0-or-later
// A list of rows of one height that asks its model only for what is visible, so that its cost does
// not grow with the list. Interface thread.
#pragma once

#include "host/Dispatcher.h"
#include "ui/ListBackground.h"
#include "ui/ListColours.h"
#include "ui/ListModel.h"
#include "ui/qt/ListPainter.h"
#include "ui/qt/ListScroller.h"
#include "ui/RowDrag.h"

#include <functional>
#include <optional>
#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QImage>
#include <span>
#include <string>

namespace tovik::ui {

/// Rows are shown whole or not at all. Without colours of its own it takes `Base`, `Text` and
/// `Highlight` of the palette. Keys that it does not use go on to the window. It paints what it is
/// told of (`rowsInserted` and the like), and no more.
class ListWidget final : public QAbstractScrollArea {
public:
    /// Takes the paths of files that were dropped, and the row they were dropped on, if any.
    using FileDrop =
        std::function<void(std::span<const std::string> paths, std::optional<std::size_t> row)>;

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

    /// A picture behind the rows; it is seen as long as there are any. An empty one: none.
    void BackGroundPicture(QImage picture, const ListBackground& how);

    /// What an empty list says in a quiet voice.
    void setHint(const QString& hint);

    [[nodiscard]] const QString& hint() const { return hint_; }

    /// From now on files may be dropped on the list. The call comes through the dispatcher, after
    /// the window system was told that the drop is over.
    void takeFiles(FileDrop take);

    /// Tells which keys the list leaves to the window, though it has a use for them.
    void leaveToWindow(std::function<bool(const KeyEvent&)> claimed) {
        claimed_ = std::move(claimed);
    }

    // What changed; each paints what it must and moves the scroll bar
    // -------------------------------

    /// Anything.
    void refresh();

    /// Rows came; soon and once for many calls, as rows may come one after the other.
    void rowsInserted(std::size_t first);

    /// Rows went; `first` of them by its old number. No row behind it is where it was.
    void rowsRemoved(std::size_t first);

    /// A row moved from one place to another.
    void rowMoved(std::size_t from, std::size_t to);

    /// The texts of one row are others; nothing is painted if it is out of sight.
    void rowChanged(std::size_t row);

    /// These rows look different, and with them perhaps the edges of those beside them.
    void looksChanged(std::size_t first, std::size_t last);

    /// Scrolls as little as makes the row whole; while the list is hidden, once it shows.
    void scrollToRow(std::size_t row);

    /// The height of one row in pixels, whatever the font.
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
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void fitScrollBar();
    void fitScroller();
    [[nodiscard]] ListColours coloursOfPalette() const;
    [[nodiscard]] ListPainter painterOfRows() const;
    [[nodiscard]] int timeWidth() const;
    void drawHint(QPainter& painter) const;
    /// Paints from a row to the end of the view.
    void updateFrom(std::size_t row);
    [[nodiscard]] std::optional<std::size_t> cursorRow() const;
    void choose(std::size_t row, Modifiers modifiers);
    /// Where a key of the cursor goes from a row; nothing for other keys.
    [[nodiscard]] std::optional<std::size_t> targetOf(int key,
                                                      std::optional<std::size_t> from) const;
    void moveCursor(int key, bool extends);
    void shiftRow(int key);
    void hold(Modifiers modifiers);
    [[nodiscard]] RowView rowView() const;
    /// What a drag draws between two rows; empty while there is none.
    [[nodiscard]] QRect markerPlace() const;
    void drag(int y);
    void endDrag();
    void showDropping(bool dropping);
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
    QImage picture_;
    ListBackground background_;
    QString hint_;
    ListScroller* scroller_ = nullptr;  ///< none: a plain bar
    std::optional<std::size_t> wanted_; ///< to be scrolled to when the list shows

    std::optional<std::size_t> newFrom_; ///< the first row that came and is not painted yet
    QBasicTimer soon_;

    /// The end of a range that Shift and the cursor keys make, and the row that it began at.
    struct Range {
        std::size_t from;
        std::size_t end;
    };

    std::optional<Range> range_;
    Modifiers held_;

    RowDrag drag_;
    QBasicTimer edge_; ///< scrolls under a drag that left the view
    bool pressedNowhere_ = false;
    FileDrop take_;
    std::function<bool(const KeyEvent&)> claimed_;
    bool dropping_ = false;
};

} // namespace tovik::ui
