// SPDX-License-Identifier: GPL-3.0-or-later
// The four switches: flag, button and indicators.
#include "window/ViewRig.h"

namespace tovik::test {
namespace {

using window::MainElement;

struct Switch {
    bool player::PlayerState::*flag;
    void (*press)(player::TrackAdvance&, player::Crossfade&, player::SilenceSkip&);
    MainElement button;
    std::size_t pressed;
    std::size_t plain;
    MainElement on;
    MainElement off;
};

class ModeFaces : public ViewRig, public testing::WithParamInterface<Switch> {
protected:
    ModeFaces() {
        for (std::uint32_t i = 0; i < 8; ++i) {
            elements_.touch(MainElement::Image6, i).picture = {.number = 10 + i, .version = 1};
        }
        for (std::uint32_t i = 0; i < 4; ++i) {
            elements_.touch(MainElement::Image8, i).picture = {.number = 30 + i, .version = 1};
        }
    }

    void press() { GetParam().press(advance_, crossfade_, silenceSkip_); }
};

TEST_P(ModeFaces, flipTogether) {
    const Switch& mode = GetParam();
    press();
    EXPECT_TRUE(state_.*mode.flag);
    EXPECT_EQ(elements_.get(mode.button).picture.number, 10 + mode.pressed);
    EXPECT_TRUE(elements_.get(mode.button).checked);
    EXPECT_TRUE(elements_.get(mode.on).visible);
    EXPECT_FALSE(elements_.get(mode.off).visible);
    press();
    EXPECT_FALSE(state_.*mode.flag);
    EXPECT_EQ(elements_.get(mode.button).picture.number, 30 + mode.plain);
    EXPECT_FALSE(elements_.get(mode.button).checked);
    EXPECT_FALSE(elements_.get(mode.on).visible);
    EXPECT_TRUE(elements_.get(mode.off).visible);
}

TEST_P(ModeFaces, lightOnlyTheLampsOfTheCurrentPanel) {
    const Switch& mode = GetParam();
    const bool bright = mode.on != MainElement::Sld; // the playlist has no lamp of this mode
    const bool dim = bright && mode.off != MainElement::ShuffleDown; // and this twin is missing
    for (std::int16_t panel = 2; panel <= 5; ++panel) {
        SCOPED_TRACE(panel);
        elements_.touch(mode.on).visible = false;
        elements_.touch(mode.off).visible = false;
        state_.CurrentPanel = panel;
        press();
        EXPECT_EQ(elements_.get(mode.on).visible, panel == 3 && bright);
        EXPECT_FALSE(elements_.get(mode.off).visible);
        EXPECT_TRUE(elements_.get(mode.button).checked);
        press();
        EXPECT_FALSE(elements_.get(mode.on).visible);
        EXPECT_EQ(elements_.get(mode.off).visible, panel == 3 && dim);
    }
}

using State = player::PlayerState;
using Advance = player::TrackAdvance;
using Fade = player::Crossfade;
using Skip = player::SilenceSkip;

INSTANTIATE_TEST_SUITE_P(
    All, ModeFaces,
    testing::Values(
        Switch{&State::ShuffleOn, [](Advance& advance, Fade&, Skip&) { advance.button_shuffle(); },
               MainElement::ShuffleBT, 4, 0, MainElement::Shuffle, MainElement::ShuffleDown},
        Switch{&State::RepeatOn, [](Advance& advance, Fade&, Skip&) { advance.button_loop(); },
               MainElement::LoopBT, 5, 1, MainElement::loopImg, MainElement::LoopImg2},
        Switch{&State::CrossfadeOn, [](Advance&, Fade& fade, Skip&) { fade.button_cfd(); },
               MainElement::CfdBT, 6, 2, MainElement::CFD, MainElement::CFD2},
        Switch{&State::SilenceSkipOn, [](Advance&, Fade&, Skip& skip) { skip.button_sld(); },
               MainElement::sldBT, 7, 3, MainElement::Sld, MainElement::sld2}));

} // namespace
} // namespace tovik::test
