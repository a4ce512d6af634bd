// SPDX-License-Identifier: GPL-3.0-or-later
// The mini window with comfort: where it is, and where its position bar is pressed.
#include "app/PresenceRig.h"

namespace tovik::test {
namespace {

using commands::CommandId;
using window::MiniElement;

class ComfortMini : public PresenceRig {
protected:
    void enter() {
        if (!player().state().LoadFinished) {
            start();
        }
        run(CommandId::miniMode);
        ASSERT_TRUE(player().state().MiniModeShown);
    }

    [[nodiscard]] window::MiniInput& input() { return player().presence().mini.input; }
};

TEST_F(ComfortMini, withComfortThePlaceOnTheBarIsThatOfThePointer) {
    put("CMF22", "1");
    play(1000);
    enter();
    for (const auto& [x, percent] : {std::pair(-20.0, 0.0), std::pair(0.0, 0.0),
                                     std::pair(34.0, 34.0), std::pair(99.0, 99.0)}) {
        dragTo(x);
        EXPECT_DOUBLE_EQ(mini(MiniElement::track).width, percent);
        EXPECT_EQ(player().music().playback.seek.second(), static_cast<int>(percent) * 10);
    }
    player().presence().mini.elements.touch(MiniElement::posbar).width = 200;
    dragTo(150);
    EXPECT_DOUBLE_EQ(mini(MiniElement::track).width, 150);
    EXPECT_EQ(player().music().playback.seek.second(), 750);
}

TEST_F(ComfortMini, withComfortItComesBackToItsPlaceInTheNextSession) {
    put("CMF22", "1");
    put("WPL", "frmAbout 7 8;mini 300 40");
    start();
    run(CommandId::miniMode);
    const auto moved = std::ranges::find(sound_.calls, "mini moved to 300 40");
    ASSERT_NE(moved, sound_.calls.end());
    EXPECT_NE(std::find(moved, sound_.calls.end(), "mini shown"), sound_.calls.end());
    window_.miniWindow.place = {.left = 310, .top = 41};
    input().windowMoved();
    EXPECT_EQ(setting("WPL"), "frmAbout 7 8;mini 300 40") << "it is on its way";
    player().kill_me();
    EXPECT_EQ(setting("WPL"), "mini 310 41;frmAbout 7 8");
}

TEST_F(ComfortMini, withoutComfortNobodyNotesItsPlace) {
    enter();
    window_.miniWindow.place = {.left = 300, .top = 40};
    input().windowMoved();
    player().kill_me();
    EXPECT_EQ(host_.folder.read(kSettings).find("WPL"), std::string::npos);
    EXPECT_EQ(std::ranges::count(sound_.calls, "mini moved to 300 40"), 0);
}

TEST_F(ComfortMini, placesThatAreWantedFromNowOnAreKept) {
    enter();
    window_.miniWindow.place = {.left = 300, .top = 40};
    input().windowMoved();
    put("CMF22", "1");
    player().ground().readComfort();
    player().applyComfort();
    window_.miniWindow.place = {.left = 301, .top = 40};
    input().windowMoved();
    advance(player::StoredSettings::kRestMs + 1);
    EXPECT_NE(host_.folder.read(kSettings).find("<WPL>mini 301 40</WPL>"), std::string::npos);
}

} // namespace
} // namespace tovik::test
