// SPDX-License-Identifier: GPL-3.0-or-later
// Rows that are dragged, keys that do the same, and what else a hand does to a list.
#include "ListRig.h"

namespace tovik::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ListDragTest : public test::ListRig {};

TEST_F(ListDragTest, aRowIsTakenToWhereItIsLetGo) {
    press(1);
    moveTo(middleOf(3));
    moveTo(middleOf(4));
    release(middleOf(4));
    EXPECT_THAT(rows_.taken(), ElementsAre("select 1", "move 1 before 4"));
    scrollTo(20);
    press(5);
    moveTo(middleOf(0));
    release(middleOf(0));
    EXPECT_THAT(rows_.taken(), ElementsAre("select 25", "move 25 before 20"));
}

TEST_F(ListDragTest, aClickIsNoDrag) {
    press(1);
    moveTo(middleOf(1) + QPoint(50, 2));
    release(middleOf(1) + QPoint(50, 2));
    EXPECT_THAT(rows_.taken(), ElementsAre("select 1"));
}

TEST_F(ListDragTest, withShiftOrCtrlNothingIsDragged) {
    for (const auto modifier : {Qt::ShiftModifier, Qt::ControlModifier}) {
        press(1, modifier);
        moveTo(middleOf(4));
        release(middleOf(4));
        EXPECT_EQ(rows_.taken().size(), 1U);
        press(1);
        moveTo(middleOf(3));
        moveTo(middleOf(4), modifier);
        release(middleOf(4));
        EXPECT_THAT(rows_.taken(), ElementsAre("select 1"));
    }
}

TEST_F(ListDragTest, otherButtonsAndOtherListsDragNothing) {
    QTest::mousePress(list_.viewport(), Qt::RightButton, {}, middleOf(1));
    moveTo(middleOf(4));
    QTest::mouseRelease(list_.viewport(), Qt::RightButton, {}, middleOf(4));
    EXPECT_THAT(rows_.taken(), ElementsAre("select 1", "context 1"));
    rows_.movable = false;
    press(1);
    moveTo(middleOf(4));
    release(middleOf(4));
    EXPECT_THAT(rows_.taken(), ElementsAre("select 1"));
}

TEST_F(ListDragTest, escapeAndAListThatChangesEndADrag) {
    const auto rest = [this] {
        release(middleOf(4));
        return rows_.taken();
    };
    press(1);
    moveTo(middleOf(4));
    QTest::keyClick(&list_, Qt::Key_Escape);
    EXPECT_THAT(rest(), ElementsAre("select 1"));
    press(1);
    moveTo(middleOf(4));
    --rows_.count;
    list_.rowsRemoved(70);
    EXPECT_THAT(rest(), ElementsAre("select 1"));
    press(1);
    moveTo(middleOf(4));
    list_.rowMoved(3, 2);
    EXPECT_THAT(rest(), ElementsAre("select 1"));
    press(1);
    moveTo(middleOf(4));
    list_.hide();
    list_.show();
    EXPECT_THAT(rest(), ElementsAre("select 1"));
}

TEST_F(ListDragTest, escapeWithoutADragIsForTheWindow) {
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Escape, {});
    QApplication::sendEvent(&list_, &event);
    EXPECT_FALSE(event.isAccepted());
}

TEST_F(ListDragTest, belowTheViewTheListScrollsUntilItsEnd) {
    press(1);
    const QPoint below(20, list_.viewport()->height() + 30);
    moveTo(below);
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return list_.verticalScrollBar()->value() >= 3 * list_.rowHeight(); }));
    QScrollBar& bar = *list_.verticalScrollBar();
    bar.setValue(bar.maximum() - list_.rowHeight());
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.value() == bar.maximum(); }));
    QTest::qWait(120);
    release(below);
    EXPECT_THAT(rows_.taken(), ElementsAre("select 1", "move 1 before 100"));
}

TEST_F(ListDragTest, aboveTheViewTheListScrollsBackAndStopsWithTheDrag) {
    scrollTo(40);
    press(1);
    const QPoint above(20, -5);
    moveTo(above);
    QScrollBar& bar = *list_.verticalScrollBar();
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.value() <= 38 * list_.rowHeight(); }));
    moveTo(middleOf(2));
    const int there = bar.value();
    QTest::qWait(130);
    EXPECT_EQ(bar.value(), there) << "back in the view";
    moveTo(above);
    release(above);
    const int end = bar.value();
    QTest::qWait(130);
    EXPECT_EQ(bar.value(), end) << "let go";
    const auto target = static_cast<int>(std::min(end, there) / list_.rowHeight());
    EXPECT_THAT(rows_.taken(),
                ElementsAre("select 41", "move 41 before " + std::to_string(target)));
}

TEST_F(ListDragTest, altAndTheArrowsTakeARowUpAndDown) {
    rows_.cursor = 5;
    QTest::keyClick(&list_, Qt::Key_Up, Qt::AltModifier);
    QTest::keyClick(&list_, Qt::Key_Down, Qt::AltModifier);
    EXPECT_THAT(rows_.taken(), ElementsAre("move 5 before 4", "move 5 before 7"));
    rows_.cursor = 0;
    QTest::keyClick(&list_, Qt::Key_Up, Qt::AltModifier);
    rows_.cursor = 99;
    QTest::keyClick(&list_, Qt::Key_Down, Qt::AltModifier);
    rows_.cursor.reset();
    QTest::keyClick(&list_, Qt::Key_Down, Qt::AltModifier);
    EXPECT_THAT(rows_.taken(), IsEmpty());
}

TEST_F(ListDragTest, shiftAndTheCursorKeysSelectARange) {
    using testing::Not;
    const auto selects = [this] {
        std::vector<std::string> found;
        for (std::string& call : rows_.calls) {
            if (!call.starts_with("hold")) {
                found.push_back(std::move(call));
            }
        }
        rows_.calls.clear();
        return found;
    };
    QTest::keyClick(&list_, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_THAT(selects(), ElementsAre("select 0")) << "there is no row to begin at yet";
    rows_.cursor = 5;
    QTest::keyClick(&list_, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&list_, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&list_, Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyClick(&list_, Qt::Key_End, Qt::ShiftModifier);
    EXPECT_THAT(selects(), ElementsAre("select 6 shift", "select 7 shift", "select 6 shift",
                                       "select 99 shift"));
    QTest::keyClick(&list_, Qt::Key_Down);
    QTest::keyClick(&list_, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_THAT(selects(), ElementsAre("select 6", "select 7 shift")) << "a new one begins";
    rows_.cursor = 30;
    QTest::keyClick(&list_, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_THAT(selects(), ElementsAre("select 29 shift")) << "the chosen row is another";
}

TEST_F(ListDragTest, heldModifiersAreToldUntilTheyOrTheKeyboardGo) {
    QTest::keyPress(&list_, Qt::Key_Shift, Qt::ShiftModifier);
    QTest::keyRelease(&list_, Qt::Key_Shift);
    QTest::keyPress(&list_, Qt::Key_Control, Qt::ControlModifier);
    QFocusEvent lost(QEvent::FocusOut);
    QApplication::sendEvent(&list_, &lost);
    EXPECT_THAT(rows_.taken(), ElementsAre("hold shift", "hold", "hold control", "hold"));
    QTest::keyClick(&list_, Qt::Key_X);
    EXPECT_THAT(rows_.taken(), IsEmpty());
}

TEST_F(ListDragTest, theRightButtonAsksAlsoWhereNoRowIs) {
    rows_.count = 2;
    list_.refresh();
    QTest::mouseClick(list_.viewport(), Qt::RightButton, {}, middleOf(4));
    EXPECT_THAT(rows_.taken(), ElementsAre("context"));
    QTest::mousePress(list_.viewport(), Qt::RightButton, {}, middleOf(0));
    QTest::mouseRelease(list_.viewport(), Qt::RightButton, {}, middleOf(4));
    EXPECT_THAT(rows_.taken(), ElementsAre("select 0", "context 0")) << "it went down on a row";
}

TEST_F(ListDragTest, theRightButtonOnAnUnselectedRowChoosesItAsTheLeftOneDoes) {
    QTest::mouseClick(list_.viewport(), Qt::RightButton, Qt::ControlModifier, middleOf(2));
    rows_.chosen = {3};
    QTest::mouseClick(list_.viewport(), Qt::RightButton, {}, middleOf(3));
    EXPECT_THAT(rows_.taken(), ElementsAre("select 2 control", "context 2", "context 3"));
}

TEST_F(ListDragTest, aPageIsTheViewLessOneRow) {
    EXPECT_EQ(list_.verticalScrollBar()->pageStep(), (kRowsShown - 1) * list_.rowHeight());
    rows_.cursor = 10;
    QTest::keyClick(&list_, Qt::Key_PageDown);
    EXPECT_THAT(rows_.taken(), ElementsAre("select 17"));
}

TEST_F(ListDragTest, theHeightOfARowIsFixed) {
    EXPECT_EQ(list_.rowHeight(), 15);
    QFont font = list_.font();
    font.setFamily(QStringLiteral("Any other"));
    list_.setFont(font);
    EXPECT_EQ(list_.rowHeight(), 15);
    font.setPixelSize(22);
    list_.setFont(font);
    EXPECT_EQ(list_.rowHeight(), 30);
}

} // namespace
} // namespace tovik::ui
