// SPDX-License-Identifier: GPL-3.0-or-later
// How a row of a list looks: number and title on the left, the time in a column on the right.
// Interface thread.
#pragma once

#include "ui/ListColours.h"
#include "ui/ListModel.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QRect>

namespace tovik::ui {

class ListPainter {
public:
    /// `timeWidth`: the width of the column of the times in pixels; 0 for a list without one.
    ListPainter(const ListModel& model, const ListColours& colours, const QFontMetrics& metrics,
                int timeWidth)
        : model_(model), colours_(colours), metrics_(metrics), timeWidth_(timeWidth) {}

    /// What is behind all rows in that part of the view.
    void drawGround(QPainter& painter, const QRect& part, int viewWidth) const;

    /// A picture over the ground; the column of the times keeps its own colour.
    void drawPicture(QPainter& painter, const QImage& picture, const QRect& place,
                     const QRect& view) const;

    void drawRow(QPainter& painter, std::size_t row, const QRect& place) const;

    /// Whether the title has more room to ask for than it gets.
    [[nodiscard]] bool overruns(std::size_t row, int width) const;

private:
    void drawBack(QPainter& painter, std::size_t row, const QRect& place,
                  const RowColours& colours) const;
    [[nodiscard]] int numberWidth(std::size_t row) const;
    [[nodiscard]] QRect titlePlace(std::size_t row, const QRect& place) const;
    [[nodiscard]] QRect timePlace(const QRect& place) const;
    /// The column, or more where the text needs it: a time of hours is longer than others.
    [[nodiscard]] int timeRoom(std::size_t row) const;

    const ListModel& model_;
    const ListColours& colours_;
    QFontMetrics metrics_;
    int timeWidth_;
};

} // namespace tovik::ui
