// SPDX-License-Identifier: GPL-3.0-or-later
// The mouse on buttons and digits, the wheel, the keys.
#include "window/InputRig.h"

#include <stdexcept>

namespace tovik::test {
namespace {

using commands::CommandId;
using testing::ElementsAre;
using testing::IsEmpty;
using ui::MouseButton;
using window::MainElement;

class Input : public InputRig {};

TEST_F(Input, aPressShowsTheDownFaceAndActsOnlyWhenReleased) {
    input_.mouseDown(at(MainElement::playup));
    EXPECT_FALSE(elements_.get(MainElement::playup).visible);
    EXPECT_TRUE(elements_.get(MainElement::playdown).visible);
    EXPECT_THAT(ran_, IsEmpty());
    input_.mouseUp(at(MainElement::playup));
    EXPECT_TRUE(elements_.get(MainElement::playup).visible);
    EXPECT_FALSE(elements_.get(MainElement::playdown).visible);
    EXPECT_THAT(ran_, ElementsAre(CommandId::play));
}

TEST_F(Input, everyButtonRunsItsCommand) {
    const std::vector<std::pair<MainElement, CommandId>> buttons = {
        {MainElement::backupIMG, CommandId::previousButton},
        {MainElement::playup, CommandId::play},
        {MainElement::pauseup, CommandId::pause},
        {MainElement::stopup, CommandId::stop},
        {MainElement::nextup, CommandId::nextButton},
        {MainElement::fileup, CommandId::addFile},
        {MainElement::closeup, CommandId::exit},
        {MainElement::minon, CommandId::minimise},
        {MainElement::minmodeUP, CommandId::miniMode},
        {MainElement::ShuffleBT, CommandId::shuffle},
        {MainElement::LoopBT, CommandId::repeat},
        {MainElement::CfdBT, CommandId::crossfade},
        {MainElement::sldBT, CommandId::silenceSkip},
        {MainElement::qpl_but, CommandId::foldQuickList},
        {MainElement::EQ_on, CommandId::equalizer},
        {MainElement::EQ_off, CommandId::equalizer},
        {MainElement::resetbt, CommandId::resetEqualizer},
        {MainElement::presetbt, CommandId::presetMenu},
        {MainElement::mainbt, CommandId::mainPanel},
        {MainElement::eqbt, CommandId::equalizerPanel},
        {MainElement::plbt, CommandId::playlistPanel},
        {MainElement::ripbt, CommandId::ripPanel},
        {MainElement::irtbt, CommandId::radioPanel},
        {MainElement::prebt, CommandId::preferences},
        {MainElement::addfileIMG, CommandId::addFile},
        {MainElement::adddirIMG, CommandId::addFolder},
        {MainElement::loadImg, CommandId::loadList},
        {MainElement::SaveImg, CommandId::saveList},
    };
    for (const auto& [element, command] : buttons) {
        ran_.clear();
        click(element);
        EXPECT_THAT(ran_, ElementsAre(command)) << static_cast<int>(element);
    }
}

TEST_F(Input, otherButtonsOfTheMouseAndOtherPlacesDoNothing) {
    input_.mouseDown(at(MainElement::closeup, 0, MouseButton::Right));
    input_.mouseUp(at(MainElement::closeup, 0, MouseButton::Right));
    EXPECT_TRUE(elements_.get(MainElement::closeup).visible);
    click(MainElement::mainIMG);
    ui::PointerEvent nowhere;
    nowhere.button = MouseButton::Left;
    input_.mouseDown(nowhere);
    input_.mouseUp(nowhere);
    EXPECT_THAT(ran_, IsEmpty());
    EXPECT_THAT(sound_.calls, IsEmpty());
}

TEST_F(Input, aButtonWithOneFaceWantsTheReleaseOnIt) {
    input_.mouseDown(at(MainElement::ShuffleBT));
    input_.mouseUp(event(MainElement::ShuffleBT, 0, 200, 200));
    EXPECT_THAT(ran_, IsEmpty());
}

TEST_F(Input, aDoubleClickOnTheDigitsFlipsThem) {
    for (std::size_t digit = 1; digit <= 5; ++digit) {
        state_.TimeDisplayMode = 0;
        input_.doubleClick(at(MainElement::timed, digit));
        EXPECT_EQ(state_.TimeDisplayMode, 1) << digit;
        input_.doubleClick(at(MainElement::timed, digit));
        EXPECT_EQ(state_.TimeDisplayMode, 0) << digit;
    }
    input_.doubleClick(at(MainElement::timed, 0));
    input_.doubleClick(at(MainElement::songname));
    input_.doubleClick(at(MainElement::timed, 1, MouseButton::Right));
    EXPECT_EQ(state_.TimeDisplayMode, 0);
}

TEST_F(Input, theWheelTurnsTheVolumeAnywhere) {
    input_.wheel(at(MainElement::songname, 0, MouseButton::None), 1);
    EXPECT_EQ(state_.CurrentVolume, 85);
    input_.wheel({}, -2);
    EXPECT_EQ(state_.CurrentVolume, 75);
}

TEST_F(Input, keysRunTheirCommands) {
    EXPECT_TRUE(input_.keyDown({.code = 'X'}));
    EXPECT_TRUE(input_.keyDown({.code = 'X', .modifiers = {.alt = true}}));
    EXPECT_TRUE(input_.keyDown({.code = 'M', .modifiers = {.control = true}}));
    EXPECT_TRUE(input_.keyDown({.code = 0x27, .repeated = true}));
    EXPECT_THAT(ran_, ElementsAre(CommandId::play, CommandId::exit, CommandId::stopAfterCurrent,
                                  CommandId::forwardFiveSeconds));
}

TEST_F(Input, otherKeysGoOnToTheWindowSystem) {
    EXPECT_FALSE(input_.keyDown({.code = 'Q'}));
    EXPECT_FALSE(input_.keyDown({.code = 0}));
    EXPECT_FALSE(input_.keyDown({.code = 'X', .modifiers = {.shift = true}}));
    EXPECT_FALSE(input_.keyDown({.code = 'X', .modifiers = {.control = true, .alt = true}}));
    EXPECT_THAT(ran_, IsEmpty());
}

TEST_F(Input, aKeyThatFailsIsLoggedWithoutABox) {
    commands_.bind(CommandId::play, [] { throw base::RuntimeError(base::ErrorNumber::Overflow); });
    EXPECT_TRUE(input_.keyDown({.code = 'X'}));
    EXPECT_THAT(logged(), ElementsAre("Overflow,6,Player,Keydown"));
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(Input, closingTheWindowEndsTheProgram) {
    input_.closeRequested();
    EXPECT_THAT(ran_, ElementsAre(CommandId::exit));
}

TEST_F(Input, theBareBackgroundTakesTheWindow) {
    input_.mouseMove(at(MainElement::mainIMG, 0, MouseButton::None));
    input_.mouseMove(dragged(at(MainElement::ScreenIMG)));
    EXPECT_EQ(window_.drags, 0);
    input_.mouseMove(dragged(at(MainElement::mainIMG)));
    EXPECT_EQ(window_.drags, 1);
}

TEST_F(Input, failuresOfTheMouseGoToTheirGuards) {
    const auto fail = [] { throw base::RuntimeError(base::ErrorNumber::Overflow); };
    for (const CommandId id : {CommandId::preferences, CommandId::play, CommandId::exit}) {
        commands_.bind(id, fail);
    }
    input_.mouseDown(at(MainElement::prebt));
    click(MainElement::playup);
    click(MainElement::closeup);
    EXPECT_THAT(logged(), ElementsAre("Overflow,6,Player,MouseDown", "Overflow,6,Player,MouseUp",
                                      "Overflow,6,Player,button_closeup"));
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].title, " in Sub Closeup_MouseUp");
}

} // namespace
} // namespace tovik::test
