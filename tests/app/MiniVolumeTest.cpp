// SPDX-License-Identifier: GPL-3.0-or-later
// The volume on the mini window, and the wheel over it.
#include "app/PresenceRig.h"

namespace tovik::test {
namespace {

using commands::CommandId;
using testing::Contains;
using testing::HasSubstr;
using window::MainElement;
using window::MiniElement;

class VolumeOfMini : public PresenceRig {
protected:
    void enter() {
        play();
        run(CommandId::miniMode);
    }

    [[nodiscard]] window::MiniVolume& volume() { return player().presence().mini.volume; }

    [[nodiscard]] window::MiniInput& input() { return player().presence().mini.input; }
};

TEST_F(VolumeOfMini, isMirrored) {
    EXPECT_EQ(window::mirrored(50), 50);
    EXPECT_EQ(window::mirrored(0), 100);
    EXPECT_EQ(window::mirrored(100), 0);
    EXPECT_EQ(window::mirrored(30), 70);
    EXPECT_EQ(window::mirrored(70), 30);
}

TEST_F(VolumeOfMini, theMiddleOfTheBarSendsFifty) {
    enter();
    sound_.calls.clear();
    volume().volbar.Value(50);
    EXPECT_EQ(player().state().CurrentVolume, 50);
    EXPECT_THAT(sound_.calls, Contains(HasSubstr("BASS_ChannelSetAttributes")));
    EXPECT_THAT(sound_.calls, Contains(HasSubstr(" 50,")));
}

TEST_F(VolumeOfMini, beginsWithThePlayers) {
    set("CVL", "80");
    enter();
    EXPECT_EQ(volume().volbar.Value(), 20);
}

TEST_F(VolumeOfMini, growsAsTheThumbRises) {
    enter();
    const ui::Box bar = mini(MiniElement::volbar).box();
    input().mouseDown(at(MiniElement::volbar, 0, bar.left + 18, bar.top + 1));
    EXPECT_EQ(player().state().CurrentVolume, 100);
    ui::PointerEvent move = at(MiniElement::volbar, 0, bar.left + 18, bar.top + 58);
    move.button = ui::MouseButton::None;
    input().mouseMove(move);
    EXPECT_EQ(player().state().CurrentVolume, 0);
    input().mouseUp(at(MiniElement::volbar, 0, bar.left + 18, bar.top + 58));
    EXPECT_FALSE(volume().volbar.Dragging());
    EXPECT_DOUBLE_EQ(mini(MiniElement::volbar).bar.top, 50);
}

TEST_F(VolumeOfMini, bothBarsAndTheWordsAgree) {
    enter();
    volume().SetMiniVolume(40);
    EXPECT_EQ(player().state().CurrentVolume, 40);
    EXPECT_EQ(volume().volbar.Value(), 60);
    const double whole = player().elements().get(MainElement::volbar).height;
    EXPECT_DOUBLE_EQ(player().elements().get(MainElement::volbarIMG).height, whole * 0.4);
    EXPECT_THAT(mini(MiniElement::shwchange).caption, HasSubstr("40"));
    EXPECT_THAT(player().elements().get(MainElement::shwchange).caption, HasSubstr("40"));
    player().view().volumeBar.change(75);
    EXPECT_EQ(volume().volbar.Value(), 25);
}

TEST_F(VolumeOfMini, goesToTheWholeOutputWhereTheSettingsSaySo) {
    set("EV2", "1");
    enter();
    sound_.calls.clear();
    volume().SetMiniVolume(33);
    EXPECT_THAT(sound_.calls, Contains("BASS_SetVolume(33)"));
    EXPECT_EQ(callsOf("BASS_ChannelSetAttributes"), 0U);
}

TEST_F(VolumeOfMini, theWheelIsFivePercentOverEitherWindow) {
    set("CVL", "50");
    enter();
    input().wheel(on(MiniElement::picBackground), 1);
    EXPECT_EQ(player().state().CurrentVolume, 55);
    input().wheel(on(MiniElement::volbar), -2);
    EXPECT_EQ(player().state().CurrentVolume, 45);
    // Parts of a notch add up.
    input().wheel(on(MiniElement::songname), 0.5);
    EXPECT_EQ(player().state().CurrentVolume, 45);
    input().wheel(on(MiniElement::songname), 0.5);
    EXPECT_EQ(player().state().CurrentVolume, 50);
    EXPECT_EQ(volume().volbar.Value(), 50);
    ui::PointerEvent ground;
    ground.element = ui::addressOf(MainElement::mainIMG);
    player().input().wheel(ground, 1);
    EXPECT_EQ(player().state().CurrentVolume, 55);
}

TEST_F(VolumeOfMini, theHiddenListIsHookedAsLongAsTheWindowIsThere) {
    set("CVL", "50");
    play();
    ui::MessageWindow& list = input().lstPathList;
    list.send({ui::messages::kMouseWheel, 120});
    EXPECT_EQ(player().state().CurrentVolume, 50);
    run(CommandId::miniMode);
    list.send({ui::messages::kMouseWheel, 120});
    EXPECT_EQ(player().state().CurrentVolume, 55);
    EXPECT_EQ(list.chain()->size(), 1U);
    run(CommandId::miniMode);
    list.send({ui::messages::kMouseWheel, 120});
    EXPECT_EQ(player().state().CurrentVolume, 55);
    EXPECT_TRUE(list.chain()->empty());
}

} // namespace
} // namespace tovik::test
