// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/ImgScroller.h"

#include "support/host/TestHost.h"

#include <gmock/gmock.h>

namespace tovik::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ImgScrollerTest : public testing::Test {
protected:
    tovik::test::TestHost host;
    std::vector<std::u32string> drawn;
    ImgScroller scroller{host.clock,
                         [this](std::u32string_view text) { drawn.emplace_back(text); }};
};

TEST_F(ImgScrollerTest, nothingMovesBeforeThereIsAText) {
    host.clock.advanceTo(1000);
    EXPECT_THAT(drawn, IsEmpty());
}

TEST_F(ImgScrollerTest, movesOneCharacterEvery200Ms) {
    scroller.setText("ab");
    EXPECT_THAT(drawn, ElementsAre(U"ab***"));
    host.clock.advanceTo(199);
    EXPECT_EQ(drawn.size(), 1U);
    host.clock.advanceTo(200);
    EXPECT_EQ(drawn.back(), U"b***a");
    host.clock.advanceTo(1000);
    EXPECT_THAT(drawn, ElementsAre(U"ab***", U"b***a", U"***ab", U"**ab*", U"*ab**", U"ab***"));
}

TEST_F(ImgScrollerTest, aTextThatIsHeldStandsStillUntilTheNextOne) {
    scroller.setText("ab");
    host.clock.advanceTo(200);
    scroller.hold();
    host.clock.advanceTo(2000);
    EXPECT_EQ(drawn.back(), U"b***a");
    EXPECT_EQ(drawn.size(), 2U);
    scroller.setText("cd");
    host.clock.advanceTo(2200);
    EXPECT_EQ(drawn.back(), U"d***c");
}

TEST_F(ImgScrollerTest, aNewTextBeginsAnewWithAFullInterval) {
    scroller.setText("ab");
    host.clock.advanceTo(300);
    scroller.setText("M\xF6");
    EXPECT_EQ(drawn.back(), U"M\u00F6***");
    drawn.clear();
    host.clock.advanceTo(499);
    EXPECT_THAT(drawn, IsEmpty());
    host.clock.advanceTo(500);
    EXPECT_THAT(drawn, ElementsAre(U"\u00F6***M"));
}

TEST_F(ImgScrollerTest, lettersWithMarksBecomePlainOnesBeforeTheyMove) {
    scroller.setText("\u010Da\u00DF");
    host.clock.advanceTo(600);
    EXPECT_THAT(drawn, ElementsAre(U"cass***", U"ass***c", U"ss***ca", U"s***cas"));
}

TEST_F(ImgScrollerTest, otherAlphabetsMoveAsTheyAre) {
    scroller.setText("\u0416\u010D");
    EXPECT_EQ(drawn.back(), U"\u0416\u010D***");
}

TEST_F(ImgScrollerTest, anEmptyTextIsItsSeparator) {
    scroller.setText("");
    host.clock.advanceTo(600);
    EXPECT_THAT(drawn, ElementsAre(U"***", U"***", U"***", U"***"));
}

} // namespace
} // namespace tovik::ui
