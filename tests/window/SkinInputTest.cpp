// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/SkinInput.h"

#include "window/PanelsRig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tovik::window {
namespace {

using testing::_;
using testing::Return;
using N = MainElement;

class NextInput : public ui::WindowInput {
public:
    MOCK_METHOD(void, mouseDown, (const ui::PointerEvent&), (override));
    MOCK_METHOD(void, mouseMove, (const ui::PointerEvent&), (override));
    MOCK_METHOD(void, mouseUp, (const ui::PointerEvent&), (override));
    MOCK_METHOD(void, doubleClick, (const ui::PointerEvent&), (override));
    MOCK_METHOD(void, wheel, (const ui::PointerEvent&, double), (override));
    MOCK_METHOD(void, pointerEntered, (ui::ElementAddress), (override));
    MOCK_METHOD(void, pointerLeft, (ui::ElementAddress), (override));
    MOCK_METHOD(bool, keyDown, (const ui::KeyEvent&), (override));
    MOCK_METHOD(void, closeRequested, (), (override));
};

class SkinInputTest : public testing::Test {
protected:
    static ui::PointerEvent over(N name) { return {.element = ui::addressOf(name)}; }

    [[nodiscard]] ui::Picture picture(N name, std::size_t index = 0) const {
        return rig_.elements.get(name, index).picture;
    }

    PanelsRig rig_;
    ui::PictureStore pictures_;
    MainSkin skin_{rig_.elements, pictures_, rig_.host.paths,
                   [this] { rig_.panels.RefreshTabs(); }};
    testing::StrictMock<NextInput> next_;
    FlatFaces flat_{rig_.elements};
    SkinInput input_{skin_, flat_, rig_.panels, rig_.errors, next_};
};

TEST_F(SkinInputTest, everythingGoesOnToTheNext) {
    EXPECT_CALL(next_, mouseDown(_));
    EXPECT_CALL(next_, mouseMove(_));
    EXPECT_CALL(next_, mouseUp(_));
    EXPECT_CALL(next_, doubleClick(_));
    EXPECT_CALL(next_, wheel(_, 2.5));
    EXPECT_CALL(next_, pointerEntered(ui::addressOf(N::playup)));
    EXPECT_CALL(next_, pointerLeft(ui::addressOf(N::playup)));
    EXPECT_CALL(next_, keyDown(_)).WillOnce(Return(true));
    EXPECT_CALL(next_, closeRequested());
    input_.mouseDown(over(N::playup));
    input_.mouseMove(over(N::playup));
    input_.mouseUp(over(N::playup));
    input_.doubleClick(over(N::playup));
    input_.wheel(over(N::playup), 2.5);
    input_.pointerEntered(ui::addressOf(N::playup));
    input_.pointerLeft(ui::addressOf(N::playup));
    EXPECT_TRUE(input_.keyDown({}));
    input_.closeRequested();
}

TEST_F(SkinInputTest, aTabShowsItsOverFaceUntilTheMouseIsOnTheBackground) {
    EXPECT_CALL(next_, mouseMove(_)).Times(2);
    input_.mouseMove(over(N::plbt));
    EXPECT_EQ(picture(N::plbt), picture(N::Image2, 15));
    input_.mouseMove(over(N::mainIMG));
    EXPECT_EQ(picture(N::plbt), picture(N::Image2, 2));
}

TEST_F(SkinInputTest, aButtonShowsItsOverFaceUntilTheMouseIsOnTheBackground) {
    rig_.elements.touch(N::playup).picture = PanelsRig::look(60);
    rig_.elements.touch(N::tmp, 7).picture = PanelsRig::look(61);
    skin_.SaveUpPictures();
    EXPECT_CALL(next_, pointerEntered(_));
    EXPECT_CALL(next_, mouseMove(_)).Times(2);
    input_.pointerEntered(ui::addressOf(N::playup));
    EXPECT_EQ(picture(N::playup), PanelsRig::look(61));
    input_.mouseMove(over(N::playup));
    EXPECT_EQ(picture(N::playup), PanelsRig::look(61));
    input_.mouseMove(over(N::mainIMG));
    EXPECT_EQ(picture(N::playup), PanelsRig::look(60));
}

TEST_F(SkinInputTest, overFacesEndAsTheMouseLeaves) {
    rig_.elements.touch(N::playup).picture = PanelsRig::look(60);
    rig_.elements.touch(N::tmp, 7).picture = PanelsRig::look(61);
    skin_.SaveUpPictures();
    EXPECT_CALL(next_, pointerEntered(_));
    EXPECT_CALL(next_, pointerLeft(_)).Times(2);
    EXPECT_CALL(next_, mouseMove(_));
    input_.pointerEntered(ui::addressOf(N::playup));
    input_.pointerLeft(ui::addressOf(N::playup)); // out of the window, or over any area
    EXPECT_EQ(picture(N::playup), PanelsRig::look(60));
    input_.mouseMove(over(N::plbt));
    EXPECT_EQ(picture(N::plbt), picture(N::Image2, 15));
    input_.pointerLeft(ui::addressOf(N::plbt));
    EXPECT_EQ(picture(N::plbt), picture(N::Image2, 2));
}

TEST_F(SkinInputTest, aFlatButtonIsUpAgainWhenItsClickActs) {
    ui::PointerEvent event = over(N::resetbt);
    const ui::Box box = rig_.elements.get(N::resetbt).box();
    event.windowX = box.left + 1;
    event.windowY = box.top + 1;
    event.button = ui::MouseButton::Left;
    EXPECT_CALL(next_, mouseDown(_));
    input_.mouseDown(event);
    EXPECT_EQ(rig_.elements.get(N::resetbt).shade, ui::Shade::Darker);
    EXPECT_CALL(next_, mouseUp(_)).WillOnce([this](const ui::PointerEvent&) {
        EXPECT_EQ(rig_.elements.get(N::resetbt).shade, ui::Shade::Lighter);
    });
    input_.mouseUp(event);
}

TEST_F(SkinInputTest, aReleaseGivesTheTabOfThePreferencesItsUpFace) {
    EXPECT_CALL(next_, mouseUp(_)).Times(2);
    rig_.elements.touch(N::prebt).picture = picture(N::Image2, 11);
    ui::PointerEvent event = over(N::prebt);
    event.button = ui::MouseButton::Right;
    input_.mouseUp(event);
    EXPECT_EQ(picture(N::prebt), picture(N::Image2, 11));
    event.button = ui::MouseButton::Left;
    input_.mouseUp(event);
    EXPECT_EQ(picture(N::prebt), picture(N::Image2, 5));
}

} // namespace
} // namespace tovik::window
