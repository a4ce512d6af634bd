// SPDX-License-Identifier: GPL-3.0-or-later
// The mouse on the sliders of the equalizer, through the main window's input.
#include "window/InputRig.h"

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::MouseButton;
using window::MainElement;

class EqualizerInput : public InputRig {
protected:
    ui::PointerEvent onSlider(std::size_t index, double y,
                              MouseButton button = MouseButton::Left) const {
        ui::PointerEvent pointer = at(MainElement::eq_sld, index, button);
        pointer.y = y;
        return pointer;
    }

    [[nodiscard]] std::int32_t value(std::size_t index) { return sliders_.eq_sld(index).Value(); }
};

TEST_F(EqualizerInput, aPressMovesThatSlider) {
    input_.mouseDown(onSlider(3, 0));
    EXPECT_EQ(value(3), 0);
    input_.mouseUp(onSlider(3, 0));
    input_.mouseDown(onSlider(10, 128));
    EXPECT_EQ(value(10), 20);
    EXPECT_EQ(value(2), 10);
    EXPECT_EQ(elements_.get(MainElement::eq_sld, 10).bar.top, 120);
}

TEST_F(EqualizerInput, theSliderUnderThePointerIsToldWithItsDecibels) {
    const auto told = [this] { return elements_.get(MainElement::eq_val).caption; };
    elements_.touch(MainElement::eq_sld, 3).name = "600 Hz";
    elements_.touch(MainElement::eq_sld, 10).name = "Master";
    EXPECT_EQ(told(), "");
    input_.pointerEntered(ui::addressOf(MainElement::eq_sld, 3));
    EXPECT_EQ(told(), "600 Hz:  0 dB");
    input_.mouseDown(onSlider(3, 0));
    EXPECT_EQ(told(), "600 Hz:  +10 dB");
    input_.mouseMove(dragged(onSlider(3, 300)));
    EXPECT_EQ(told(), "600 Hz:  -10 dB");
    input_.mouseUp(onSlider(3, 300));
    input_.pointerLeft(ui::addressOf(MainElement::eq_sld, 3));
    EXPECT_EQ(told(), "");
    input_.wheel(onSlider(3, 5), 1);
    EXPECT_EQ(told(), "");
    input_.pointerEntered(ui::addressOf(MainElement::eq_sld, 10));
    EXPECT_EQ(told(), "Master:  0 dB");
    input_.pointerEntered(ui::addressOf(MainElement::volbar));
    EXPECT_EQ(told(), "Master:  0 dB") << "only leaving a slider ends it";
}

TEST_F(EqualizerInput, aHeldSliderFollowsAndALooseOneDoesNot) {
    input_.mouseMove(onSlider(3, 0, MouseButton::None));
    EXPECT_EQ(value(3), 10);
    input_.mouseDown(onSlider(3, 0));
    input_.mouseMove(dragged(onSlider(3, 300)));
    EXPECT_EQ(value(3), 20);
    input_.mouseUp(onSlider(3, 300));
    input_.mouseMove(onSlider(3, 0, MouseButton::None));
    EXPECT_EQ(value(3), 20);
}

TEST_F(EqualizerInput, theRightButtonMovesNothing) {
    input_.mouseDown(onSlider(3, 0, MouseButton::Right));
    EXPECT_EQ(value(3), 10);
    EXPECT_FALSE(sliders_.eq_sld(3).Dragging());
}

TEST_F(EqualizerInput, otherElementsAreLeftToTheOthers) {
    window::EqualizerInput sliders(sliders_);
    EXPECT_FALSE(sliders.mouseDown(at(MainElement::volbar)));
    EXPECT_FALSE(sliders.mouseMove(at(MainElement::volbar)));
    EXPECT_FALSE(sliders.mouseUp(at(MainElement::volbar)));
    EXPECT_TRUE(sliders.mouseDown(onSlider(0, 0)));
    EXPECT_TRUE(sliders.mouseMove(onSlider(0, 0)));
    EXPECT_TRUE(sliders.mouseUp(onSlider(0, 0)));
    EXPECT_FALSE(sliders.mouseMove({}));
}

TEST_F(EqualizerInput, theButtonsRunTheirCommands) {
    click(MainElement::EQ_on);
    click(MainElement::EQ_off);
    click(MainElement::resetbt);
    click(MainElement::presetbt);
    using commands::CommandId;
    EXPECT_THAT(ran_, ElementsAre(CommandId::equalizer, CommandId::equalizer,
                                  CommandId::resetEqualizer, CommandId::presetMenu));
}

} // namespace
} // namespace tovik::test
