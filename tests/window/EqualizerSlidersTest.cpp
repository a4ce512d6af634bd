// SPDX-License-Identifier: GPL-3.0-or-later
// The sliders and the switch of the equalizer as a user sees them.
#include "window/EqualizerSliders.h"

#include "window/ViewRig.h"

namespace tovik::test {
namespace {

using window::MainElement;

class EqualizerSliders : public ViewRig {};

TEST_F(EqualizerSliders, theButtonsTakeTurnsWhereTheyAreShown) {
    state_.CurrentPanel = 2;
    equalizer_.flip();
    EXPECT_TRUE(elements_.get(MainElement::EQ_on).visible);
    EXPECT_FALSE(elements_.get(MainElement::EQ_off).visible);
    EXPECT_TRUE(state_.EqualizerOn);
    equalizer_.flip();
    EXPECT_FALSE(elements_.get(MainElement::EQ_on).visible);
    EXPECT_TRUE(elements_.get(MainElement::EQ_off).visible);
    EXPECT_FALSE(state_.EqualizerOn);
}

TEST_F(EqualizerSliders, onOtherPanelsTheButtonsStayHidden) {
    equalizer_.flip();
    EXPECT_TRUE(state_.EqualizerOn);
    EXPECT_FALSE(elements_.get(MainElement::EQ_on).visible);
    EXPECT_FALSE(elements_.get(MainElement::EQ_off).visible);
}

TEST_F(EqualizerSliders, theSlidersAreDrawnWhereTheyStand) {
    sliders_.draw();
    for (std::size_t index = 0; index < 11; ++index) {
        EXPECT_EQ(elements_.get(MainElement::eq_sld, index).bar.top, 60) << index;
    }
}

TEST_F(EqualizerSliders, theSkinsBarIsTakenOver) {
    ui::Element& store = elements_.touch(MainElement::Picture7);
    store.picture = {.number = 8, .version = 1};
    store.height = 29;
    sliders_.draw();
    EXPECT_EQ(elements_.get(MainElement::eq_sld, 10).bar,
              (ui::SliderBar{.top = 50, .height = 29, .picture = {.number = 8, .version = 1}}));
}

TEST_F(EqualizerSliders, followTheCurveAndMoveIt) {
    sliders_.draw();
    equalizer_.eq_sld(3, 0);
    EXPECT_EQ(sliders_.eq_sld(3).Value(), 0);
    EXPECT_EQ(elements_.get(MainElement::eq_sld, 3).bar.top, 0);
    sliders_.eq_sld(4).Value(20);
    EXPECT_EQ(equalizer_.eq_sld(4), 20);
}

TEST_F(EqualizerSliders, aDraggedBarStaysUnderThePointer) {
    sliders_.draw();
    ui::PointerEvent press;
    press.button = ui::MouseButton::Left;
    press.y = 61;
    sliders_.eq_sld(0).mouseDown(press);
    const std::int32_t value = equalizer_.eq_sld(0);
    const auto between = elements_.get(MainElement::eq_sld, 0).bar.top;
    equalizer_.eq_sld(0, value);
    EXPECT_NE(elements_.get(MainElement::eq_sld, 0).bar.top, between);
}

} // namespace
} // namespace tovik::test
