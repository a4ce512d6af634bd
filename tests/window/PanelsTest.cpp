// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Panels.h"

#include "window/ModeFaces.h"
#include "window/PanelsRig.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tovik::window {
namespace {

using N = MainElement;

class PanelsTest : public testing::Test {
protected:
    [[nodiscard]] ui::Picture face(N name) const { return rig_.elements.get(name).picture; }

    void expectFaces(std::array<std::size_t, 6> looks) const {
        constexpr std::array kTabs = {N::mainbt, N::eqbt, N::plbt, N::ripbt, N::irtbt, N::prebt};
        for (std::size_t i = 0; i < kTabs.size(); ++i) {
            EXPECT_EQ(face(kTabs.at(i)), PanelsRig::look(looks.at(i))) << "tab " << i;
        }
    }

    void expectList(double top, double width, double height) const {
        const ui::Element& list = rig_.elements.get(N::List1);
        EXPECT_EQ(list.top, top);
        EXPECT_EQ(list.width, width);
        EXPECT_EQ(list.height, height);
    }

    PanelsRig rig_;
};

TEST_F(PanelsTest, aMaskWithoutAPanelChangesNothing) {
    rig_.panels.Switch_Win("01000");
    rig_.elements.forgetChanges();
    for (const char* mask : {"00000", "", "000001", "x"}) {
        rig_.panels.Switch_Win(mask);
    }
    EXPECT_EQ(rig_.state.CurrentPanel, 2);
    EXPECT_EQ(rig_.window.focused, 1);
    EXPECT_TRUE(rig_.elements.takeChanges().empty());
}

TEST_F(PanelsTest, theFirstOneOfAMaskCounts) {
    rig_.panels.Switch_Win("01100");
    EXPECT_EQ(rig_.state.CurrentPanel, 2);
    EXPECT_TRUE(rig_.elements.get(N::eq_sld, 10).visible);
    EXPECT_FALSE(rig_.elements.get(N::stdSS).visible);
}

TEST_F(PanelsTest, aHeldLockKeepsThePanel) {
    rig_.state.PanelLock = 1;
    rig_.panels.Switch_Win("00100");
    EXPECT_EQ(rig_.state.CurrentPanel, 1);
    EXPECT_EQ(rig_.window.focused, 0);
}

TEST_F(PanelsTest, aSwitchTakesTheFocusAndTurnsTheTabs) {
    rig_.panels.Switch_Win("00100");
    EXPECT_EQ(rig_.window.focused, 1);
    expectFaces({0, 1, 8, 3, 4, 5});
    EXPECT_TRUE(rig_.elements.get(N::plbt).checked);
    rig_.panels.Switch_Win("00001");
    expectFaces({0, 1, 2, 3, 10, 5});
    EXPECT_FALSE(rig_.elements.get(N::plbt).checked);
}

TEST_F(PanelsTest, onlyTheRadioPanelIsTheRadioPanel) {
    rig_.panels.Switch_Win("00001");
    EXPECT_TRUE(rig_.state.RadioPanelActive);
    rig_.host.clock.advanceTo(10);
    EXPECT_TRUE(rig_.elements.get(N::RadioLst).visible);
    // No panel hides the stations: the tick of a timer does.
    rig_.panels.Switch_Win("00010");
    EXPECT_FALSE(rig_.state.RadioPanelActive);
    EXPECT_TRUE(rig_.elements.get(N::RadioLst).visible);
    rig_.host.clock.advanceTo(11);
    EXPECT_FALSE(rig_.elements.get(N::RadioLst).visible);
    rig_.elements.touch(N::RadioLst).visible = true;
    rig_.host.clock.advanceTo(100);
    EXPECT_TRUE(rig_.elements.get(N::RadioLst).visible) << "it ticked once";
}

TEST_F(PanelsTest, aRepeatedSwitchAppliesTheTableAgain) {
    rig_.panels.Switch_Win("01000");
    EXPECT_TRUE(rig_.elements.get(N::EQ_off).visible);
    rig_.state.EqualizerOn = true;
    rig_.panels.Switch_Win("01000");
    EXPECT_FALSE(rig_.elements.get(N::EQ_off).visible);
    EXPECT_TRUE(rig_.elements.get(N::EQ_on).visible);
}

TEST_F(PanelsTest, theOpenQuickListComesBackOpen) {
    rig_.panels.FlipQuickList();
    rig_.panels.Switch_Win("01000");
    rig_.panels.Switch_Win("10000");
    expectList(60, 163, 202);
    EXPECT_FALSE(rig_.elements.get(N::infoWin).visible);
    EXPECT_FALSE(rig_.elements.get(N::fxWin).visible);
    EXPECT_FALSE(rig_.elements.get(N::lblPos, 3).visible);
}

TEST_F(PanelsTest, theQuickListFlips) {
    rig_.panels.FlipQuickList();
    EXPECT_TRUE(rig_.state.QuickListOpen);
    expectList(60, 163, 202);
    EXPECT_EQ(rig_.elements.get(N::lblPos, 4).top, 46);
    EXPECT_EQ(rig_.elements.get(N::qpl_but).top, 46);
    EXPECT_EQ(face(N::qpl_but), PanelsRig::look(51));
    rig_.panels.FlipQuickList();
    EXPECT_FALSE(rig_.state.QuickListOpen);
    expectList(169, 161, 80);
    EXPECT_EQ(rig_.elements.get(N::lblPos, 4).top, 154);
    EXPECT_EQ(rig_.elements.get(N::qpl_but).top, 156);
    EXPECT_EQ(face(N::qpl_but), PanelsRig::look(50));
    EXPECT_TRUE(rig_.elements.get(N::infoWin).visible);
    EXPECT_TRUE(rig_.elements.get(N::lblPos, 3).visible);
}

TEST_F(PanelsTest, theHeadingsShowWheneverTheMainPanelDoes) {
    for (const char* mask : {"10000", "00100", "10000"}) {
        rig_.panels.Switch_Win(mask);
        for (std::size_t heading = 0; heading < 5; ++heading) {
            EXPECT_EQ(rig_.elements.get(N::lblPos, heading).visible, mask[0] == '1') << heading;
        }
    }
}

TEST_F(PanelsTest, theQuickListFoldedElsewhereShowsNothingOverThatPanel) {
    rig_.panels.FlipQuickList();
    rig_.panels.Switch_Win("01000");
    rig_.panels.FlipQuickList();
    EXPECT_FALSE(rig_.elements.get(N::infoWin).visible);
    EXPECT_FALSE(rig_.elements.get(N::fxWin).visible);
    EXPECT_FALSE(rig_.elements.get(N::lblPos, 3).visible);
    rig_.panels.Switch_Win("10000");
    expectList(169, 161, 80);
    EXPECT_TRUE(rig_.elements.get(N::infoWin).visible);
    EXPECT_TRUE(rig_.elements.get(N::lblPos, 3).visible);
}

TEST_F(PanelsTest, lampsCatchUpWhenThePreferencesClose) {
    rig_.panels.Switch_Win("10000");
    rig_.panels.pressPreferences([this] {
        rig_.state.RepeatOn = true;
        showMode(rig_.elements, rig_.state, player::Mode::repeat);
        EXPECT_FALSE(rig_.elements.get(N::loopImg).visible);
    });
    EXPECT_TRUE(rig_.elements.get(N::loopImg).visible);
    EXPECT_FALSE(rig_.elements.get(N::LoopImg2).visible);
}

TEST_F(PanelsTest, aTabUnderThePointerShowsItWhetherItIsCurrentOrNot) {
    rig_.panels.Switch_Win("10000");
    rig_.panels.hoverTab(N::eqbt);
    expectFaces({6, 16, 2, 3, 4, 5});
    rig_.panels.hoverTab(N::mainbt);
    expectFaces({17, 1, 2, 3, 4, 5});
    rig_.panels.hoverTab(N::playup);
    expectFaces({17, 1, 2, 3, 4, 5});
}

TEST_F(PanelsTest, tabsThatStayAsTheyAreWakeNobody) {
    rig_.panels.RefreshTabs();
    rig_.elements.forgetChanges();
    int woken = 0;
    rig_.elements.onTouched([&woken] { ++woken; });
    rig_.panels.RefreshTabs();
    EXPECT_EQ(woken, 0);
    rig_.panels.hoverTab(N::eqbt);
    EXPECT_EQ(woken, 1);
}

TEST_F(PanelsTest, eachTabOpensItsPanel) {
    constexpr std::array kTabs = {N::irtbt, N::ripbt, N::plbt, N::eqbt, N::mainbt};
    std::int16_t panel = 5;
    for (const N tab : kTabs) {
        rig_.panels.clickTab(tab);
        EXPECT_EQ(rig_.state.CurrentPanel, panel--);
    }
    rig_.panels.clickTab(N::prebt);
    rig_.panels.clickTab(N::playup);
    EXPECT_EQ(rig_.state.CurrentPanel, 1);
}

TEST_F(PanelsTest, thePreferencesLeaveNoTabDownUntilTheMousePassesOne) {
    rig_.panels.Switch_Win("01000");
    bool opened = false;
    rig_.panels.pressPreferences([&] {
        opened = true;
        EXPECT_EQ(rig_.state.CurrentPanel, 6);
        expectFaces({0, 1, 2, 3, 4, 11});
        rig_.panels.Switch_Win("10000"); // locked
        EXPECT_EQ(rig_.state.CurrentPanel, 6);
    });
    EXPECT_TRUE(opened);
    EXPECT_EQ(rig_.state.CurrentPanel, 2);
    rig_.panels.releasePreferences();
    expectFaces({0, 1, 2, 3, 4, 5});
    rig_.panels.hoverTab(N::plbt);
    expectFaces({0, 7, 15, 3, 4, 5});
}

TEST_F(PanelsTest, aDialogThatFailsLeavesThePanelsUsable) {
    EXPECT_THROW(rig_.panels.pressPreferences([] { throw std::runtime_error("no"); }),
                 std::runtime_error);
    EXPECT_EQ(rig_.state.CurrentPanel, 1);
    EXPECT_EQ(rig_.state.PanelLock, 0);
}

TEST_F(PanelsTest, withComfortTheCurrentTabKeepsItsFaceUnderThePointer) {
    rig_.state.comfort.keepsCurrentTab = true;
    rig_.panels.Switch_Win("10000");
    rig_.panels.hoverTab(N::eqbt);
    expectFaces({6, 16, 2, 3, 4, 5});
    rig_.panels.hoverTab(N::mainbt);
    expectFaces({6, 1, 2, 3, 4, 5});
}

TEST_F(PanelsTest, withComfortTheTabIsPressedAsSoonAsThePreferencesClose) {
    rig_.state.comfort.pressesTabAtOnce = true;
    rig_.panels.Switch_Win("01000");
    rig_.panels.pressPreferences([&] { expectFaces({0, 1, 2, 3, 4, 11}); });
    expectFaces({0, 7, 2, 3, 4, 5});
    rig_.panels.releasePreferences();
    expectFaces({0, 7, 2, 3, 4, 5});
}

TEST_F(PanelsTest, theStationsGoATickAfterTheirPanelOrWithComfortAtOnce) {
    for (const bool kind : {false, true}) {
        rig_.state.comfort.hidesStationsAtOnce = kind;
        rig_.panels.Switch_Win("00001");
        ASSERT_TRUE(rig_.elements.get(N::RadioLst).visible);
        rig_.panels.Switch_Win("01000");
        EXPECT_EQ(rig_.elements.get(N::RadioLst).visible, !kind);
        rig_.panels.Timer6();
        EXPECT_FALSE(rig_.elements.get(N::RadioLst).visible);
    }
}

TEST_F(PanelsTest, withComfortNoLampStandsOverTheList) {
    constexpr std::array kLamps = {N::CFD, N::CFD2, N::loopImg, N::LoopImg2, N::Shuffle};
    rig_.state.CrossfadeOn = rig_.state.RepeatOn = rig_.state.ShuffleOn = true;
    const auto shown = [&](const char* mask) {
        rig_.panels.Switch_Win(mask);
        return std::ranges::count_if(kLamps,
                                     [&](N lamp) { return rig_.elements.get(lamp).visible; });
    };
    rig_.state.comfort.hidesLampsOverList = false;
    EXPECT_EQ(shown("00100"), 3);
    rig_.state.comfort.hidesLampsOverList = true;
    EXPECT_EQ(shown("00100"), 0);
    EXPECT_EQ(shown("10000"), 3);
}

} // namespace
} // namespace tovik::window
