// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/FlatFaces.h"

#include <gtest/gtest.h>

namespace tovik::window {
namespace {

using N = MainElement;
using ui::Shade;

class FlatFacesTest : public testing::Test {
protected:
    [[nodiscard]] Shade shade(N name, std::size_t index = 0) const {
        return elements_.get(name, index).shade;
    }

    [[nodiscard]] ui::PointerEvent at(N name, double x, double y, bool held) const {
        const ui::Element& element = elements_.get(name);
        return {.element = ui::addressOf(name),
                .windowX = element.left + x,
                .windowY = element.top + y,
                .button = ui::MouseButton::Left,
                .leftHeld = held};
    }

    MainElements elements_{mainLayout()};
    FlatFaces faces_{elements_};
};

TEST_F(FlatFacesTest, aButtonIsLighterUnderTheMouse) {
    for (const N name : {N::resetbt, N::addlocIMG, N::LoopBT, N::qpl_but, N::EQ_off}) {
        faces_.pointerEntered(ui::addressOf(name));
        EXPECT_EQ(shade(name), Shade::Lighter);
        faces_.pointerLeft(ui::addressOf(name));
        EXPECT_EQ(shade(name), Shade::None);
    }
    faces_.pointerEntered(ui::addressOf(N::Image1, 2));
    EXPECT_EQ(shade(N::Image1, 2), Shade::Lighter);
    EXPECT_EQ(shade(N::Image1, 1), Shade::None);
}

TEST_F(FlatFacesTest, whatHasFacesOfItsOwnOrIsNoButtonKeepsItsLight) {
    for (const N name : {N::playup, N::closeup, N::eqbt, N::prebt, N::mainIMG, N::volbar}) {
        faces_.pointerEntered(ui::addressOf(name));
        faces_.mouseDown(at(name, 1, 1, true));
        EXPECT_EQ(shade(name), Shade::None) << static_cast<int>(name);
    }
}

TEST_F(FlatFacesTest, aPressedButtonIsDarkerWhileThePointerIsOnIt) {
    faces_.mouseDown(at(N::resetbt, 1, 1, true));
    EXPECT_EQ(shade(N::resetbt), Shade::Darker);
    faces_.mouseMove(at(N::resetbt, -5, 1, true));
    EXPECT_EQ(shade(N::resetbt), Shade::None);
    faces_.mouseMove(at(N::resetbt, 2, 2, true));
    EXPECT_EQ(shade(N::resetbt), Shade::Darker);
    faces_.mouseUp(at(N::resetbt, 2, 2, false));
    EXPECT_EQ(shade(N::resetbt), Shade::Lighter);
    faces_.mouseMove(at(N::resetbt, 3, 3, true)); // of another button's press
    EXPECT_EQ(shade(N::resetbt), Shade::Lighter);
}

TEST_F(FlatFacesTest, aReleaseElsewhereLeavesTheButtonPlain) {
    faces_.mouseDown(at(N::resetbt, 1, 1, true));
    faces_.mouseUp(at(N::resetbt, 1, 100, false));
    EXPECT_EQ(shade(N::resetbt), Shade::None);
}

TEST_F(FlatFacesTest, aLostReleaseEndsWithTheNextMove) {
    faces_.mouseDown(at(N::presetbt, 1, 1, true));
    faces_.mouseMove(at(N::presetbt, 100, 1, false));
    EXPECT_EQ(shade(N::presetbt), Shade::None);
    faces_.mouseMove(at(N::presetbt, 1, 1, true));
    EXPECT_EQ(shade(N::presetbt), Shade::None);
}

TEST_F(FlatFacesTest, anotherMouseButtonPressesNothing) {
    ui::PointerEvent event = at(N::resetbt, 1, 1, false);
    event.button = ui::MouseButton::Right;
    faces_.mouseDown(event);
    EXPECT_EQ(shade(N::resetbt), Shade::None);
}

TEST_F(FlatFacesTest, whatChangesNothingWakesNobody) {
    faces_.pointerEntered(ui::addressOf(N::resetbt));
    elements_.forgetChanges();
    int woken = 0;
    elements_.onTouched([&woken] { ++woken; });
    faces_.pointerEntered(ui::addressOf(N::resetbt));
    faces_.mouseMove(at(N::resetbt, 1, 1, false));
    EXPECT_EQ(woken, 0);
    faces_.pointerLeft(ui::addressOf(N::resetbt));
    EXPECT_EQ(woken, 1);
}

} // namespace
} // namespace tovik::window
