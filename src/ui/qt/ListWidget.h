// SPDX-License-Identifier: GPL-3.0-or-later
// A list of rows of one height that asks its model only for what is visible, so that its cost does
// not grow with the list. Interface thread.
#pragma once

#include "host/Dispatcher.h"
#include "ui/ListModel.h"

#include <optional>
#include <QAbstractScrollArea>
#include <QBasicTimer>

namespace tovik::ui {

/// Colours come from the palette: `Base`, `Text` and `Highlight`. Keys that it does not use go on
/// to the window.
class ListWidget final : public QAbstractScrollArea {
public:
    /// All three must outlive the widget.
    ListWidget(const ListModel& model, ListInput& input, const host::Dispatcher& dispatcher);

    /// Rows came, went or look different.
    void refresh();

    /// As `refresh`, but soon and once for many calls: for rows that come one after the other.
    void refreshSoon();

    /// One row looks different; nothing is painted if it is out of sight.
    void refreshRow(std::size_t row);

    /// Scrolls as little as makes the row whole.
    void scrollToRow(std::size_t row);

    /// The row that the cursor keys start from. The model's selection is not touched.
    void setCursorRow(std::optional<std::size_t> row);

    [[nodiscard]] std::optional<std::size_t> cursorRow() const;

    /// The height of one row in pixels.
    [[nodiscard]] int rowHeight() const;

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
    void timerEvent(QTimerEvent* event) override;

private:
    void fitScrollBar();
    void drawRow(QPainter& painter, std::size_t row, const QRect& place) const;
    void choose(std::size_t row, Modifiers modifiers);
    void activate(std::size_t row);
    /// Runs a call on the logic and shows what it did.
    void call(const std::function<void()>& operation);
    [[nodiscard]] std::optional<std::size_t> rowAt(int y) const;
    [[nodiscard]] QRect placeOf(std::size_t row) const;

    const ListModel& model_;
    ListInput& input_;
    const host::Dispatcher& dispatcher_;
    std::optional<std::size_t> cursor_;
    QBasicTimer soon_;
};

} // namespace tovik::ui
