// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/ListRows.h"

#include "support/ui/Contrast.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::Optional;

class ListRowsTest : public testing::Test, private playlist::ListEvents {
protected:
    playlist::stdSS list_;
    window::ListRows rows_{list_};
    std::vector<int> played_; ///< the selected row at each `Play`
    int again_ = 0;
    int asked_ = 0;

    void SetUp() override {
        list_.setEvents(this);
        for (const char* title : {"One", "Two", "Three", "Four", "Five"}) {
            list_.AddItem("", "x.mp3", title, "01:05", 65);
        }
    }

    void press(std::size_t row, ui::Modifiers modifiers = {}) { rows_.selectRow(row, modifiers); }

    [[nodiscard]] std::vector<int> selected() const {
        std::vector<int> found;
        for (std::size_t row = 0; row < rows_.rows(); ++row) {
            if (rows_.selected(row)) {
                found.push_back(static_cast<int>(row));
            }
        }
        return found;
    }

private:
    void Play(const std::string& /*ItemData*/) override { played_.push_back(list_.SelectedIndex); }

    void PlayedAgain() override { ++again_; }

    void ContextClick() override { ++asked_; }
};

TEST_F(ListRowsTest, aRowShowsItsNumberItsTitleAndItsTime) {
    EXPECT_EQ(rows_.rows(), 5U);
    EXPECT_EQ(rows_.numberText(4), "5. ");
    EXPECT_EQ(rows_.text(4), "Five");
    EXPECT_EQ(rows_.timeText(4), "01:05");
    EXPECT_EQ(rows_.current(), std::nullopt);
}

TEST(ListColours, allWordsStandOutFromWhatIsBehindThem) {
    const std::vector<ui::test::ColourPair> pairs = ui::test::pairsOf(window::kListColours);
    ASSERT_EQ(pairs.size(), 8U);
    for (const ui::test::ColourPair& pair : pairs) {
        EXPECT_GE(ui::test::contrast(pair.text, pair.back), 4.5) << pair.what;
    }
}

TEST(ListColours, theGroundIsNoGlareAndTitlesStandOutFromIt) {
    const ui::ListColours& colours = window::kListColours;
    const ui::Colour ground = colours.BackgroundColor;
    for (const ui::Colour text :
         {colours.TitleTextColor, colours.SelectedTitleTextColor, colours.PlayedTitleTextColor}) {
        EXPECT_GE(ui::test::contrast(text, ground), 7);
    }
    // Not white, and not so dark that it were no light area any more.
    const ui::Colour white{255, 255, 255};
    EXPECT_GE(ui::test::contrast(white, ground), 1.3);
    EXPECT_LE(ui::test::contrast(white, ground), 2);
    EXPECT_GE(ui::test::contrast(ground, *colours.SelectedTitleBackColor), 1.4);
}

TEST(ListColours, theQuietWordsOfAnEmptyListCanBeReadAndAreQuieter) {
    const ui::ListColours& colours = window::kListColours;
    const double quiet = ui::test::contrast(ui::hintColour(colours), colours.BackgroundColor);
    EXPECT_GE(quiet, 4.5);
    EXPECT_LT(quiet, ui::test::contrast(colours.TitleTextColor, colours.BackgroundColor));
}

TEST(ListColours, theRowThatPlaysIsSeenAtAGlance) {
    // Another hue than all other rows: warm, where they are grey, blue or white.
    const auto warmth = [](ui::Colour colour) { return colour.red - colour.blue; };
    for (const bool selected : {false, true}) {
        const ui::RowColours played = ui::rowColours(window::kListColours, selected, true);
        const ui::RowColours other = ui::rowColours(window::kListColours, selected, false);
        EXPECT_GT(warmth(played.timeBack), warmth(other.timeBack) + 150) << selected;
    }
    EXPECT_GT(warmth(ui::rowColours(window::kListColours, false, true).titleBack), 100);
}

TEST_F(ListRowsTest, whoAsksHearsOfEachRowThatIsDrawn) {
    std::vector<playlist::Row> seen;
    rows_.tellSeen([&](playlist::Row row) { seen.push_back(row); });
    static_cast<void>(rows_.timeText(1));
    EXPECT_THAT(seen, testing::ElementsAre(2));
}

TEST_F(ListRowsTest, aPressSelectsOneRowShiftARangeAndCtrlOneMoreOrLess) {
    press(1);
    EXPECT_EQ(list_.SelectedIndex, 2);
    EXPECT_THAT(rows_.current(), Optional(1U));
    press(3, {.shift = true});
    EXPECT_THAT(selected(), ElementsAre(1, 2, 3));
    press(2, {.control = true});
    EXPECT_THAT(selected(), ElementsAre(1, 3));
    press(4, {.shift = true, .control = true});
    EXPECT_THAT(selected(), ElementsAre(1, 3, 4));
    EXPECT_EQ(list_.SelectedIndex, 2);
    press(0);
    EXPECT_THAT(selected(), ElementsAre(0));
    EXPECT_FALSE(list_.ModifierHeld);
}

TEST_F(ListRowsTest, aPressOnTheSelectedRowKeepsAMultipleSelection) {
    press(1);
    press(3, {.shift = true});
    press(1);
    EXPECT_THAT(selected(), ElementsAre(1, 2, 3));
}

TEST_F(ListRowsTest, aDoubleClickStartsTheRowAndTheFirstTimeAlsoAnew) {
    list_.SilentMove = true;
    press(2);
    rows_.activateRow(2);
    EXPECT_THAT(played_, ElementsAre(3));
    EXPECT_TRUE(rows_.marked(2));
    EXPECT_FALSE(rows_.marked(1));
    rows_.activateRow(2);
    rows_.activateRow(2);
    EXPECT_THAT(played_, ElementsAre(3, 3));
    EXPECT_EQ(again_, 1);
}

TEST_F(ListRowsTest, enterStartsTheSelectedRowAndEndsAMultipleSelection) {
    press(1);
    press(3, {.shift = true});
    rows_.enterRow(1);
    EXPECT_THAT(played_, ElementsAre(2));
    EXPECT_THAT(selected(), ElementsAre(1));
    EXPECT_FALSE(list_.MultiActive());
}

TEST_F(ListRowsTest, aRowThatIsAskedAboutBecomesTheSelectedOneAndTheSelectionStays) {
    press(1);
    press(3, {.shift = true});
    rows_.contextRow(2);
    EXPECT_EQ(list_.SelectedIndex, 3);
    EXPECT_THAT(selected(), ElementsAre(1, 2, 3));
}

TEST_F(ListRowsTest, theOwnerHearsOfAClickThatAsks) {
    rows_.contextRow(2);
    EXPECT_EQ(asked_, 1);
    rows_.contextNowhere();
    EXPECT_EQ(asked_, 2);
    EXPECT_EQ(list_.SelectedIndex, 3);
}

TEST_F(ListRowsTest, heldModifiersAreKept) {
    rows_.holdModifiers({.shift = true});
    EXPECT_TRUE(list_.ModifierHeld);
    EXPECT_EQ(list_.ModifierMask, playlist::stdSS::kShiftMask);
    rows_.holdModifiers({.control = true});
    EXPECT_TRUE(list_.ModifierHeld);
    EXPECT_EQ(list_.ModifierMask, 2);
    rows_.holdModifiers({});
    EXPECT_FALSE(list_.ModifierHeld);
    EXPECT_EQ(list_.ModifierMask, 0);
}

TEST_F(ListRowsTest, aMovedRowIsSelectedAtItsNewPlaceAndStartsNothing) {
    ASSERT_TRUE(rows_.movesRows());
    rows_.moveRow(0, 3);
    EXPECT_EQ(rows_.text(2), "One");
    EXPECT_THAT(rows_.current(), Optional(2U));
    rows_.moveRow(4, 0);
    EXPECT_EQ(rows_.text(0), "Five");
    EXPECT_THAT(selected(), ElementsAre(0));
    EXPECT_TRUE(played_.empty());
}

TEST_F(ListRowsTest, deleteRemovesTheSelectedRowOrAllThatAreMarked) {
    press(1);
    EXPECT_TRUE(rows_.removeRows());
    EXPECT_EQ(rows_.rows(), 4U);
    EXPECT_TRUE(rows_.removeRows()) << "nothing is selected any more";
    EXPECT_EQ(rows_.rows(), 4U);
    press(0);
    press(2, {.control = true});
    rows_.removeRows();
    EXPECT_EQ(rows_.rows(), 2U);
    EXPECT_EQ(rows_.text(0), "Three");
    EXPECT_EQ(rows_.text(1), "Five");
}

TEST_F(ListRowsTest, withItsSwitchTimesHaveOneForm) {
    base::Comfort comfort;
    rows_.obey(comfort);
    list_.RefreshTime(2, 66, "00:01:06");
    list_.RefreshTime(3, 3725, "01:02:05");
    list_.AddItem("", "x.mp3", "Six", "?", 0);
    EXPECT_EQ(rows_.timeText(1), "00:01:06");
    comfort.showsOneFormOfTime = true;
    EXPECT_EQ(rows_.timeText(0), "01:05");
    EXPECT_EQ(rows_.timeText(1), "01:06");
    EXPECT_EQ(rows_.timeText(2), "1:02:05");
    EXPECT_EQ(rows_.timeText(5), "?") << "a length that nobody knows";
}

TEST_F(ListRowsTest, withItsSwitchARowThatCannotBePlayedIsMarked) {
    base::Comfort comfort;
    rows_.obey(comfort);
    list_.setUnplayable(2, true);
    EXPECT_EQ(rows_.timeText(1), "01:05");
    comfort.skipsUnplayable = true;
    EXPECT_EQ(rows_.timeText(1), window::kUnplayableMark);
    EXPECT_EQ(rows_.timeText(0), "01:05");
}

} // namespace
} // namespace tovik::test
