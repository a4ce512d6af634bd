// SPDX-License-Identifier: GPL-3.0-or-later
// A list paints what changed and no more.
#include "ListRig.h"

namespace tovik::ui {
namespace {

class ListPaintTest : public test::ListRig {
protected:
    void insert(std::size_t first) {
        ++rows_.count;
        list_.rowsInserted(first);
        QTest::qWait(80);
    }

    void remove(std::size_t first) {
        --rows_.count;
        list_.rowsRemoved(first);
    }
};

TEST_F(ListPaintTest, aChangedRowIsPaintedAlone) {
    list_.rowChanged(3);
    EXPECT_EQ(painted(), rowsOfView(3, 3));
    list_.rowChanged(50);
    EXPECT_TRUE(painted().isEmpty());
}

TEST_F(ListPaintTest, anotherLookIsPaintedWithTheEdgesBesideIt) {
    list_.looksChanged(3, 3);
    EXPECT_EQ(painted(), rowsOfView(2, 4));
    list_.looksChanged(0, 1);
    EXPECT_EQ(painted(), rowsOfView(0, 2));
    list_.looksChanged(6, 99);
    EXPECT_EQ(painted(), rowsOfView(5, 7));
    list_.looksChanged(9, 90);
    EXPECT_TRUE(painted().isEmpty());
    scrollTo(20);
    list_.looksChanged(0, 18);
    EXPECT_TRUE(painted().isEmpty());
    list_.looksChanged(0, 19);
    EXPECT_EQ(painted(), rowsOfView(0, 0)) << "the edge of the first row in sight";
}

TEST_F(ListPaintTest, twoRowsApartArePaintedWithoutThoseBetween) {
    list_.rowChanged(0);
    list_.rowChanged(7);
    EXPECT_EQ(painted(), rowsOfView(0, 0) + rowsOfView(7, 7));
}

TEST_F(ListPaintTest, aRemovedRowIsPaintedOverFromItsPlaceOn) {
    remove(4);
    EXPECT_EQ(painted(), fromRowOfView(3));
    remove(70);
    EXPECT_TRUE(painted().isEmpty());
    scrollTo(20);
    remove(3);
    EXPECT_EQ(painted(), fromRowOfView(0));
}

TEST_F(ListPaintTest, rowsThatComeOutOfSightPaintNothing) {
    insert(100);
    EXPECT_TRUE(painted().isEmpty());
    EXPECT_EQ(list_.verticalScrollBar()->maximum(), (101 - kRowsShown) * list_.rowHeight());
    insert(5);
    EXPECT_EQ(painted(), fromRowOfView(4));
}

TEST_F(ListPaintTest, aMovedRowPaintsWhatMadeRoom) {
    list_.rowMoved(2, 4);
    EXPECT_EQ(painted(), rowsOfView(1, 5));
    list_.rowMoved(60, 50);
    EXPECT_TRUE(painted().isEmpty());
    list_.rowMoved(60, 6);
    EXPECT_EQ(painted(), rowsOfView(5, 7));
}

TEST_F(ListPaintTest, choosingPaintsNothingByItself) {
    press(3);
    release(middleOf(3));
    EXPECT_FALSE(rows_.calls.empty());
    EXPECT_TRUE(painted().isEmpty());
}

TEST_F(ListPaintTest, theEndOfAListThatShrankMeetsTheBottomOfTheView) {
    scrollTo(92);
    rows_.count = 50;
    list_.rowsRemoved(40);
    EXPECT_EQ(list_.verticalScrollBar()->value(), (50 - kRowsShown) * list_.rowHeight());
    rows_.count = 3;
    list_.rowsRemoved(3);
    EXPECT_EQ(list_.verticalScrollBar()->value(), 0);
}

TEST_F(ListPaintTest, theDragMarkerIsAStripeBetweenTwoRows) {
    press(1);
    moveTo(middleOf(4));
    const int pitch = list_.rowHeight();
    const int width = list_.viewport()->width();
    EXPECT_EQ(painted(), QRegion(0, 4 * pitch - 1, width, 2));
    moveTo(middleOf(5));
    EXPECT_EQ(painted(), QRegion(0, 4 * pitch - 1, width, 2) + QRegion(0, 5 * pitch - 1, width, 2));
    moveTo(middleOf(5) + QPoint(30, 2));
    EXPECT_TRUE(painted().isEmpty());
    release(middleOf(5));
    EXPECT_EQ(painted(), QRegion(0, 5 * pitch - 1, width, 2));
}

TEST_F(ListPaintTest, theMarkerIsSeen) {
    press(1);
    moveTo(middleOf(4));
    const QImage shown = list_.grab().toImage();
    const QColor ink = list_.palette().color(QPalette::Text);
    EXPECT_EQ(shown.pixelColor(150, 4 * list_.rowHeight()), ink);
    EXPECT_EQ(shown.pixelColor(150, 4 * list_.rowHeight() - 1), ink);
    EXPECT_NE(shown.pixelColor(150, 4 * list_.rowHeight() + 1), ink);
    release(middleOf(4));
}

} // namespace
} // namespace tovik::ui
