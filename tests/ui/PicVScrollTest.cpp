// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PicVScroll.h"

#include "support/host/RecordingDialogs.h"
#include "ui/ElementTable.h"

#include <array>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tovik::ui {
namespace {

enum class Name : std::uint16_t { ground, slider };

constexpr auto kLayout = std::to_array<ElementPlace<Name>>({
    {.name = Name::ground, .box = {0, 0, 100, 200}},
    {.name = Name::slider,
     .count = 2,
     .kind = ElementKind::Slider,
     .box = {10, 20, 13, 129},
     .stepLeft = 20,
     .barHeight = 9},
});

class PicVScrollTest : public testing::Test {
protected:
    PicVScrollTest() {
        slider_.Change = [this] { told_.push_back("change " + std::to_string(slider_.Value())); };
        slider_.RightClick = [this] { told_.emplace_back("right"); };
        slider_.MouseDown = [this](const PointerEvent& event) {
            told_.push_back("down at " + std::to_string(static_cast<int>(event.y)));
        };
    }

    static PointerEvent at(double y, MouseButton button = MouseButton::Left) {
        PointerEvent event;
        event.y = y;
        event.button = button;
        return event;
    }

    void press(double y) { slider_.mouseDown(at(y)); }

    void move(double y) { slider_.mouseMove(at(y, MouseButton::None)); }

    /// The top of the bar that the window draws.
    [[nodiscard]] double drawn() const { return table_.get(Name::slider, 1).bar.top; }

    void expectBox(const std::string& text) {
        ASSERT_EQ(dialogs_.boxes.size(), 1U);
        EXPECT_EQ(dialogs_.boxes[0].text, text);
        EXPECT_EQ(dialogs_.boxes[0].title, "Error");
        EXPECT_EQ(dialogs_.boxes[0].icon, host::MessageIcon::Exclamation);
        EXPECT_EQ(dialogs_.boxes[0].buttons, host::MessageButtons::Ok);
    }

    ElementTable<Name> table_{kLayout};
    tovik::test::RecordingDialogs dialogs_;
    std::vector<std::string> told_;
    PicVScroll slider_{table_, addressOf(Name::slider, 1), dialogs_,
                       SliderRange{.Min = 0, .Max = 20, .Value = 10}};
};

using Lines = std::vector<std::string>;

TEST_F(PicVScrollTest, theBarStandsWhereTheValueIs) {
    slider_.DrawBar(true);
    EXPECT_EQ(drawn(), 60);
    EXPECT_EQ(table_.get(Name::slider, 0).bar.top, 0);
    for (const auto& [value, top] : {std::pair{0, 0}, {1, 6}, {19, 114}, {20, 120}}) {
        slider_.Value(value);
        EXPECT_EQ(slider_.BarTop(), top);
        EXPECT_EQ(drawn(), top);
    }
}

TEST_F(PicVScrollTest, aValueThatIsSetIsToldAlsoWhenItIsTheSame) {
    slider_.Value(3);
    slider_.Value(3);
    EXPECT_EQ(told_, (Lines{"change 3", "change 3"}));
}

TEST_F(PicVScrollTest, aValueOutsideTheLimitsIsRefused) {
    for (const int value : {-1, 21}) {
        slider_.Value(value);
        expectBox("Value exceeds limits!");
        dialogs_.boxes.clear();
    }
    EXPECT_EQ(slider_.Value(), 10);
    EXPECT_TRUE(told_.empty());
}

TEST_F(PicVScrollTest, aMaximumBelowTheValueIsRefused) {
    slider_.Max(9);
    expectBox("Maximum exceeds value!");
    EXPECT_EQ(slider_.Max(), 20);
    slider_.Max(10);
    EXPECT_EQ(slider_.Max(), 10);
    EXPECT_EQ(dialogs_.boxes.size(), 1U);
}

TEST_F(PicVScrollTest, aMinimumAboveTheValueIsRefused) {
    slider_.Min(11);
    expectBox("Minimum exceeds value!");
    EXPECT_EQ(slider_.Min(), 0);
    slider_.Min(10);
    EXPECT_EQ(slider_.Min(), 10);
    EXPECT_EQ(dialogs_.boxes.size(), 1U);
}

TEST_F(PicVScrollTest, aPressBringsTheMiddleOfTheBarUnderThePointer) {
    press(40.9); // pixel 40: 40 - 4.5 is 35.5, to the even neighbour
    EXPECT_EQ(slider_.BarTop(), 36);
    EXPECT_EQ(drawn(), 36);
    EXPECT_EQ(slider_.Value(), 6);
    EXPECT_EQ(told_, (Lines{"change 6", "down at 40"}));
}

TEST_F(PicVScrollTest, theLowestHalfBarIsTheVeryBottom) {
    press(125); // above 129 - 4.5
    EXPECT_EQ(slider_.BarTop(), 120);
    EXPECT_EQ(slider_.Value(), 20);
    press(124);
    EXPECT_EQ(slider_.BarTop(), 120) << "119.5, to the even neighbour";
    press(123);
    EXPECT_EQ(slider_.BarTop(), 118);
}

TEST_F(PicVScrollTest, theUpperHalfBarIsTheTop) {
    press(4);
    EXPECT_EQ(slider_.BarTop(), 0);
    EXPECT_EQ(slider_.Value(), 0);
    press(7);
    EXPECT_EQ(slider_.BarTop(), 2);
}

TEST_F(PicVScrollTest, everyValueCanBeReachedByTheMouse) {
    for (int value = 0; value <= 20; ++value) {
        press(6 * value + 4.5);
        EXPECT_EQ(slider_.Value(), value);
    }
}

TEST_F(PicVScrollTest, theBarFollowsOnlyWhileItIsHeld) {
    move(100);
    EXPECT_TRUE(told_.empty());
    press(4);
    EXPECT_TRUE(slider_.Dragging());
    move(64);
    EXPECT_EQ(slider_.Value(), 10);
    move(-500);
    EXPECT_EQ(slider_.Value(), 0);
    move(500);
    EXPECT_EQ(slider_.Value(), 20);
    slider_.mouseUp(at(500));
    EXPECT_FALSE(slider_.Dragging());
    move(4);
    EXPECT_EQ(slider_.Value(), 20);
    EXPECT_EQ(told_, (Lines{"change 0", "down at 4", "change 10", "change 0", "change 20"}));
}

TEST_F(PicVScrollTest, aMoveOfTheMouseLeavesTheBarWhereItWasPut) {
    press(42);
    EXPECT_EQ(slider_.BarTop(), 38) << "not 36, where the value 6 belongs";
    EXPECT_EQ(slider_.Value(), 6);
    slider_.DrawBar(false);
    EXPECT_EQ(drawn(), 38);
    slider_.DrawBar(true);
    EXPECT_EQ(drawn(), 36);
}

TEST_F(PicVScrollTest, theRightButtonIsOnlyTold) {
    slider_.mouseDown(at(4, MouseButton::Right));
    EXPECT_FALSE(slider_.Dragging());
    EXPECT_EQ(slider_.Value(), 10);
    EXPECT_EQ(told_, Lines{"right"});
}

TEST_F(PicVScrollTest, aRangeOfOneValueStaysAtIt) {
    slider_.DrawBar(true);
    slider_.Max(10);
    slider_.Min(10);
    slider_.Value(10);
    EXPECT_EQ(slider_.BarTop(), 60) << "nothing can be said of its place";
    press(4);
    EXPECT_EQ(slider_.Value(), 10);
    EXPECT_EQ(slider_.BarTop(), 0);
    EXPECT_TRUE(dialogs_.boxes.empty());
    EXPECT_EQ(told_, (Lines{"change 10", "change 10", "down at 4"}));
}

TEST_F(PicVScrollTest, aBackAsHighAsItsBarKeepsTheValue) {
    slider_.Bar({}, 129);
    press(64);
    EXPECT_EQ(slider_.Value(), 10);
    EXPECT_EQ(slider_.BarTop(), 0);
    EXPECT_EQ(told_, (Lines{"change 10", "down at 64"}));
}

TEST_F(PicVScrollTest, aPlaceTooFarAwayKeepsTheBar) {
    slider_.DrawBar(true);
    table_.touch(Name::slider, 1).height = 1e12;
    slider_.MouseDown = nullptr;
    press(5e11);
    EXPECT_EQ(slider_.BarTop(), 60);
    EXPECT_TRUE(slider_.Dragging());
    EXPECT_EQ(told_, Lines{"change 0"});
}

TEST_F(PicVScrollTest, theWidestRangeIsComputedWithoutOverflow) {
    slider_.Value(0);
    slider_.Max(2147483647);
    press(128);
    EXPECT_EQ(slider_.Value(), 2147483647);
}

TEST_F(PicVScrollTest, picturesGoToTheElementAndANewBarIsPlacedAnew) {
    slider_.Bar({.number = 3, .version = 1}, 29);
    EXPECT_EQ(table_.get(Name::slider, 1).bar,
              (SliderBar{.top = 50, .height = 29, .picture = {.number = 3, .version = 1}}));
    EXPECT_EQ(slider_.Bar().height, 29);
    slider_.Picture({.number = 4, .version = 1});
    EXPECT_EQ(table_.get(Name::slider, 1).picture.number, 4U);
    EXPECT_EQ(slider_.Picture().number, 4U);
    slider_.BackColor(Colour{1, 2, 3});
    EXPECT_EQ(table_.get(Name::slider, 1).backColour, (Colour{1, 2, 3}));
    EXPECT_EQ(slider_.BackColor(), (Colour{1, 2, 3}));
}

TEST_F(PicVScrollTest, withoutListenersItMovesAllTheSame) {
    PicVScroll quiet{table_, addressOf(Name::slider), dialogs_, {.Min = 0, .Max = 20, .Value = 0}};
    quiet.Value(20);
    quiet.mouseDown(at(4));
    quiet.mouseDown(at(4, MouseButton::Right));
    EXPECT_EQ(quiet.Value(), 0);
}

} // namespace
} // namespace tovik::ui
