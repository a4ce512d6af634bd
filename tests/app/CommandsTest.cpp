// SPDX-License-Identifier: GPL-3.0-or-later
// What the commands do in the whole player, reached as a user does: by keys and buttons.
#include "app/AppRig.h"

namespace tovik::test {
namespace {

using commands::CommandId;
using testing::Contains;
using testing::IsEmpty;
using window::MainElement;

class PlayerCommands : public AppRig {
protected:
    PlayerCommands() { set("TMD", "0"); }

    void key(int code, ui::Modifiers modifiers = {}) {
        player().input().keyDown({.code = code, .modifiers = modifiers});
    }

    void click(MainElement element, std::size_t index = 0) {
        const ui::Box box = player().elements().get(element, index).box();
        ui::PointerEvent event;
        event.element = ui::addressOf(element, index);
        event.windowX = box.left + box.width / 2;
        event.windowY = box.top + box.height / 2;
        event.button = ui::MouseButton::Left;
        player().input().mouseDown(event);
        player().input().mouseUp(event);
    }

    /// A list of two that has begun to play.
    void playSong() {
        options_.commandLine = '"' + track("song.mp3", {.seconds = 100}) + '"';
        start();
        ASSERT_TRUE(player().state().IsPlaying);
        player().stdSS().AddItem("", track("other.mp3", {.seconds = 50}), "Other", "00:50", 50);
    }

    [[nodiscard]] std::int32_t position() {
        return player().music().playback.time.GetPlayingPos(player().state().active());
    }
};

TEST_F(PlayerCommands, playPauseStop) {
    playSong();
    key('C');
    EXPECT_TRUE(player().state().IsPaused);
    key('V');
    EXPECT_FALSE(player().state().IsPlaying);
    key('X');
    EXPECT_TRUE(player().state().IsPlaying);
    EXPECT_FALSE(player().state().IsPaused);
}

TEST_F(PlayerCommands, fiveSecondsOnAndBack) {
    playSong();
    key(0x27);
    key(0x27);
    EXPECT_EQ(position(), 10);
    key(0x25);
    EXPECT_EQ(position(), 5);
}

TEST_F(PlayerCommands, panelsByKeysAndTabs) {
    start();
    for (int panel = 2; panel <= 5; ++panel) {
        key('0' + panel);
        EXPECT_EQ(player().state().CurrentPanel, panel);
    }
    click(MainElement::mainbt);
    EXPECT_EQ(player().state().CurrentPanel, 1);
}

TEST_F(PlayerCommands, startAndEndOfTheList) {
    playSong();
    player().commands().run(CommandId::endOfList);
    EXPECT_EQ(player().stdSS().SelectedIndex, 2);
    EXPECT_EQ(player().music().playback.time.GetDuration(player().state().active()), 50);
    player().commands().run(CommandId::startOfList);
    EXPECT_EQ(player().stdSS().SelectedIndex, 1);
    EXPECT_EQ(player().music().playback.time.GetDuration(player().state().active()), 100);
}

TEST_F(PlayerCommands, stopAfterCurrentFlips) {
    start();
    const ui::Element& note = player().elements().get(MainElement::stopNote);
    EXPECT_FALSE(note.visible);
    key('M', {.control = true});
    EXPECT_TRUE(player().state().StopAfterCurrent);
    EXPECT_TRUE(player().commands().checked(CommandId::stopAfterCurrent));
    EXPECT_TRUE(note.visible);
    EXPECT_EQ(note.caption, "Stop after current");
    EXPECT_TRUE(note.picture) << "drawn with the glyphs of the display";
    key('M', {.control = true});
    EXPECT_FALSE(player().state().StopAfterCurrent);
    EXPECT_FALSE(player().commands().checked(CommandId::stopAfterCurrent));
    EXPECT_FALSE(note.visible);
}

TEST_F(PlayerCommands, thatItStopsAfterTheTrackIsSeenOnTheMainPanelOnly) {
    start();
    const ui::Element& note = player().elements().get(MainElement::stopNote);
    click(MainElement::plbt);
    key('M', {.control = true});
    EXPECT_FALSE(note.visible);
    click(MainElement::mainbt);
    EXPECT_TRUE(note.visible);
    click(MainElement::plbt);
    EXPECT_FALSE(note.visible);
}

TEST_F(PlayerCommands, playedAndLeftExcludeEachOther) {
    start();
    EXPECT_TRUE(player().commands().checked(CommandId::timeElapsed));
    EXPECT_FALSE(player().commands().checked(CommandId::timeRemaining));
    EXPECT_FALSE(player().elements().get(MainElement::timed, 0).visible);
    player().commands().run(CommandId::timeRemaining);
    EXPECT_FALSE(player().commands().checked(CommandId::timeElapsed));
    EXPECT_TRUE(player().commands().checked(CommandId::timeRemaining));
    EXPECT_TRUE(player().elements().get(MainElement::timed, 0).visible);
    player().commands().run(CommandId::timeElapsed);
    EXPECT_EQ(player().state().TimeDisplayMode, 0);
    EXPECT_FALSE(player().elements().get(MainElement::timed, 0).visible);
}

TEST_F(PlayerCommands, theSignStaysWhenTheClockIsSetBack) {
    set("TMD", "1");
    start();
    EXPECT_TRUE(player().elements().get(MainElement::timed, 0).visible);
    key('V');
    EXPECT_TRUE(player().elements().get(MainElement::timed, 0).visible);
}

TEST_F(PlayerCommands, alwaysOnTopTogglesTheSetting) {
    set("ASOT", "0");
    start();
    EXPECT_FALSE(player().commands().checked(CommandId::alwaysOnTop));
    player().commands().run(CommandId::alwaysOnTop);
    EXPECT_EQ(setting("ASOT"), "1");
    EXPECT_TRUE(player().commands().checked(CommandId::alwaysOnTop));
    EXPECT_EQ(sound_.calls.back(), "on top");
    player().commands().run(CommandId::alwaysOnTop);
    EXPECT_EQ(setting("ASOT"), "0");
    EXPECT_EQ(sound_.calls.back(), "not on top");
}

TEST_F(PlayerCommands, onTopByAnotherNumberCountsAsOff) {
    set("ASOT", "2");
    start();
    EXPECT_FALSE(player().commands().checked(CommandId::alwaysOnTop));
    player().commands().run(CommandId::alwaysOnTop);
    EXPECT_EQ(setting("ASOT"), "1");
}

TEST_F(PlayerCommands, theQuickListFolds) {
    start();
    const bool before = player().state().QuickListOpen;
    click(MainElement::qpl_but);
    EXPECT_EQ(player().state().QuickListOpen, !before);
    EXPECT_EQ(player().commands().checked(CommandId::foldQuickList), !before);
}

TEST_F(PlayerCommands, leavingByKeyButtonAndWindow) {
    start();
    EXPECT_FALSE(host_.closing.leaveIfAsked());
    key('X', {.alt = true});
    EXPECT_TRUE(host_.closing.leaveIfAsked());
}

TEST_F(PlayerCommands, theCloseButtonLeaves) {
    start();
    click(MainElement::closeup);
    EXPECT_TRUE(host_.closing.leaveIfAsked());
}

TEST_F(PlayerCommands, whatHasNoTargetYetIsDisabledAndHarmless) {
    start();
    const std::size_t calls = sound_.calls.size();
    for (const commands::Command& command : commands::commandTable()) {
        if (!player().commands().enabled(command.id)) {
            EXPECT_FALSE(player().commands().run(command.id));
        }
    }
    EXPECT_EQ(sound_.calls.size(), calls);
    EXPECT_THAT(host_.errors, IsEmpty());
}

TEST_F(PlayerCommands, theStartShowsVolumeAndBalance) {
    set("CVL", "25");
    set("BLV", "50");
    start();
    const window::MainElements& elements = player().elements();
    EXPECT_DOUBLE_EQ(elements.get(MainElement::volbarIMG).height,
                     elements.get(MainElement::volbar).height / 4);
    EXPECT_EQ(elements.get(MainElement::shwchange, 0).caption, "Volume 25%");
    // The step is told only after the first click.
    EXPECT_EQ(elements.get(MainElement::shwchange, 1).caption, "Right 100%");
    EXPECT_TRUE(elements.get(MainElement::balbar, 6).checked);
    EXPECT_FALSE(elements.get(MainElement::balbar, 7).checked);
    click(MainElement::balbar, 6);
    EXPECT_EQ(elements.get(MainElement::shwchange, 1).caption, "Right 50%");
}

TEST_F(PlayerCommands, aVolumeOfNothingIsSilenceFromTheFirstTrackOn) {
    set("CVL", "0");
    playSong();
    EXPECT_EQ(player().elements().get(MainElement::volbarIMG).height, 0);
    EXPECT_EQ(sound_.channel(player().state().active()).volume, 0);
}

TEST_F(PlayerCommands, theWheelIsKeptAtTheEnd) {
    set("CVL", "40");
    start();
    player().input().wheel({}, 1);
    player().kill_me();
    EXPECT_EQ(setting("CVL"), "45");
}

} // namespace
} // namespace tovik::test
