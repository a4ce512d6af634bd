// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/ListPainter.h"

#include "ui/qt/DisplayText.h"

#include <algorithm>

namespace tovik::ui {

namespace {

constexpr int kTextMargin = 4;
constexpr int kTimeMargin = 2;

/// Longer titles are cut before they are measured: a line of a list may hold thousands of letters.
constexpr qsizetype kMostLetters = 1024;

QString titleOf(const ListModel& model, std::size_t row) {
    return displayString(model.text(row)).left(kMostLetters);
}

} // namespace

void ListPainter::drawGround(QPainter& painter, const QRect& part, int viewWidth) const {
    painter.fillRect(part, qtColour(colours_.BackgroundColor));
    if (colours_.BackgroundTimeColor && timeWidth_ > 0 && model_.rows() > 0) {
        const QRect column(viewWidth - timeWidth_, part.top(), timeWidth_, part.height());
        painter.fillRect(column & part, qtColour(*colours_.BackgroundTimeColor));
    }
}

void ListPainter::drawPicture(QPainter& painter, const QImage& picture, const QRect& place,
                              const QRect& view) const {
    painter.save();
    if (colours_.BackgroundTimeColor) {
        painter.setClipRect(view.adjusted(0, 0, -timeWidth_, 0), Qt::IntersectClip);
    }
    painter.drawImage(place, picture);
    painter.restore();
}

void ListPainter::drawRow(QPainter& painter, std::size_t row, const QRect& place) const {
    const bool selected = model_.selected(row);
    const bool played = model_.marked(row);
    const RowColours colours = rowColours(colours_, selected, played);
    if (selected || played) {
        drawBack(painter, row, place, colours);
    }
    painter.setPen(qtColour(colours.titleText));
    constexpr int kFlags = Qt::AlignVCenter | Qt::TextSingleLine;
    const QRect title = titlePlace(row, place);
    if (const int number = numberWidth(row); number > 0) {
        painter.drawText(QRect(title.left() - number, title.top(), number, title.height()),
                         kFlags | Qt::AlignLeft, displayString(model_.numberText(row)));
    }
    painter.drawText(title, kFlags | Qt::AlignLeft,
                     metrics_.elidedText(titleOf(model_, row), Qt::ElideRight, title.width()));
    if (timeWidth_ > 0) {
        painter.setPen(qtColour(colours.timeText));
        QRect time = timePlace(place).adjusted(0, 0, -kTimeMargin, 0);
        time.setLeft(place.right() + 1 - timeRoom(row));
        painter.drawText(time, kFlags | Qt::AlignRight, displayString(model_.timeText(row)));
    }
    if (played && colours_.PlayedBorderColor) {
        painter.setPen(qtColour(*colours_.PlayedBorderColor));
        painter.drawRect(place.adjusted(0, 0, -1, -1));
    }
}

void ListPainter::drawBack(QPainter& painter, std::size_t row, const QRect& place,
                           const RowColours& colours) const {
    const QRect time = timePlace(place);
    painter.fillRect(place.adjusted(0, 0, -time.width(), 0), qtColour(colours.titleBack));
    painter.fillRect(time, qtColour(colours.timeBack));
    if (model_.selected(row) && colours_.SelectedBorderColor) {
        // Rows that follow each other look like one block.
        painter.setPen(qtColour(*colours_.SelectedBorderColor));
        if (row == 0 || !model_.selected(row - 1)) {
            painter.drawLine(place.topLeft(), place.topRight());
        }
        if (row + 1 >= model_.rows() || !model_.selected(row + 1)) {
            painter.drawLine(place.bottomLeft(), place.bottomRight());
        }
    }
}

bool ListPainter::overruns(std::size_t row, int width) const {
    return metrics_.horizontalAdvance(titleOf(model_, row)) >
           titlePlace(row, {0, 0, width, 1}).width();
}

int ListPainter::numberWidth(std::size_t row) const {
    return metrics_.horizontalAdvance(displayString(model_.numberText(row)));
}

QRect ListPainter::titlePlace(std::size_t row, const QRect& place) const {
    return place.adjusted(kTextMargin + numberWidth(row), 0, -kTextMargin - timeRoom(row), 0);
}

int ListPainter::timeRoom(std::size_t row) const {
    if (timeWidth_ == 0) {
        return 0;
    }
    return std::max(timeWidth_, metrics_.horizontalAdvance(displayString(model_.timeText(row))) +
                                    2 * kTimeMargin);
}

QRect ListPainter::timePlace(const QRect& place) const {
    return {place.right() + 1 - timeWidth_, place.top(), timeWidth_, place.height()};
}

} // namespace tovik::ui
