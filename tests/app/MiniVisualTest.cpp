// SPDX-License-Identifier: GPL-3.0-or-later
// A plug-in and the two windows of the player.
#include "app/PresenceRig.h"

namespace tovik::test {
namespace {

using commands::CommandId;
using testing::Contains;
using testing::Not;
using window::MainElement;
using window::MiniElement;

class PluginInMiniMode : public PresenceRig {
protected:
    /// A plug-in draws in the main window.
    void playWithPlugin() {
        sound_.shelf = {{host_.folder / "Plugins/Vis/a.svp", "Waves"}};
        set("CVP", "3");
        play();
        ASSERT_TRUE(host_.watches.fire(FakeVisuals::listDescriptor()));
        answer();
        ASSERT_TRUE(player().elements().get(MainElement::Picture1).picture);
        sound_.visualCalls.clear();
    }

    void wantsRoom(const std::string& text) {
        host_.folder.write("Plugins/Vis/tpcf.ini", "[Size]\r\n960x720=" + text + "\r\n");
    }

    void answer() {
        ASSERT_FALSE(sound_.visuals.empty());
        sound_.visual().news = sound::VisualNews::picture;
        ASSERT_TRUE(host_.watches.fire(sound_.descriptor()));
    }

    [[nodiscard]] window::MiniInput& input() { return player().presence().mini.input; }
};

TEST_F(PluginInMiniMode, beginsAnewInTheWindowThatIsThere) {
    playWithPlugin();
    run(CommandId::miniMode);
    EXPECT_THAT(sound_.visualCalls, Contains("create " + sound_.shelf[0].path + " 0 70 x 16"));
    EXPECT_EQ(sound_.visuals.size(), 1U);
    EXPECT_FALSE(player().elements().get(MainElement::Picture1).picture);
    answer();
    EXPECT_TRUE(mini(MiniElement::Picture1).picture);
    sound_.visualCalls.clear();
    run(CommandId::miniMode);
    EXPECT_THAT(sound_.visualCalls, Contains("create " + sound_.shelf[0].path + " 0 166 x 24"));
    EXPECT_FALSE(mini(MiniElement::Picture1).picture);
    answer();
    EXPECT_TRUE(player().elements().get(MainElement::Picture1).picture);
}

TEST_F(PluginInMiniMode, thatWantsRoomWaitsForTheMainWindow) {
    wantsRoom("true");
    playWithPlugin();
    run(CommandId::miniMode);
    ASSERT_TRUE(player().state().MiniModeOn);
    EXPECT_TRUE(sound_.visuals.empty());
    run(CommandId::stop);
    run(CommandId::play);
    advance(5000);
    EXPECT_TRUE(sound_.visuals.empty());
    EXPECT_FALSE(mini(MiniElement::Picture1).picture);
    input().doubleClick(on(MiniElement::Picture1));
    EXPECT_FALSE(player().visuals().onFullScreen()) << "there is nothing to be shown";
    EXPECT_FALSE(player().commands().checked(CommandId::visualisationNone)) << "it stays chosen";
    run(CommandId::miniMode);
    ASSERT_EQ(sound_.visuals.size(), 1U);
    answer();
    EXPECT_TRUE(player().elements().get(MainElement::Picture1).picture);
}

TEST_F(PluginInMiniMode, thatDoesNotWantRoomGoesAlong) {
    wantsRoom("0");
    playWithPlugin();
    run(CommandId::miniMode);
    EXPECT_EQ(sound_.visuals.size(), 1U);
}

TEST_F(PluginInMiniMode, isClickedThere) {
    playWithPlugin();
    run(CommandId::miniMode);
    sound_.visualCalls.clear();
    ui::PointerEvent event = on(MiniElement::Picture1);
    event.x = 30;
    event.y = 7;
    input().mouseDown(event);
    EXPECT_THAT(sound_.visualCalls, Contains("click 30 7"));
    sound_.visualCalls.clear();
    event.button = ui::MouseButton::Right;
    input().mouseDown(event);
    input().mouseDown(on(MiniElement::picBackground));
    EXPECT_TRUE(sound_.visualCalls.empty());
}

TEST_F(PluginInMiniMode, isShownOnTheWholeScreenFromThere) {
    playWithPlugin();
    run(CommandId::miniMode);
    answer();
    input().doubleClick(on(MiniElement::Picture1));
    EXPECT_TRUE(player().visuals().onFullScreen());
    EXPECT_THAT(sound_.visualCalls, Contains("size 320 x 200"));
    window_.screenInput.leave();
    EXPECT_THAT(sound_.visualCalls, Contains("size 70 x 16"));
}

TEST_F(PluginInMiniMode, isDrawnAsFineAsTheWindowIs) {
    window_.miniWindow.pixels = 2;
    playWithPlugin();
    run(CommandId::miniMode);
    EXPECT_EQ(sound_.visual().width, 140);
    answer();
    const auto* const drawn = player().view().pictures.find(mini(MiniElement::Picture1).picture);
    ASSERT_NE(drawn, nullptr);
    EXPECT_EQ(drawn->density, 2);
    EXPECT_EQ(drawn->width, 140);
    input().mouseDown(on(MiniElement::Picture1)); // in skin pixels
    EXPECT_THAT(sound_.visualCalls, Not(Contains(testing::StartsWith("size"))));
}

} // namespace
} // namespace tovik::test
