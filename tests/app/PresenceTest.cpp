// SPDX-License-Identifier: GPL-3.0-or-later
// Where the player is on the desktop: the icon in the tray, hiding and coming back, the title
// popup.
#include "app/PresenceRig.h"

namespace tovik::test {
namespace {

using commands::CommandId;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using window::NotifyCommand;

class PresenceOfThePlayer : public PresenceRig {
protected:
    /// The shell tells of the mouse in its own way.
    void tell(std::uint32_t message) {
        area_.events.callback(static_cast<std::int32_t>(message) * 15);
    }

    void startInTray() {
        area_.there = true;
        play();
        static_cast<void>(windowCalls());
    }
};

TEST_F(PresenceOfThePlayer, theLastDigitPutsTheIconIntoTheTray) {
    start();
    EXPECT_TRUE(area_.added());
    EXPECT_EQ(area_.calls.front().first, NotifyCommand::add);
    EXPECT_EQ(area_.calls.front().second.hIcon, 1);
}

class OtherPlaces : public PresenceOfThePlayer, public testing::WithParamInterface<const char*> {};

TEST_P(OtherPlaces, haveNoIcon) {
    set("SHI", GetParam());
    start();
    EXPECT_THAT(area_.calls, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Presence, OtherPlaces, testing::Values("10", "00", "2", "12"));

TEST_F(PresenceOfThePlayer, oneDigitStandsForBothPlaces) {
    set("SHI", "1");
    start();
    EXPECT_TRUE(area_.added());
    EXPECT_EQ(player().state().ShowInTaskbar, 1);
}

TEST_F(PresenceOfThePlayer, theStyleIsOneOfFour) {
    set("STI", "3");
    start();
    EXPECT_EQ(area_.calls.back().second.hIcon, 3);
    set("STI", "9");
    player().presence().sysTray.RefreshTrayIcon();
    EXPECT_EQ(area_.calls.back().first, NotifyCommand::modify);
    EXPECT_EQ(area_.calls.back().second.hIcon, 4);
    set("STI", "0");
    player().presence().sysTray.RefreshTrayIcon();
    EXPECT_EQ(area_.calls.back().second.hIcon, 1);
}

TEST_F(PresenceOfThePlayer, theTooltipIsTheVersionAndItsYearUntilSomethingPlays) {
    start();
    EXPECT_EQ(area_.tip(), "Tovik version 0.1 2026");
    EXPECT_EQ(window::yearOf("21.11.2026"), "2026");
    EXPECT_EQ(window::yearOf("2025-01-31"), "31");
    EXPECT_EQ(window::yearOf("none"), "");
    EXPECT_EQ(window::yearOf("in 1999 or so"), "1999");
}

TEST_F(PresenceOfThePlayer, theTooltipTellsWhatPlays) {
    play();
    EXPECT_EQ(area_.tip(), player().state().CurrentTitle);
    EXPECT_FALSE(player().state().CurrentTitle.empty());
    EXPECT_EQ(area_.calls.back().first, NotifyCommand::modify);
    const std::size_t calls = area_.calls.size();
    advance(5000);
    EXPECT_EQ(area_.calls.size(), calls) << "nothing is told that did not change";
    run(CommandId::stop);
    advance(100);
    EXPECT_EQ(area_.tip(), "Tovik version 0.1 2026");
}

TEST_F(PresenceOfThePlayer, minimiseHidesWhileTheTrayHasTheIcon) {
    startInTray();
    run(CommandId::minimise);
    EXPECT_THAT(windowCalls(), ElementsAre("window hidden"));
    EXPECT_TRUE(player().presence().hidden());
    tell(514);
    EXPECT_THAT(windowCalls(), ElementsAre("window shown", "to the front"));
    EXPECT_FALSE(player().presence().hidden());
}

TEST_F(PresenceOfThePlayer, minimiseGoesToTheTaskBarWhereNoTrayIs) {
    start();
    static_cast<void>(windowCalls());
    run(CommandId::minimise);
    EXPECT_THAT(windowCalls(), ElementsAre("window minimised"));
    EXPECT_FALSE(player().presence().hidden());
}

TEST_F(PresenceOfThePlayer, aWindowThatNothingWouldBringBackStays) {
    set("SHI", "01");
    start();
    static_cast<void>(windowCalls());
    run(CommandId::minimise);
    EXPECT_THAT(windowCalls(), IsEmpty());
}

TEST_F(PresenceOfThePlayer, withoutAnIconATrayThatIsThereIsNoWayBack) {
    set("SHI", "10");
    area_.there = true;
    start();
    static_cast<void>(windowCalls());
    run(CommandId::minimise);
    EXPECT_THAT(windowCalls(), ElementsAre("window minimised"));
}

TEST_F(PresenceOfThePlayer, theWindowComesBackWhenTheTrayGoes) {
    startInTray();
    run(CommandId::minimise);
    static_cast<void>(windowCalls());
    area_.become(false);
    EXPECT_THAT(windowCalls(), ElementsAre("window shown"));
    EXPECT_FALSE(player().presence().hidden());
    // A tray that comes later finds it where it is.
    area_.become(true);
    EXPECT_THAT(windowCalls(), IsEmpty());
}

TEST_F(PresenceOfThePlayer, anotherStyleLeavesTheHiddenWindowWhereItIs) {
    startInTray();
    run(CommandId::minimise);
    static_cast<void>(windowCalls());
    set("STI", "4");
    player().choices().preferences.hooks.tray(true);
    EXPECT_EQ(area_.calls.back().second.hIcon, 4);
    EXPECT_TRUE(player().presence().hidden());
    EXPECT_THAT(windowCalls(), Not(Contains("window shown")));
    // A tray that answers later, likewise, if it takes the icon.
    area_.slow = true;
    player().choices().preferences.hooks.tray(true);
    EXPECT_TRUE(player().presence().hidden());
    area_.answer();
    EXPECT_TRUE(player().presence().hidden());
    EXPECT_THAT(windowCalls(), Not(Contains("window shown")));
    // One that does not was the way back.
    player().choices().preferences.hooks.tray(true);
    EXPECT_TRUE(player().presence().hidden());
    area_.there = false;
    area_.answer();
    EXPECT_FALSE(player().presence().hidden());
    EXPECT_THAT(windowCalls(), Contains("window shown"));
}

TEST_F(PresenceOfThePlayer, withoutTheIconTheHiddenWindowComesBack) {
    startInTray();
    run(CommandId::minimise);
    static_cast<void>(windowCalls());
    set("SHI", "10");
    player().choices().preferences.hooks.tray(false);
    EXPECT_FALSE(area_.added());
    EXPECT_FALSE(player().presence().hidden());
    EXPECT_THAT(windowCalls(), Contains("window shown"));
}

TEST_F(PresenceOfThePlayer, aPanelThatIsChosenInTheTraysMenuBringsTheMainWindow) {
    startInTray();
    run(CommandId::minimise);
    static_cast<void>(windowCalls());
    run(CommandId::equalizerPanel);
    EXPECT_THAT(windowCalls(), ElementsAre("window shown"));
    EXPECT_FALSE(player().presence().hidden());
    EXPECT_EQ(player().state().CurrentPanel, 2);
    // It is on the screen already: nothing is shown anew.
    run(CommandId::playlistPanel);
    EXPECT_THAT(windowCalls(), IsEmpty());
    run(CommandId::miniMode);
    run(CommandId::minimise);
    static_cast<void>(windowCalls());
    run(CommandId::mainPanel);
    EXPECT_THAT(windowCalls(), ElementsAre("mini hidden", "window shown"));
    EXPECT_FALSE(player().presence().hidden());
}

TEST_F(PresenceOfThePlayer, theMenuComesWhereTheDesktopWantsIt) {
    startInTray();
    area_.place = window::ScreenPlace{.left = 700, .top = 20};
    tell(517);
    EXPECT_EQ(window_.menuPlace, (window::ScreenPlace{.left = 700, .top = 20}));
    tell(517);
    EXPECT_EQ(window_.menuPlace, std::nullopt);
    EXPECT_EQ(std::ranges::count(sound_.calls, "menu of the desktop"), 2);
}

TEST_F(PresenceOfThePlayer, theIconsStateTellsWhetherSomebodyTookIt) {
    start();
    ASSERT_NE(player().presence().sysTray.icon(), nullptr);
    EXPECT_FALSE(player().presence().sysTray.icon()->State());
    area_.become(true);
    EXPECT_TRUE(player().presence().sysTray.icon()->State());
    area_.become(false);
    EXPECT_FALSE(player().presence().sysTray.icon()->State());
}

TEST_F(PresenceOfThePlayer, theMiniWindowHidesAndComesBackLikewise) {
    startInTray();
    run(CommandId::miniMode);
    static_cast<void>(windowCalls());
    click(window::MiniElement::Image1, 1);
    EXPECT_THAT(windowCalls(), ElementsAre("mini hidden"));
    EXPECT_TRUE(player().state().MiniModeOn);
    EXPECT_FALSE(player().state().MiniModeShown);
    tell(514);
    EXPECT_THAT(windowCalls(), ElementsAre("mini shown", "mini to the front"));
    EXPECT_TRUE(player().state().MiniModeShown);
}

TEST_F(PresenceOfThePlayer, hidingEndsTheSpectrumAndComingBackStartsTheOneThatIsChosen) {
    set("CVP", "0");
    set("VPS", "100");
    startInTray();
    EXPECT_FALSE(player().visuals().spectrum.rests());
    run(CommandId::minimise);
    EXPECT_TRUE(player().visuals().spectrum.rests());
    tell(513);
    EXPECT_FALSE(player().visuals().spectrum.rests());
    run(CommandId::visualisationNone);
    run(CommandId::minimise);
    tell(513);
    EXPECT_TRUE(player().visuals().spectrum.rests());
}

TEST_F(PresenceOfThePlayer, aSecondStartBringsBackWhatIsHidden) {
    startInTray();
    run(CommandId::minimise);
    static_cast<void>(windowCalls());
    EXPECT_TRUE(host_.messages.keep({host::InstanceMessageKind::toTheFront, "token"}));
    advance(20);
    EXPECT_THAT(windowCalls(), ElementsAre("window shown", "to the front token"));
}

TEST_F(PresenceOfThePlayer, aSecondStartWithAFileBringsItBackToo) {
    startInTray();
    run(CommandId::minimise);
    static_cast<void>(windowCalls());
    advance(300);
    EXPECT_TRUE(host_.messages.keep(host::handOver(track("other.mp3"))));
    advance(20);
    EXPECT_THAT(windowCalls(), Contains("to the front"));
    EXPECT_FALSE(player().presence().hidden());
}

TEST_F(PresenceOfThePlayer, whatTheDesktopBroughtAlongGoesToTheWindow) {
    startInTray();
    area_.token = "seat";
    tell(514);
    EXPECT_THAT(windowCalls(), ElementsAre("to the front seat"));
}

TEST_F(PresenceOfThePlayer, theWheelOverTheIconIsTheVolume) {
    set("CVL", "50");
    startInTray();
    area_.events.wheel(1);
    EXPECT_EQ(player().state().CurrentVolume, 55);
    area_.events.wheel(-2);
    EXPECT_EQ(player().state().CurrentVolume, 45);
}

TEST_F(PresenceOfThePlayer, aMiddleClickPauses) {
    startInTray();
    area_.events.middleClick();
    EXPECT_TRUE(player().state().IsPaused);
    area_.events.middleClick();
    EXPECT_FALSE(player().state().IsPaused);
}

TEST_F(PresenceOfThePlayer, leavingTakesTheIconAwayFirst) {
    startInTray();
    run(CommandId::minimise);
    static_cast<void>(windowCalls());
    run(CommandId::exit);
    EXPECT_EQ(area_.calls.back().first, NotifyCommand::remove);
    EXPECT_FALSE(area_.added());
    // It is no tray that went: the window stays where it is.
    area_.become(false);
    EXPECT_THAT(windowCalls(), IsEmpty());
}

TEST_F(PresenceOfThePlayer, everyEndTakesTheIconAway) {
    startInTray();
    run(CommandId::miniMode);
    static_cast<void>(windowCalls());
    player().kill_me();
    EXPECT_FALSE(area_.added());
    EXPECT_THAT(windowCalls(), Contains("mini hidden"));
}

TEST_F(PresenceOfThePlayer, theChoiceOfThePreferencesIsFelt) {
    area_.there = true;
    start();
    set("SHI", "10");
    player().choices().preferences.hooks.tray(false);
    EXPECT_FALSE(area_.added());
    set("SHI", "01");
    set("STI", "2");
    sound_.calls.clear();
    player().choices().preferences.hooks.tray(true);
    EXPECT_TRUE(area_.added());
    EXPECT_EQ(area_.calls.back().second.hIcon, 2);
    EXPECT_EQ(player().state().ShowInTaskbar, 0);
    EXPECT_THAT(sound_.calls, Contains("not on the task bar"));
}

TEST_F(PresenceOfThePlayer, aPlayerWithoutADesktopHasNoIcon) {
    shell_ = nullptr;
    start();
    static_cast<void>(windowCalls());
    run(CommandId::minimise);
    EXPECT_THAT(windowCalls(), ElementsAre("window minimised"));
    player().presence().ApplyShellPresence();
    run(CommandId::exit);
}

TEST_F(PresenceOfThePlayer, aTrackThatStartsIsToldAcrossTheScreen) {
    set("OSD", "1");
    play(65);
    ASSERT_THAT(popup_.texts, Not(IsEmpty()));
    EXPECT_EQ(popup_.texts.back(), player().state().CurrentTitle + " (01:05)");
    EXPECT_EQ(popup_.last.heightTwips, 560);
    EXPECT_EQ(popup_.last.opacityPercent, 30);
    EXPECT_EQ(popup_.hidden, 0);
    advance(1999);
    EXPECT_EQ(popup_.hidden, 0);
    advance(2);
    EXPECT_EQ(popup_.hidden, 1);
}

TEST_F(PresenceOfThePlayer, aTrackThatStartsIsToldAsANotificationWhereThatIsWanted) {
    set("OSD", "1");
    play();
    EXPECT_FALSE(popup_.last.asNotification);
    put("OSK", "1");
    run(CommandId::play);
    EXPECT_TRUE(popup_.last.asNotification);
    put("OSK", "0");
    run(CommandId::play);
    EXPECT_FALSE(popup_.last.asNotification);
    set("OSD", "0");
    put("OSK", "1");
    const std::size_t told = popup_.texts.size();
    run(CommandId::play);
    EXPECT_EQ(popup_.texts.size(), told);
}

TEST_F(PresenceOfThePlayer, nothingIsToldWhereItIsNotWanted) {
    set("OSD", "0");
    play();
    EXPECT_THAT(popup_.texts, IsEmpty());
}

TEST_F(PresenceOfThePlayer, asecondTextHasItsTwoSeconds) {
    start();
    window::frmTitle& title = player().presence().title;
    EXPECT_TRUE(title.show_title("one"));
    advance(1500);
    EXPECT_TRUE(title.show_title("two"));
    advance(1900);
    EXPECT_EQ(popup_.hidden, 0);
    EXPECT_TRUE(title.shown());
    advance(200);
    EXPECT_EQ(popup_.hidden, 1);
    EXPECT_FALSE(title.shown());
    EXPECT_THAT(popup_.texts, ElementsAre("one", "two"));
}

TEST_F(PresenceOfThePlayer, whatFailsOnThePopupIsLoggedByItsProcedures) {
    start();
    window::frmTitle& title = player().presence().title;
    popup_.failing = "setKey";
    EXPECT_TRUE(title.show_title("one")) << "it simply goes on";
    popup_.failing = "hide";
    advance(2500);
    popup_.failing = "show";
    EXPECT_FALSE(title.show_title("two"));
    popup_.failing.clear();
    EXPECT_THAT(logged(),
                ElementsAre(testing::HasSubstr(",OSD,Load"), testing::HasSubstr(",OSD,timer1"),
                            testing::HasSubstr(",OSD,ShowTitle")));
}

TEST_F(PresenceOfThePlayer, escapeEndsThePopup) {
    start();
    player().presence().title.show_title("one");
    popup_.key('A');
    EXPECT_EQ(popup_.hidden, 0);
    popup_.key(27);
    EXPECT_EQ(popup_.hidden, 1);
    advance(3000);
    EXPECT_EQ(popup_.hidden, 1);
}

TEST_F(PresenceOfThePlayer, withComfortMinimisingGoesToTheTaskBarAlsoBesideATray) {
    put("CMF22", "1");
    startInTray();
    run(CommandId::minimise);
    EXPECT_THAT(windowCalls(), ElementsAre("window minimised"));
    EXPECT_FALSE(player().presence().hidden());
    // The icon brings it back from there.
    window_.seen = false;
    tell(514);
    EXPECT_THAT(windowCalls(), ElementsAre("to the front"));
    run(CommandId::miniMode);
    static_cast<void>(windowCalls());
    click(window::MiniElement::Image1, 1);
    EXPECT_THAT(windowCalls(), ElementsAre("mini minimised"));
}

TEST_F(PresenceOfThePlayer, withComfortAWindowWithoutAButtonOnTheTaskBarHidesInTheTray) {
    put("CMF22", "1");
    set("SHI", "01");
    startInTray();
    run(CommandId::minimise);
    EXPECT_THAT(windowCalls(), ElementsAre("window hidden"));
    EXPECT_TRUE(player().presence().hidden());
}

TEST_F(PresenceOfThePlayer, withComfortAClickOnTheIconHidesTheWindowAndBringsItBack) {
    put("CMF22", "1");
    startInTray();
    tell(514);
    EXPECT_THAT(windowCalls(), ElementsAre("window hidden"));
    EXPECT_TRUE(player().presence().hidden());
    tell(515);
    EXPECT_THAT(windowCalls(), IsEmpty()) << "the second click of a double one";
    tell(514);
    EXPECT_THAT(windowCalls(), ElementsAre("window shown", "to the front"));
    EXPECT_FALSE(player().presence().hidden());
    // What nobody sees comes to the front first.
    window_.seen = false;
    tell(514);
    EXPECT_THAT(windowCalls(), ElementsAre("to the front"));
    EXPECT_FALSE(player().presence().hidden());
}

TEST_F(PresenceOfThePlayer, withoutComfortAClickOnTheIconHidesNothing) {
    startInTray();
    tell(514);
    EXPECT_THAT(windowCalls(), ElementsAre("to the front"));
    EXPECT_FALSE(player().presence().hidden());
}

TEST_F(PresenceOfThePlayer, withComfortTheTitleIsSmallAndLegible) {
    set("OSD", "1");
    put("CMF22", "1");
    play();
    EXPECT_TRUE(popup_.last.small);
    EXPECT_EQ(popup_.last.heightTwips, 480);
    EXPECT_EQ(popup_.last.opacityPercent, 90);
    EXPECT_FALSE(popup_.last.asNotification);
    put("OSK", "1");
    run(CommandId::play);
    EXPECT_TRUE(popup_.last.asNotification);
}

} // namespace
} // namespace tovik::test
