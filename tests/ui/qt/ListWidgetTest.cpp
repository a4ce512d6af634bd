// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/ListWidget.h"
#include "WindowRig.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>

#include <set>

namespace tovik::ui {
namespace {

using testing::ElementsAre;

class CountedRows final : public ListModel, public ListInput {
public:
    std::size_t count = 100'000;
    std::size_t chosen = 1;
    std::optional<std::size_t> cursor;
    bool removes = false;
    mutable std::set<std::size_t> asked;
    std::vector<std::string> calls;

    [[nodiscard]] std::size_t rows() const override { return count; }

    [[nodiscard]] std::string text(std::size_t row) const override {
        asked.insert(row);
        return "Row " + std::to_string(row);
    }

    [[nodiscard]] std::optional<std::size_t> current() const override { return cursor; }

    [[nodiscard]] bool selected(std::size_t row) const override { return row == chosen; }

    [[nodiscard]] bool marked(std::size_t row) const override { return row == 2; }

    void selectRow(std::size_t row, Modifiers modifiers) override {
        chosen = row;
        cursor = row;
        calls.push_back("select " + std::to_string(row) + (modifiers.shift ? " shift" : ""));
    }

    void activateRow(std::size_t row) override {
        calls.push_back("activate " + std::to_string(row));
    }

    void enterRow(std::size_t row) override { calls.push_back("enter " + std::to_string(row)); }

    void contextRow(std::size_t row) override { calls.push_back("context " + std::to_string(row)); }

    void contextByKey(std::size_t row) override {
        calls.push_back("context key " + std::to_string(row));
    }

    bool removeRows() override {
        calls.emplace_back("remove");
        return removes;
    }
};

class ListWidgetTest : public testing::Test {
protected:
    static constexpr int kHeight = 80;

    CountedRows rows_;
    host::Dispatcher dispatcher_;
    ListWidget list_{rows_, rows_, dispatcher_};

    void SetUp() override {
        list_.resize(160, kHeight);
        list_.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&list_));
        test::WindowRig::settle();
        rows_.asked.clear();
    }

    [[nodiscard]] QPoint middleOf(int visibleRow) const {
        return {20, visibleRow * list_.rowHeight() + list_.rowHeight() / 2};
    }

    [[nodiscard]] std::size_t mostVisible() const {
        return static_cast<std::size_t>(kHeight / list_.rowHeight());
    }
};

TEST_F(ListWidgetTest, onlyVisibleRowsAreAskedFor) {
    static_cast<void>(list_.grab());
    EXPECT_LE(rows_.asked.size(), mostVisible());
    EXPECT_EQ(*rows_.asked.begin(), 0U);
    rows_.asked.clear();
    list_.verticalScrollBar()->setValue(list_.verticalScrollBar()->maximum());
    static_cast<void>(list_.grab());
    EXPECT_LE(rows_.asked.size(), mostVisible());
    EXPECT_EQ(*rows_.asked.rbegin(), 99'999U);
}

TEST_F(ListWidgetTest, scrollsThroughTheWholeListByAskingForItsPagesOnly) {
    std::size_t asked = 0;
    QScrollBar& bar = *list_.verticalScrollBar();
    constexpr int kStops = 200;
    for (int stop = 0; stop <= kStops; ++stop) {
        rows_.asked.clear();
        bar.setValue(static_cast<int>(std::int64_t{bar.maximum()} * stop / kStops));
        test::WindowRig::settle();
        asked += rows_.asked.size();
    }
    EXPECT_LE(asked, (kStops + 1) * mostVisible());
    EXPECT_GE(asked, kStops * (mostVisible() - 1));
}

TEST_F(ListWidgetTest, pressesSelectAndDoubleClicksActivate) {
    QTest::mouseClick(list_.viewport(), Qt::LeftButton, Qt::ShiftModifier, middleOf(2));
    QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, middleOf(3));
    QTest::mouseDClick(list_.viewport(), Qt::LeftButton, {}, middleOf(3));
    QTest::mouseDClick(list_.viewport(), Qt::LeftButton, Qt::ControlModifier, middleOf(3));
    EXPECT_THAT(rows_.calls, ElementsAre("select 2 shift", "select 3", "activate 3"));
}

TEST_F(ListWidgetTest, theRightButtonKeepsASelectionThatItHits) {
    QTest::mouseClick(list_.viewport(), Qt::RightButton, {}, middleOf(1));
    QTest::mouseClick(list_.viewport(), Qt::RightButton, {}, middleOf(0));
    EXPECT_THAT(rows_.calls, ElementsAre("context 1", "select 0", "context 0"));
}

TEST_F(ListWidgetTest, aPressBelowTheLastRowChangesNothing) {
    rows_.count = 2;
    list_.refresh();
    QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, middleOf(3));
    QTest::mouseDClick(list_.viewport(), Qt::LeftButton, {}, middleOf(3));
    QTest::mouseClick(list_.viewport(), Qt::RightButton, {}, middleOf(3));
    EXPECT_TRUE(rows_.calls.empty());
}

TEST_F(ListWidgetTest, cursorKeysMoveAndEnterActivates) {
    QTest::keyClick(&list_, Qt::Key_Return);
    QTest::keyClick(&list_, Qt::Key_Down);
    QTest::keyClick(&list_, Qt::Key_Down);
    QTest::keyClick(&list_, Qt::Key_Up);
    QTest::keyClick(&list_, Qt::Key_Up);
    QTest::keyClick(&list_, Qt::Key_End);
    QTest::keyClick(&list_, Qt::Key_Enter);
    QTest::keyClick(&list_, Qt::Key_Home, Qt::ShiftModifier);
    QTest::keyClick(&list_, Qt::Key_PageDown);
    const auto page = static_cast<std::size_t>(list_.viewport()->height() / list_.rowHeight() - 1);
    EXPECT_THAT(rows_.calls,
                ElementsAre("select 0", "select 1", "select 0", "select 0", "select 99999",
                            "enter 99999", "select 0 shift", "select " + std::to_string(page)));
}

TEST_F(ListWidgetTest, deleteRemovesWhereRowsCanBeRemoved) {
    for (const bool removes : {true, false}) {
        rows_.removes = removes;
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Delete, {});
        QApplication::sendEvent(&list_, &event);
        EXPECT_EQ(event.isAccepted(), removes);
    }
    EXPECT_THAT(rows_.calls, ElementsAre("remove", "remove"));
}

TEST_F(ListWidgetTest, otherKeysGoOnToTheWindow) {
    for (const int key : {Qt::Key_X, Qt::Key_Left, Qt::Key_Right, Qt::Key_Space}) {
        QKeyEvent event(QEvent::KeyPress, key, {});
        QApplication::sendEvent(&list_, &event);
        EXPECT_FALSE(event.isAccepted()) << key;
    }
    rows_.count = 0;
    QTest::keyClick(&list_, Qt::Key_Down);
    EXPECT_TRUE(rows_.calls.empty());
}

TEST_F(ListWidgetTest, keysThatTheWindowClaimsGoOnToIt) {
    list_.leaveToWindow([](const KeyEvent& key) { return key.code == 0x2E; });
    for (const int key : {Qt::Key_Delete, Qt::Key_Down}) {
        QKeyEvent event(QEvent::KeyPress, key, {});
        QApplication::sendEvent(&list_, &event);
        EXPECT_EQ(event.isAccepted(), key == Qt::Key_Down);
    }
    EXPECT_THAT(rows_.calls, ElementsAre("select 0"));
}

TEST_F(ListWidgetTest, theKeyForMenusAsksAboutTheCurrentRowWhichComesIntoSight) {
    QKeyEvent without(QEvent::KeyPress, Qt::Key_Menu, {});
    QApplication::sendEvent(&list_, &without);
    EXPECT_FALSE(without.isAccepted()) << "no row, it is the window's";
    rows_.cursor = 50;
    QTest::keyClick(&list_, Qt::Key_Menu);
    EXPECT_TRUE(list_.viewport()->rect().contains(list_.cellPlace(50, 0)));
    QTest::keyClick(&list_, Qt::Key_F10, Qt::ShiftModifier);
    QTest::keyClick(&list_, Qt::Key_F10);
    EXPECT_THAT(rows_.calls, ElementsAre("context key 50", "context key 50"));
}

TEST_F(ListWidgetTest, theWheelStaysInTheListAlsoAtItsEnds) {
    for (const int turn : {120, -120, 120, 120}) {
        QWheelEvent event({5, 5}, list_.mapToGlobal(QPointF(5, 5)), {}, {0, turn}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        event.ignore();
        QApplication::sendEvent(list_.viewport(), &event);
        EXPECT_TRUE(event.isAccepted()) << turn;
    }
    EXPECT_EQ(list_.verticalScrollBar()->value(), 0);
}

TEST_F(ListWidgetTest, keysMayNotPointBeyondAListThatShrank) {
    rows_.cursor = 500;
    rows_.count = 10;
    list_.refresh();
    QTest::keyClick(&list_, Qt::Key_Return);
    EXPECT_TRUE(rows_.calls.empty());
    list_.scrollToRow(500);
    EXPECT_EQ(list_.verticalScrollBar()->value(), 0);
}

TEST_F(ListWidgetTest, scrollingToARowMovesAsLittleAsNeeded) {
    list_.scrollToRow(1);
    EXPECT_EQ(list_.verticalScrollBar()->value(), 0);
    list_.scrollToRow(50'000);
    const int bottom = (50'001 - static_cast<int>(mostVisible())) * list_.rowHeight();
    EXPECT_EQ(list_.verticalScrollBar()->value(), bottom);
    list_.scrollToRow(49'999);
    EXPECT_EQ(list_.verticalScrollBar()->value(), bottom);
    list_.scrollToRow(10);
    EXPECT_EQ(list_.verticalScrollBar()->value(), 10 * list_.rowHeight());
}

TEST_F(ListWidgetTest, aRowThatIsAskedForWhileTheListIsHiddenIsSeenOnceItShows) {
    list_.hide();
    list_.scrollToRow(50'000);
    list_.resize(160, 2 * kHeight);
    list_.show();
    EXPECT_EQ(list_.verticalScrollBar()->value(),
              (50'001 - 2 * kHeight / list_.rowHeight()) * list_.rowHeight());
    EXPECT_EQ(list_.viewport()->height(), 2 * kHeight);
}

TEST_F(ListWidgetTest, theLastRowInSightIsWholeOrAbsent) {
    const int rows = static_cast<int>(mostVisible());
    const int below = rows * list_.rowHeight();
    QScrollBar& bar = *list_.verticalScrollBar();
    for (const int value : {0, 3, list_.rowHeight() - 1, 777, bar.maximum() - 1, bar.maximum()}) {
        for (const int over : {0, 1, list_.rowHeight() - 1}) {
            list_.resize(160, below + over);
            test::WindowRig::settle();
            bar.setValue(value);
            rows_.asked.clear();
            const QImage shown = list_.grab().toImage();
            ASSERT_EQ(rows_.asked.size(), mostVisible()) << value << "+" << over;
            EXPECT_EQ(*rows_.asked.rbegin() - *rows_.asked.begin() + 1, mostVisible());
            const QColor ground = list_.palette().color(QPalette::Base);
            for (int y = below; y < below + over; ++y) {
                for (int x = 0; x < 100; ++x) {
                    ASSERT_EQ(shown.pixelColor(x, y), ground) << x << "," << y;
                }
            }
        }
    }
    EXPECT_EQ(*rows_.asked.rbegin(), rows_.count - 1) << "the end is reached";
    rows_.calls.clear();
    QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, QPoint(20, below + 3));
    EXPECT_TRUE(rows_.calls.empty());
}

TEST_F(ListWidgetTest, aPressBetweenTwoStopsOfTheBarChoosesTheRowThatIsSeen) {
    list_.verticalScrollBar()->setValue(7 * list_.rowHeight() - 2);
    rows_.asked.clear();
    static_cast<void>(list_.grab());
    EXPECT_EQ(*rows_.asked.begin(), 7U);
    QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, QPoint(20, 1));
    EXPECT_THAT(rows_.calls, ElementsAre("select 7"));
}

TEST_F(ListWidgetTest, rowsThatComeOneByOneArePaintedTogether) {
    class PaintCounter final : public QObject {
    public:
        int paints = 0;

        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    };

    PaintCounter counter;
    list_.viewport()->installEventFilter(&counter);
    const int before = list_.verticalScrollBar()->maximum();
    constexpr int kSoonMs = 50;
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < 4 * kSoonMs) {
        ++rows_.count;
        list_.rowsInserted(rows_.count - 1);
        QApplication::processEvents();
    }
    EXPECT_LE(counter.paints, time.elapsed() / kSoonMs + 1);
    const auto all = static_cast<int>(rows_.count) * list_.rowHeight();
    const int visible = static_cast<int>(mostVisible()) * list_.rowHeight();
    const auto allShown = [&] { return list_.verticalScrollBar()->maximum() == all - visible; };
    EXPECT_TRUE(QTest::qWaitFor(allShown));
    EXPECT_GT(list_.verticalScrollBar()->maximum(), before);
}

TEST_F(ListWidgetTest, oneRowIsPaintedAlone) {
    test::PaintWatch painted(*list_.viewport());
    list_.rowChanged(1);
    test::WindowRig::settle();
    EXPECT_EQ(painted.take(),
              QRegion(0, list_.rowHeight(), list_.viewport()->width(), list_.rowHeight()));
    EXPECT_THAT(rows_.asked, ElementsAre(1U));
    list_.rowChanged(70'000);
    test::WindowRig::settle();
    EXPECT_TRUE(painted.regions.empty());
}

TEST_F(ListWidgetTest, selectedAndMarkedRowsStandOut) {
    const QImage shown = list_.grab().toImage();
    const auto backOf = [&](int row) {
        return shown.pixelColor(1, row * list_.rowHeight() + list_.rowHeight() / 2);
    };
    EXPECT_NE(backOf(1), backOf(0));
    EXPECT_EQ(backOf(2), backOf(0));
    const auto looksLike = [&](int row, const QColor& colour) {
        for (int y = row * list_.rowHeight(); y < (row + 1) * list_.rowHeight(); ++y) {
            for (int x = 0; x < 60; ++x) {
                const QColor seen = shown.pixelColor(x, y);
                if (std::abs(seen.red() - colour.red()) < 60 &&
                    std::abs(seen.blue() - colour.blue()) < 60) {
                    return true;
                }
            }
        }
        return false;
    };
    const QColor amber(255, 180, 60);
    EXPECT_TRUE(looksLike(2, amber));
    EXPECT_FALSE(looksLike(0, amber));
}

} // namespace
} // namespace tovik::ui
