// SPDX-License-Identifier: GPL-3.0-or-later
// The keyboard and screen readers on the elements of the main window.
#include "window/ElementActions.h"

#include "window/InputRig.h"
#include "window/MainAccess.h"

namespace tovik::test {
namespace {

using commands::CommandId;
using testing::ElementsAre;
using testing::IsEmpty;
using ui::Adjustment;
using ui::ElementRange;
using window::MainElement;

class ElementActions : public InputRig {
protected:
    window::ElementActions actions_{
        {.core = core_,
         .elements = elements_,
         .commands = commands_,
         .grips = grips_,
         .knobs = {
             .seek = seek_, .volume = volume_, .balance = balance_, .equalizer = equalizer_}}};

    [[nodiscard]] ui::ElementFacts facts(MainElement name, std::size_t index = 0) const {
        return actions_.factsOf(ui::addressOf(name, index));
    }

    void move(MainElement name, Adjustment adjustment, std::size_t index = 0) {
        actions_.adjust(ui::addressOf(name, index), adjustment);
    }

    [[nodiscard]] std::int32_t second() { return time_.GetPlayingPos(state_.active()); }
};

TEST_F(ElementActions, everyButtonDoesWhatAClickDoes) {
    int buttons = 0;
    for (const ui::AccessPlace& place : window::mainAccess()) {
        const auto name = place.element.as<MainElement>();
        const bool isButton = place.role == ui::ElementRole::Button ||
                              place.role == ui::ElementRole::Toggle ||
                              place.role == ui::ElementRole::Tab;
        if (!isButton || name == MainElement::timed) {
            continue;
        }
        ran_.clear();
        click(name, place.element.index);
        const std::vector<CommandId> clicked = std::exchange(ran_, {});
        actions_.activate(place.element);
        EXPECT_EQ(ran_, clicked) << static_cast<int>(name) << " " << place.element.index;
        EXPECT_EQ(actions_.factsOf(place.element).enabled, !clicked.empty());
        ++buttons;
    }
    EXPECT_GT(buttons, 30);
}

TEST_F(ElementActions, theDigitsAreFlippedAndRead) {
    playing_.time = "01:23";
    EXPECT_EQ(facts(MainElement::timed, 1).text, "01:23");
    EXPECT_TRUE(facts(MainElement::timed, 1).enabled);
    actions_.activate(ui::addressOf(MainElement::timed, 1));
    EXPECT_EQ(state_.TimeDisplayMode, 1);
    EXPECT_EQ(facts(MainElement::timed, 1).text, "-01:23");
}

TEST_F(ElementActions, theVolumeByKeys) {
    EXPECT_EQ(facts(MainElement::volbar).range,
              (ElementRange{.value = 80, .least = 0, .most = 100, .step = 1}));
    const std::vector<std::pair<Adjustment, std::int16_t>> moves = {
        {Adjustment::Up, 81},   {Adjustment::PageUp, 91},   {Adjustment::PageUp, 100},
        {Adjustment::Down, 99}, {Adjustment::PageDown, 89}, {Adjustment::Least, 0},
        {Adjustment::Down, 0},  {Adjustment::Most, 100},
    };
    for (const auto& [adjustment, expected] : moves) {
        move(MainElement::volbar, adjustment);
        EXPECT_EQ(state_.CurrentVolume, expected);
    }
    EXPECT_EQ(facts(MainElement::volbar).text, "Volume 100%");
}

TEST_F(ElementActions, theBalanceByKeys) {
    state_.BalanceValue = 0;
    const std::vector<std::pair<Adjustment, std::int16_t>> moves = {
        {Adjustment::Up, 25},       {Adjustment::PageUp, 75},  {Adjustment::PageUp, 100},
        {Adjustment::PageDown, 50}, {Adjustment::Least, -100}, {Adjustment::Down, -100},
    };
    for (const auto& [adjustment, expected] : moves) {
        move(MainElement::balbar, adjustment);
        EXPECT_EQ(state_.BalanceValue, expected);
    }
    EXPECT_EQ(facts(MainElement::balbar).text, "Left 100%");
    EXPECT_EQ(facts(MainElement::balbar).range->least, -100);
}

TEST_F(ElementActions, aSliderOfTheEqualizerByKeys) {
    EXPECT_EQ(facts(MainElement::eq_sld, 4).range,
              (ElementRange{.value = 0, .least = -10, .most = 10, .step = 1}));
    move(MainElement::eq_sld, Adjustment::Up, 4);
    EXPECT_EQ(equalizer_.eq_sld(4), 9) << "the top is the least value";
    EXPECT_EQ(facts(MainElement::eq_sld, 4).text, "+1 dB");
    move(MainElement::eq_sld, Adjustment::PageUp, 4);
    EXPECT_EQ(equalizer_.eq_sld(4), 4);
    move(MainElement::eq_sld, Adjustment::Least, 4);
    EXPECT_EQ(equalizer_.eq_sld(4), 20);
    EXPECT_EQ(facts(MainElement::eq_sld, 4).text, "-10 dB");
    EXPECT_EQ(equalizer_.eq_sld(3), 10);
}

TEST_F(ElementActions, thePositionByKeys) {
    EXPECT_EQ(facts(MainElement::posbar).range->most, 0);
    move(MainElement::posbar, Adjustment::Up);
    EXPECT_THAT(sound_.calls, IsEmpty()) << "nothing plays";
    burn(track("a.mp3", {.seconds = 100}));
    const std::vector<std::pair<Adjustment, std::int32_t>> moves = {
        {Adjustment::Up, 5},       {Adjustment::PageUp, 35}, {Adjustment::Down, 30},
        {Adjustment::PageDown, 0}, {Adjustment::Down, 0},    {Adjustment::PageUp, 30},
        {Adjustment::Least, 0},
    };
    for (const auto& [adjustment, expected] : moves) {
        state_.SilenceTicks = 3;
        move(MainElement::posbar, adjustment);
        EXPECT_EQ(second(), expected);
        EXPECT_EQ(state_.SilenceTicks, 0);
    }
    EXPECT_EQ(facts(MainElement::posbar).range->most, 100);
    playing_.percent = 25;
    EXPECT_EQ(facts(MainElement::posbar).range->value, 25);
}

TEST_F(ElementActions, aValueIsHeldToItsRange) {
    actions_.setValue(ui::addressOf(MainElement::volbar), 1000);
    EXPECT_EQ(state_.CurrentVolume, 100);
    actions_.setValue(ui::addressOf(MainElement::eq_sld, 0), -99);
    EXPECT_EQ(equalizer_.eq_sld(0), 20);
    actions_.setValue(ui::addressOf(MainElement::songname), 1);
    EXPECT_THAT(ran_, IsEmpty());
}

TEST_F(ElementActions, togglesLampsAndTabsTellTheirState) {
    commands_.bind(CommandId::shuffle, {.run = [] {}, .checked = [] { return true; }});
    commands_.bind(CommandId::equalizer, {.run = [] {}, .checked = [] { return false; }});
    EXPECT_TRUE(facts(MainElement::ShuffleBT).checked);
    EXPECT_TRUE(facts(MainElement::Shuffle).checked);
    EXPECT_FALSE(facts(MainElement::EQ_on).checked);
    EXPECT_FALSE(facts(MainElement::LoopBT).checked);
    elements_.touch(MainElement::eqbt).checked = true;
    EXPECT_TRUE(facts(MainElement::eqbt).checked);
    EXPECT_FALSE(facts(MainElement::mainbt).checked);
}

TEST_F(ElementActions, aLampSwitchesItsMode) {
    using enum MainElement;
    for (const auto& [lamp, command] :
         {std::pair{Shuffle, CommandId::shuffle}, std::pair{loopImg, CommandId::repeat},
          std::pair{CFD, CommandId::crossfade}, std::pair{Sld, CommandId::silenceSkip}}) {
        ran_.clear();
        EXPECT_TRUE(facts(lamp).enabled);
        actions_.activate(ui::addressOf(lamp));
        EXPECT_THAT(ran_, ElementsAre(command));
    }
}

TEST_F(ElementActions, fieldsReadWhatTheyShow) {
    playing_.scrollerText = "Artist - Title";
    playing_.mode = "Stereo";
    elements_.touch(MainElement::lblinfo, 2).caption = "Album";
    EXPECT_EQ(facts(MainElement::songname).text, "Artist - Title");
    EXPECT_EQ(facts(MainElement::mono_img).text, "Stereo");
    EXPECT_EQ(facts(MainElement::lblinfo, 2).text, "Album");
}

TEST_F(ElementActions, aSliderTakesTheWheelAndNothingElseDoes) {
    input_.wheel(at(MainElement::eq_sld, 2, ui::MouseButton::None), 1);
    input_.wheel(at(MainElement::eq_sld, 2, ui::MouseButton::None), 1.5);
    EXPECT_EQ(equalizer_.eq_sld(2), 8);
    input_.wheel(at(MainElement::eq_sld, 2, ui::MouseButton::None), 0.5);
    EXPECT_EQ(equalizer_.eq_sld(2), 7);
    input_.wheel(at(MainElement::eq_sld, 2, ui::MouseButton::None), -100);
    EXPECT_EQ(equalizer_.eq_sld(2), 20);
    input_.wheel(at(MainElement::eq_sld, 2, ui::MouseButton::None), -1);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_EQ(state_.CurrentVolume, 80);
}

TEST_F(ElementActions, aDoubleClickPutsASliderToTheMiddle) {
    ui::PointerEvent pointer = at(MainElement::eq_sld, 2);
    pointer.y = 10;
    input_.mouseDown(pointer);
    EXPECT_NE(equalizer_.eq_sld(2), 10);
    input_.doubleClick(pointer);
    EXPECT_EQ(equalizer_.eq_sld(2), 10);
    input_.mouseMove(dragged(pointer));
    EXPECT_EQ(equalizer_.eq_sld(2), 10) << "it is not dragged away again";
    pointer.button = ui::MouseButton::Right;
    equalizer_.eq_sld(2, 3);
    input_.doubleClick(pointer);
    EXPECT_EQ(equalizer_.eq_sld(2), 3);
}

TEST_F(ElementActions, escapeHandsTheKeyboardBack) {
    EXPECT_TRUE(input_.keyDown({.code = 27}));
    EXPECT_EQ(window_.focusTaken, 1);
    commands_.bind(CommandId::play, [] {});
    EXPECT_TRUE(input_.keyDown({.code = 'X'}));
    EXPECT_EQ(window_.focusTaken, 1);
}

} // namespace
} // namespace tovik::test
