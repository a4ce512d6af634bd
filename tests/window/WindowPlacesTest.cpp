// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/WindowPlaces.h"

#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

using window::keptPlace;
using window::kMiniWindow;
using window::notePlace;
using window::ScreenPlace;

class WindowPlaces : public PlayerRig {
protected:
    WindowPlaces() {
        state_.comfort.keepsPlaces = true;
        settings_.reportChanged([this](std::string_view key) { changed_.emplace_back(key); });
    }

    std::vector<std::string> changed_;
};

TEST_F(WindowPlaces, eachWindowHasItsOwn) {
    EXPECT_EQ(keptPlace(state_, kMiniWindow), std::nullopt);
    notePlace(core_, kMiniWindow, {.left = 120, .top = -45});
    notePlace(core_, "frmAbout", {.left = 3000, .top = 200});
    EXPECT_EQ(keptPlace(state_, kMiniWindow), (ScreenPlace{.left = 120, .top = -45}));
    EXPECT_EQ(keptPlace(state_, "frmAbout"), (ScreenPlace{.left = 3000, .top = 200}));
    EXPECT_EQ(keptPlace(state_, "frmAbou"), std::nullopt);
    EXPECT_EQ(keptPlace(state_, "frmAbout2"), std::nullopt);
    notePlace(core_, kMiniWindow, {.left = 1, .top = 2});
    EXPECT_EQ(keptPlace(state_, kMiniWindow), (ScreenPlace{.left = 1, .top = 2}));
    EXPECT_EQ(state_.WindowPlaces, "mini 1 2;frmAbout 3000 200");
}

TEST_F(WindowPlaces, onlyAnotherPlaceIsStored) {
    notePlace(core_, kMiniWindow, {.left = 1, .top = 2});
    notePlace(core_, kMiniWindow, {.left = 1, .top = 2});
    EXPECT_EQ(changed_, std::vector<std::string>{"WPL"});
    notePlace(core_, kMiniWindow, {.left = 1, .top = 3});
    EXPECT_EQ(changed_.size(), 2U);
}

TEST_F(WindowPlaces, withoutComfortNothingIsKeptNorUsed) {
    state_.WindowPlaces = "mini 1 2";
    state_.comfort.keepsPlaces = false;
    EXPECT_EQ(keptPlace(state_, kMiniWindow), std::nullopt);
    notePlace(core_, kMiniWindow, {.left = 5, .top = 6});
    EXPECT_EQ(state_.WindowPlaces, "mini 1 2");
    EXPECT_TRUE(changed_.empty());
}

TEST_F(WindowPlaces, whatAHandWroteWrongIsNoPlace) {
    for (const char* places : {"mini", "mini ", "mini 1", "mini 1 x", "mini x 1", "mini 1 2 3",
                               "mini 99999999999 1", ";;", "mini;1 2"}) {
        state_.WindowPlaces = places;
        EXPECT_EQ(keptPlace(state_, kMiniWindow), std::nullopt) << places;
        notePlace(core_, kMiniWindow, {.left = 7, .top = 8});
        EXPECT_EQ(keptPlace(state_, kMiniWindow), (ScreenPlace{.left = 7, .top = 8})) << places;
    }
}

TEST_F(WindowPlaces, aSizeStandsBesideThePlace) {
    using window::keptSize;
    using window::noteSize;
    using window::ScreenSize;
    notePlace(core_, "frmAbout", {.left = 3, .top = 4});
    EXPECT_EQ(keptSize(state_, "frmAbout"), std::nullopt);
    noteSize(core_, "frmAbout", {.width = 500, .height = 300});
    EXPECT_EQ(keptSize(state_, "frmAbout"), (ScreenSize{.width = 500, .height = 300}));
    EXPECT_EQ(keptPlace(state_, "frmAbout"), (ScreenPlace{.left = 3, .top = 4}));
    EXPECT_EQ(state_.WindowPlaces, "frmAbout.size 500 300;frmAbout 3 4");
    noteSize(core_, "frmAbout", {.width = 500, .height = 300});
    EXPECT_EQ(changed_.size(), 2U) << "nothing new";
    for (const char* wrong : {"frmAbout.size 0 300", "frmAbout.size 300 -1", "frmAbout.size 300"}) {
        state_.WindowPlaces = wrong;
        EXPECT_EQ(keptSize(state_, "frmAbout"), std::nullopt) << wrong;
    }
    state_.WindowPlaces = "frmAbout.size 500 300";
    state_.comfort.keepsPlaces = false;
    EXPECT_EQ(keptSize(state_, "frmAbout"), std::nullopt);
}

} // namespace
} // namespace tovik::test
