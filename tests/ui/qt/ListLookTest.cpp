// SPDX-License-Identifier: GPL-3.0-or-later
// Colours, columns and the scroll bar of a list.
#include "support/ui/Contrast.h"
#include "ui/qt/ListWidget.h"
#include "window/MainRows.h"
#include "WindowRig.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QToolTip>

#include <set>

namespace tovik::ui {
namespace {

constexpr ListColours kColours{
    .BackgroundColor = {1, 0, 0},
    .BackgroundTimeColor = Colour{2, 0, 0},
    .TitleTextColor = {255, 0, 0},
    .TimeTextColor = {0, 255, 0},
    .SelectedTitleTextColor = {0, 0, 255},
    .SelectedTimeTextColor = {255, 255, 0},
    .PlayedTitleTextColor = {0, 255, 255},
    .PlayedTimeTextColor = {255, 0, 255},
    .SelectedTitleBackColor = Colour{3, 0, 0},
    .SelectedTimeBackColor = Colour{4, 0, 0},
    .PlayedTitleBackColor = Colour{7, 0, 0},
    .PlayedTimeBackColor = Colour{8, 0, 0},
    .SelectedBorderColor = Colour{5, 0, 0},
    .PlayedBorderColor = Colour{6, 0, 0},
};

class ColouredRows final : public ListModel, public ListInput {
public:
    std::size_t count = 5;
    std::set<std::size_t> chosen;
    std::size_t played = 3;
    std::string title = "HHHH";
    std::string time = "01:23";

    [[nodiscard]] std::size_t rows() const override { return count; }

    [[nodiscard]] std::string text(std::size_t /*row*/) const override { return title; }

    [[nodiscard]] std::string numberText(std::size_t row) const override {
        return std::to_string(row + 1) + ". ";
    }

    [[nodiscard]] std::string timeText(std::size_t /*row*/) const override { return time; }

    [[nodiscard]] std::optional<std::size_t> current() const override { return std::nullopt; }

    [[nodiscard]] bool selected(std::size_t row) const override { return chosen.contains(row); }

    [[nodiscard]] bool marked(std::size_t row) const override { return row == played; }

    void selectRow(std::size_t /*row*/, Modifiers /*modifiers*/) override {}

    void activateRow(std::size_t /*row*/) override {}
};

class ListLookTest : public testing::Test {
protected:
    static constexpr int kWidth = 300;
    static constexpr int kHeight = 120;
    static constexpr int kInTime = kWidth - 3;

    ColouredRows rows_;
    host::Dispatcher dispatcher_;
    ListWidget list_{rows_, rows_, dispatcher_};

    void SetUp() override {
        list_.setColours(kColours);
        list_.showTimes();
        list_.resize(kWidth, kHeight);
        list_.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&list_));
        test::WindowRig::settle();
    }

    [[nodiscard]] QImage shown() { return list_.grab().toImage(); }

    [[nodiscard]] int top(int row) const { return row * list_.rowHeight(); }

    /// The tooltip over the second row.
    [[nodiscard]] QString ask() {
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
        QHelpEvent help(QEvent::ToolTip, QPoint(20, top(1) + 3),
                        list_.viewport()->mapToGlobal(QPoint(20, top(1) + 3)));
        QApplication::sendEvent(list_.viewport(), &help);
        return QToolTip::text();
    }

    /// Whether letters of that colour stand in the row, between two places from the left.
    [[nodiscard]] bool hasInk(int row, QColor colour, int from, int to) {
        const QImage image = shown();
        for (int y = top(row); y < top(row + 1); ++y) {
            for (int x = from; x < to; ++x) {
                const QColor seen = image.pixelColor(x, y);
                if (std::abs(seen.red() - colour.red()) < 80 &&
                    std::abs(seen.green() - colour.green()) < 80 &&
                    std::abs(seen.blue() - colour.blue()) < 80) {
                    return true;
                }
            }
        }
        return false;
    }
};

TEST_F(ListLookTest, eachPartOfARowHasItsColour) {
    rows_.chosen = {1};
    const QImage image = shown();
    const auto backs = [&](int row) {
        return std::pair(image.pixelColor(1, top(row) + 2).red(),
                         image.pixelColor(kInTime, top(row) + 2).red());
    };
    EXPECT_EQ(backs(0), std::pair(1, 2));
    EXPECT_EQ(backs(1), std::pair(3, 4));
    EXPECT_EQ(backs(3), std::pair(7, 8));
    const int column = kWidth - 30;
    EXPECT_TRUE(hasInk(0, {255, 0, 0}, 0, column));
    EXPECT_TRUE(hasInk(0, {0, 255, 0}, column - 20, kWidth));
    EXPECT_FALSE(hasInk(0, {0, 255, 0}, 0, kWidth / 2)) << "times stand on the right";
    EXPECT_TRUE(hasInk(1, {0, 0, 255}, 0, column));
    EXPECT_TRUE(hasInk(1, {255, 255, 0}, column - 20, kWidth));
    EXPECT_TRUE(hasInk(3, {0, 255, 255}, 0, column));
    EXPECT_TRUE(hasInk(3, {255, 0, 255}, column - 20, kWidth));
}

TEST_F(ListLookTest, selectedRowsThatFollowEachOtherLookLikeOneBlock) {
    rows_.chosen = {1, 2};
    const QImage image = shown();
    const auto redAt = [&](int y) { return image.pixelColor(150, y).red(); };
    EXPECT_EQ(redAt(top(1)), 5);
    EXPECT_EQ(redAt(top(2) - 1), 3);
    EXPECT_EQ(redAt(top(2)), 3);
    EXPECT_EQ(redAt(top(3) - 1), 5);
}

TEST_F(ListLookTest, theRowThatPlaysHasABorderAllAround) {
    const QImage image = shown();
    const int middle = (top(3) + top(4)) / 2;
    EXPECT_EQ(image.pixelColor(150, top(3)).red(), 6);
    EXPECT_EQ(image.pixelColor(150, top(4) - 1).red(), 6);
    EXPECT_EQ(image.pixelColor(0, middle).red(), 6);
    EXPECT_EQ(image.pixelColor(kWidth - 1, middle).red(), 6);
    EXPECT_EQ(image.pixelColor(0, top(2) + 2).red(), 1);
}

TEST_F(ListLookTest, theRowThatPlaysIsToldAlsoWhileItIsSelected) {
    rows_.chosen = {3};
    const QImage image = shown();
    EXPECT_EQ(image.pixelColor(1, top(3) + 2).red(), 3) << "it is selected";
    EXPECT_EQ(image.pixelColor(kInTime, top(3) + 2).red(), 8) << "it plays";
    EXPECT_TRUE(hasInk(3, {0, 255, 255}, 0, kWidth / 2));
    EXPECT_FALSE(hasInk(3, {0, 0, 255}, 0, kWidth / 2));
}

TEST_F(ListLookTest, withoutColoursOfItsOwnAllWordsStandOutFromWhatIsBehindThem) {
    ListWidget plain(rows_, rows_, dispatcher_);
    QPalette palette = plain.palette();
    palette.setColor(QPalette::Base, QColor(window::rows::kInk.red, window::rows::kInk.green,
                                            window::rows::kInk.blue));
    palette.setColor(QPalette::Text, Qt::white);
    plain.setPalette(palette);
    for (const test::ColourPair& pair : test::pairsOf(plain.colours())) {
        EXPECT_GE(test::contrast(pair.text, pair.back), 4.5) << pair.what;
    }
    EXPECT_GE(test::contrast(hintColour(plain.colours()), plain.colours().BackgroundColor), 4.5);
}

TEST_F(ListLookTest, anEmptyListHasNoColumn) {
    rows_.count = 0;
    EXPECT_EQ(shown().pixelColor(kInTime, 3).red(), 1);
}

TEST_F(ListLookTest, ownColoursStayWhenThePaletteChanges) {
    QPalette palette = list_.palette();
    palette.setColor(QPalette::Base, Qt::green);
    list_.setPalette(palette);
    EXPECT_EQ(shown().pixelColor(1, top(0) + 2), QColor(1, 0, 0));
}

TEST_F(ListLookTest, aTimeOfHoursIsNotCutButTakesRoomFromTheTitle) {
    const int column = list_.cellPlace(0, 1).left();
    constexpr QColor kTime(0, 255, 0);
    EXPECT_FALSE(hasInk(0, kTime, 0, column));
    rows_.title = std::string(200, 'H');
    rows_.time = "11:22:33";
    list_.refresh();
    EXPECT_TRUE(hasInk(0, kTime, column - 20, column));
    EXPECT_FALSE(hasInk(0, {255, 0, 0}, column - 2, column)) << "the title ends before it";
}

TEST_F(ListLookTest, aTitleThatFitsIsWholeUntilTheListIsTooNarrowForIt) {
    rows_.title = std::string(20, 'H');
    const auto redAtTheEnd = [this] {
        const int column = list_.cellPlace(0, 1).left();
        return hasInk(0, {255, 0, 0}, column - 24, column);
    };
    EXPECT_FALSE(redAtTheEnd());
    EXPECT_EQ(ask(), QString());
    list_.resize(120, kHeight);
    test::WindowRig::settle();
    EXPECT_TRUE(redAtTheEnd()) << "dots say that there is more";
    EXPECT_EQ(ask(), QString(20, QLatin1Char('H')));
    list_.resize(kWidth, kHeight);
    test::WindowRig::settle();
    EXPECT_EQ(ask(), QString());
}

TEST_F(ListLookTest, aTitleThatIsCutIsToldByATooltip) {
    EXPECT_EQ(ask(), QString());
    rows_.title = "<b>" + std::string(60, 'H');
    EXPECT_EQ(ask(), QString::fromStdString("&lt;b&gt;" + std::string(60, 'H')));
    rows_.title = std::string(60, 'H') + " " + std::string(60, 'I');
    EXPECT_EQ(ask(), QString::fromStdString(std::string(60, 'H') + " \n" + std::string(60, 'I')));
    rows_.title = std::string(65536, 'H');
    EXPECT_EQ(ask().count(QLatin1Char('H')), 4000) << "a line of a list may be no title at all";
    QToolTip::hideText();
}

TEST_F(ListLookTest, theScrollBarShowsWhileItIsNeededOrWanted) {
    EXPECT_FALSE(list_.verticalScrollBar()->isVisible());
    list_.AlwaysShowScroller(true);
    EXPECT_TRUE(list_.verticalScrollBar()->isVisible());
    list_.AlwaysShowScroller(false);
    EXPECT_FALSE(list_.verticalScrollBar()->isVisible());
    rows_.count = 100;
    list_.refresh();
    test::WindowRig::settle();
    EXPECT_TRUE(list_.verticalScrollBar()->isVisible());
}

} // namespace
} // namespace tovik::ui
