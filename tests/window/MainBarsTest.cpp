// SPDX-License-Identifier: GPL-3.0-or-later
// The mouse on the bars, as it comes from the window.
#include "window/InputRig.h"

namespace tovik::test {
namespace {

using testing::IsEmpty;
using ui::MouseButton;
using window::MainElement;

class Bars : public InputRig {
protected:
    Bars() {
        burn(track("a.mp3", {.seconds = 249}));
        sound_.calls.clear();
    }

    /// A place of the position bar, `x` pixels from its left edge.
    [[nodiscard]] ui::PointerEvent onPosition(MainElement part, double x) const {
        const ui::Box box = elements_.get(MainElement::posbar).box();
        return event(part, 0, box.left + x, box.top + 3);
    }

    [[nodiscard]] ui::PointerEvent onVolume(MainElement part, double y) const {
        const ui::Box box = elements_.get(MainElement::volbar).box();
        return event(part, 0, box.left + 5, box.top + y);
    }

    [[nodiscard]] std::int32_t position() { return time_.GetPlayingPos(state_.active()); }
};

TEST_F(Bars, aClickOnThePositionBarSeeks) {
    input_.mouseDown(onPosition(MainElement::posbar, 83));
    EXPECT_FALSE(clock_.watchesTrack());
    input_.mouseUp(onPosition(MainElement::posbar, 83));
    EXPECT_EQ(position(), 83); // the bar is 250 pixels wide
}

TEST_F(Bars, theMarkIsDraggedInTheBarsOwnPlaces) {
    input_.mouseDown(onPosition(MainElement::track, 4));
    input_.mouseMove(dragged(onPosition(MainElement::track, 100)));
    EXPECT_EQ(view_.last.time, "01:40");
    input_.mouseUp(onPosition(MainElement::track, 400));
    EXPECT_EQ(position(), 249);
}

TEST_F(Bars, withoutTheButtonAMoveChangesNothing) {
    input_.mouseMove(event(MainElement::posbar, 0, 100, 180, MouseButton::None));
    input_.mouseMove(event(MainElement::volbar, 0, 100, 220, MouseButton::None));
    input_.mouseMove(event(MainElement::balbar, 2, 200, 220, MouseButton::None));
    EXPECT_TRUE(clock_.watchesTrack());
    EXPECT_EQ(state_.CurrentVolume, 80);
    EXPECT_FALSE(playing_.balanceHover);
    EXPECT_THAT(sound_.calls, IsEmpty());
}

TEST_F(Bars, theVolumeBarAndItsFillAreOne) {
    input_.mouseDown(onVolume(MainElement::volbar, 6));
    EXPECT_EQ(state_.CurrentVolume, 26); // the last of the bar's 24 pixels is all of it
    input_.mouseMove(dragged(onVolume(MainElement::volbarIMG, 12)));
    EXPECT_EQ(state_.CurrentVolume, 52);
    input_.mouseMove(dragged(onVolume(MainElement::volbar, -9)));
    EXPECT_EQ(state_.CurrentVolume, 0);
    input_.mouseDown(onVolume(MainElement::volbarIMG, 18));
    EXPECT_EQ(state_.CurrentVolume, 78);
    input_.mouseDown(onVolume(MainElement::volbar, 23));
    EXPECT_EQ(state_.CurrentVolume, 100);
}

TEST_F(Bars, aVolumeInChannelModeCentresTheSoundAndLeavesTheLamps) {
    click(MainElement::balbar, 8);
    EXPECT_EQ(sound_.channel(state_.PrimaryChannel).pan, 100);
    input_.mouseDown(onVolume(MainElement::volbar, 12));
    EXPECT_EQ(sound_.channel(state_.PrimaryChannel).pan, 0);
    EXPECT_EQ(state_.BalanceValue, 100);
    EXPECT_TRUE(elements_.get(MainElement::balbar, 8).checked);
}

TEST_F(Bars, aClickOnALampSetsTheBalanceWhenItIsReleased) {
    input_.mouseDown(at(MainElement::balbar, 6));
    EXPECT_EQ(state_.BalanceValue, -25);
    input_.mouseUp(at(MainElement::balbar, 6));
    EXPECT_EQ(state_.BalanceValue, 50);
}

TEST_F(Bars, thePointerHeldOverTheLampsTellsTheirSteps) {
    balanceBar_.showStartText();
    input_.mouseDown(at(MainElement::balbar, 0));
    input_.mouseMove(dragged(at(MainElement::balbar, 0)));
    EXPECT_TRUE(playing_.balanceHover);
    EXPECT_EQ(playing_.hoverText, "Left 100%");
    // The pressed lamp keeps the pointer; the words follow the place.
    ui::PointerEvent over = dragged(at(MainElement::balbar, 7));
    over.element = ui::addressOf(MainElement::balbar, 0);
    input_.mouseMove(over);
    EXPECT_EQ(playing_.hoverText, "Right 75%");
    over.button = MouseButton::Left;
    input_.mouseUp(over);
    EXPECT_FALSE(playing_.balanceHover);
    EXPECT_EQ(state_.BalanceValue, 75);
    EXPECT_EQ(playing_.balanceText, "Right 75%");
}

TEST_F(Bars, aReleaseBesideTheLampsSetsNothing) {
    input_.mouseDown(at(MainElement::balbar, 3));
    input_.mouseMove(dragged(at(MainElement::balbar, 3)));
    input_.mouseUp(event(MainElement::balbar, 3, 10, 10));
    EXPECT_FALSE(playing_.balanceHover);
    EXPECT_EQ(state_.BalanceValue, -25);
}

TEST_F(Bars, aMoveOverTheWindowEndsTheWords) {
    input_.mouseMove(dragged(at(MainElement::balbar, 3)));
    EXPECT_TRUE(playing_.balanceHover);
    input_.mouseMove(at(MainElement::mainIMG, 0, MouseButton::None));
    EXPECT_FALSE(playing_.balanceHover);
}

} // namespace
} // namespace tovik::test
