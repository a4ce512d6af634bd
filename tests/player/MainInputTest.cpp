// SPDX-License-Identifier: GPL-3.0-or-later
// The mouse on the buttons and on the quick list.
#include "player/MainInput.h"

#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

using testing::IsEmpty;
using ui::MainElement;

class Input : public PlayerRig {
protected:
    static ui::PointerEvent at(MainElement element,
                               ui::MouseButton button = ui::MouseButton::Left) {
        ui::PointerEvent event;
        event.element = ui::addressOf(element);
        event.button = button;
        return event;
    }

    void click(MainElement element) {
        input_.mouseDown(at(element));
        input_.mouseUp(at(element));
    }

    int closed_ = 0;
    int minimised_ = 0;
    player::MainInput input_{elements_, transport_, [this] { ++closed_; },
                             [this] { ++minimised_; }};
    player::QuickListRows rows_{mirror_, list_, transport_};
};

TEST_F(Input, aPressShowsTheDownFaceAndActsOnlyWhenReleased) {
    fetchRow(track("a.mp3", {.seconds = 10}), "Song");
    input_.mouseDown(at(MainElement::playup));
    EXPECT_FALSE(elements_.get(MainElement::playup).visible);
    EXPECT_TRUE(elements_.get(MainElement::playdown).visible);
    EXPECT_FALSE(state_.IsPlaying);
    input_.mouseUp(at(MainElement::playup));
    EXPECT_TRUE(elements_.get(MainElement::playup).visible);
    EXPECT_FALSE(elements_.get(MainElement::playdown).visible);
    EXPECT_TRUE(state_.IsPlaying);
}

TEST_F(Input, pauseAndStop) {
    fetchRow(track("a.mp3", {.seconds = 10}), "Song");
    click(MainElement::playup);
    click(MainElement::pauseup);
    EXPECT_TRUE(state_.IsPaused);
    click(MainElement::pauseup);
    EXPECT_FALSE(state_.IsPaused);
    click(MainElement::stopup);
    EXPECT_FALSE(state_.IsPlaying);
}

TEST_F(Input, closeAndMinimise) {
    click(MainElement::closeup);
    EXPECT_EQ(closed_, 1);
    click(MainElement::minon);
    EXPECT_EQ(minimised_, 1);
    input_.closeRequested();
    EXPECT_EQ(closed_, 2);
}

TEST_F(Input, otherButtonsOfTheMouseAndOtherPlacesDoNothing) {
    input_.mouseDown(at(MainElement::closeup, ui::MouseButton::Right));
    input_.mouseUp(at(MainElement::closeup, ui::MouseButton::Right));
    EXPECT_TRUE(elements_.get(MainElement::closeup).visible);
    click(MainElement::mainIMG);
    ui::PointerEvent nowhere;
    nowhere.button = ui::MouseButton::Left;
    input_.mouseDown(nowhere);
    input_.mouseUp(nowhere);
    EXPECT_EQ(closed_, 0);
    EXPECT_THAT(sound_.calls, IsEmpty());
}

TEST_F(Input, rowsOfTheQuickList) {
    EXPECT_EQ(rows_.rows(), 0U);
    list_.AddItem("", track("a.mp3", {.seconds = 10}), "One", "00:10", 10);
    list_.AddItem("", track("b.mp3", {.seconds = 10}), "Two", "00:10", 10);
    EXPECT_EQ(rows_.rows(), 2U);
    EXPECT_EQ(rows_.text(1), "Two");
    rows_.selectRow(0, {});
    EXPECT_TRUE(rows_.selected(0));
    EXPECT_FALSE(rows_.selected(1));
    EXPECT_THAT(sound_.calls, IsEmpty());
    EXPECT_EQ(list_.SelectedIndex, 0);
}

TEST_F(Input, aDoubleClickOnARowPlaysIt) {
    list_.AddItem("", track("a.mp3", {.seconds = 10}), "One", "00:10", 10);
    list_.AddItem("", track("b.mp3", {.seconds = 10}), "Two", "00:10", 10);
    rows_.activateRow(1);
    EXPECT_TRUE(rows_.selected(1));
    EXPECT_TRUE(rows_.marked(1));
    EXPECT_FALSE(rows_.marked(0));
    EXPECT_EQ(state_.CurrentTitle, "Two");
    EXPECT_TRUE(state_.IsPlaying);
}

} // namespace
} // namespace tovik::test
