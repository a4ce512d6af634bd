// SPDX-License-Identifier: GPL-3.0-or-later
// Which visualisation is on, and when it moves, in the whole player.
#include "app/AppRig.h"

namespace tovik::test {
namespace {

using commands::CommandId;
using window::MainElement;

class VisualsOfThePlayer : public AppRig {
protected:
    /// A song plays, and the sound library has a spectrum of it.
    void play() {
        options_.commandLine = '"' + track("song.mp3", {.seconds = 600}) + '"';
        start();
        ASSERT_TRUE(player().state().IsPlaying);
        sound_.spectra[player().state().active()].fill(0.5F);
    }

    [[nodiscard]] bool drawn() {
        return static_cast<bool>(player().elements().get(MainElement::Picture1).picture);
    }

    int reads(std::int64_t milliseconds) {
        const int before = sound_.spectraRead;
        advance(milliseconds);
        return sound_.spectraRead - before;
    }

    void run(CommandId command) { EXPECT_TRUE(player().commands().run(command)); }
};

TEST_F(VisualsOfThePlayer, whatTheSettingsNameIsOn) {
    set("CVP", "0");
    set("VPS", "100");
    play();
    EXPECT_TRUE(player().commands().checked(CommandId::visualisationSpectrum));
    EXPECT_FALSE(player().commands().checked(CommandId::visualisationNone));
    EXPECT_EQ(reads(1000), 10);
    EXPECT_TRUE(drawn());
}

class EveryOtherNumber : public VisualsOfThePlayer,
                         public testing::WithParamInterface<const char*> {};

TEST_P(EveryOtherNumber, isNoneAndStaysInTheSettings) {
    set("CVP", GetParam());
    play();
    EXPECT_TRUE(player().commands().checked(CommandId::visualisationNone));
    EXPECT_FALSE(player().commands().checked(CommandId::visualisationSpectrum));
    EXPECT_EQ(reads(400), 0);
    EXPECT_TRUE(player().visuals().spectrum.rests());
    player().kill_me();
    EXPECT_EQ(setting("CVP"), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Visuals, EveryOtherNumber,
                         testing::Values("-1", "1", "2", "3", "17", "-5"));

TEST_F(VisualsOfThePlayer, aSpeedFromThePreferencesCountsAtOnce) {
    set("CVP", "0");
    set("VPS", "0");
    play();
    EXPECT_EQ(reads(1000), 0);
    player().choices().preferences.hooks.spectrumSpeed(100);
    EXPECT_EQ(reads(1000), 10);
    player().choices().preferences.hooks.spectrumSpeed(50);
    EXPECT_EQ(reads(1000), 20);
}

TEST_F(VisualsOfThePlayer, theMenuSwitches) {
    set("CVP", "-1");
    play();
    EXPECT_EQ(reads(400), 0);
    EXPECT_FALSE(drawn());
    run(CommandId::visualisationSpectrum);
    EXPECT_TRUE(player().commands().checked(CommandId::visualisationSpectrum));
    EXPECT_EQ(reads(400), 10);
    EXPECT_TRUE(drawn());
    run(CommandId::visualisationNone);
    EXPECT_TRUE(player().commands().checked(CommandId::visualisationNone));
    EXPECT_EQ(reads(400), 0);
    EXPECT_FALSE(drawn());
    run(CommandId::visualisationSpectrum);
    player().kill_me();
    EXPECT_EQ(setting("CVP"), "0");
    EXPECT_TRUE(player().visuals().spectrum.rests());
}

TEST_F(VisualsOfThePlayer, pauseStandsStillAndStopClears) {
    set("CVP", "0");
    play();
    advance(400);
    run(CommandId::pause);
    EXPECT_EQ(reads(400), 0);
    EXPECT_TRUE(drawn());
    EXPECT_TRUE(player().visuals().spectrum.rests());
    run(CommandId::pause);
    EXPECT_EQ(reads(400), 10);
    run(CommandId::stop);
    EXPECT_FALSE(drawn());
    EXPECT_EQ(reads(400), 0);
    run(CommandId::play);
    sound_.spectra[player().state().active()].fill(0.5F);
    EXPECT_EQ(reads(400), 10);
    EXPECT_TRUE(drawn());
}

TEST_F(VisualsOfThePlayer, restsWhileItsPanelIsCovered) {
    set("CVP", "0");
    play();
    player().view().panels.Switch_Win("00100");
    EXPECT_EQ(reads(1000), 0);
    EXPECT_TRUE(player().visuals().spectrum.rests());
    player().view().panels.Switch_Win("10000");
    EXPECT_EQ(reads(400), 10);
    player().view().panels.pressPreferences([this] {
        player().elements().touch(MainElement::Picture1).visible = false;
        EXPECT_EQ(reads(400), 0);
    });
    EXPECT_EQ(reads(400), 10);
}

TEST_F(VisualsOfThePlayer, restsWhileTheWindowCannotBeSeen) {
    set("CVP", "0");
    play();
    window_.seen = false;
    EXPECT_EQ(reads(1000), 0);
    EXPECT_TRUE(player().visuals().spectrum.rests());
    window_.seen = true;
    player().visuals().stirVisualisation();
    EXPECT_EQ(reads(400), 10);
}

class PluginsOfThePlayer : public VisualsOfThePlayer {
protected:
    PluginsOfThePlayer() {
        sound_.shelf = {{"/own/a.svp", "Waves"}, {"/own/b.svp", ""}, {"/shipped/c.svp", "Aurora"}};
        options_.shippedVisuals = "/shipped";
    }

    /// What is looked for in the background is found.
    void fill() { EXPECT_TRUE(host_.watches.fire(FakeVisuals::listDescriptor())); }

    void answer(sound::VisualNews news = sound::VisualNews::picture) {
        sound_.visual().news = news;
        ASSERT_TRUE(host_.watches.fire(sound_.descriptor()));
    }

    void chooseEntry(const std::string& key) {
        menus::cMenus& menus = player().menus().frmTSR.m_Menus;
        const int index = menus.IndexForKey(key);
        ASSERT_NE(index, 0) << key;
        static_cast<void>(
            player().menus().frmTSR.messages().send({ui::messages::kCommand, menus.ItemID(index)}));
    }

    [[nodiscard]] bool entryChecked(const std::string& key) {
        menus::cMenus& menus = player().menus().frmTSR.m_Menus;
        player().menus().frmTSR.messages().send(
            {ui::messages::kInitMenuPopup, menus.ItemID(menus.IndexForKey("vis"))});
        return menus.ItemChecked(menus.IndexForKey(key));
    }

    [[nodiscard]] std::string words() {
        return player().elements().get(MainElement::Picture1).smallText;
    }
};

TEST_F(PluginsOfThePlayer, areLookedForOnceWhenTheStartIsOver) {
    set("CVP", "-1");
    play();
    EXPECT_TRUE(sound_.looked.empty());
    advance(1000);
    ASSERT_EQ(sound_.looked.size(), 1U);
    EXPECT_EQ(sound_.looked[0].folders,
              (std::vector<std::string>{host_.folder / "Plugins/Vis", "/shipped"}));
    EXPECT_EQ(sound_.looked[0].knownNames, host_.folder / "db/visuals.dat");
    fill();
    EXPECT_TRUE(sound_.visuals.empty());
    advance(10'000);
    EXPECT_EQ(sound_.looked.size(), 1U);
}

TEST_F(PluginsOfThePlayer, theOneOfTheSettingsBeginsWhenItIsFound) {
    set("CVP", "5");
    play();
    ASSERT_EQ(sound_.looked.size(), 1U); // at once
    EXPECT_TRUE(player().commands().checked(CommandId::visualisationNone));
    EXPECT_TRUE(sound_.visuals.empty());
    fill();
    ASSERT_EQ(sound_.visuals.size(), 1U);
    EXPECT_EQ(sound_.visual().path, "/shipped/c.svp");
    EXPECT_FALSE(player().commands().checked(CommandId::visualisationNone));
    EXPECT_TRUE(entryChecked("sp(5)"));
    EXPECT_FALSE(entryChecked("sp(3)"));
    answer();
    EXPECT_TRUE(drawn());
    player().kill_me();
    EXPECT_TRUE(sound_.visuals.empty());
    EXPECT_EQ(setting("CVP"), "5");
}

TEST_F(PluginsOfThePlayer, oneThatIsGoneOrHasNoNameSelectsNone) {
    set("CVP", "4");
    play();
    fill();
    EXPECT_TRUE(sound_.visuals.empty());
    EXPECT_TRUE(player().commands().checked(CommandId::visualisationNone));
    player().kill_me();
    EXPECT_EQ(setting("CVP"), "4");
}

TEST_F(PluginsOfThePlayer, theMenuSwitchesAmongAll) {
    set("CVP", "0");
    play();
    advance(1000);
    fill();
    chooseEntry("sp(3)");
    ASSERT_EQ(sound_.visuals.size(), 1U);
    EXPECT_EQ(sound_.visual().path, "/own/a.svp");
    EXPECT_TRUE(player().visuals().spectrum.rests());
    EXPECT_FALSE(player().commands().checked(CommandId::visualisationSpectrum));
    answer();
    EXPECT_TRUE(drawn());
    chooseEntry("sp(5)");
    ASSERT_EQ(sound_.visuals.size(), 1U);
    EXPECT_EQ(sound_.visual().path, "/shipped/c.svp");
    EXPECT_FALSE(drawn());
    run(CommandId::visualisationSpectrum);
    EXPECT_TRUE(sound_.visuals.empty());
    EXPECT_TRUE(player().visuals().sonVis.rests());
    EXPECT_EQ(reads(400), 10);
    chooseEntry("sp(3)");
    run(CommandId::visualisationNone);
    EXPECT_TRUE(sound_.visuals.empty());
    EXPECT_FALSE(drawn());
    chooseEntry("sp(5)");
    player().kill_me();
    EXPECT_EQ(setting("CVP"), "5");
}

TEST_F(PluginsOfThePlayer, onesGoOnFromTrackToTrackAndThroughAStop) {
    set("CVP", "3");
    play();
    fill();
    answer();
    const int first = sound_.descriptor();
    run(CommandId::play);
    run(CommandId::stop);
    EXPECT_FALSE(drawn());
    EXPECT_TRUE(player().visuals().sonVis.rests());
    run(CommandId::play);
    EXPECT_EQ(sound_.descriptor(), first);
    EXPECT_FALSE(player().visuals().sonVis.rests());
}

TEST_F(PluginsOfThePlayer, oneThatEndsIsToldOnceAndNotBegunAgain) {
    set("CVP", "3");
    play();
    fill();
    answer();
    const std::size_t lines = logged().size();
    answer(sound::VisualNews::ended);
    EXPECT_EQ(words(), "Waves gave no more picture and was ended");
    ASSERT_EQ(logged().size(), lines + 1);
    EXPECT_TRUE(player().commands().checked(CommandId::visualisationNone));
    run(CommandId::stop);
    run(CommandId::play);
    advance(5000);
    EXPECT_TRUE(sound_.visuals.empty());
    EXPECT_EQ(logged().size(), lines + 1);
    EXPECT_TRUE(host_.dialogs.boxes.empty());
    chooseEntry("sp(3)"); // the user may try again
    EXPECT_EQ(words(), "");
    EXPECT_EQ(sound_.visuals.size(), 1U);
    run(CommandId::visualisationNone);
    player().kill_me();
    EXPECT_EQ(setting("CVP"), "-1");
}

TEST_F(PluginsOfThePlayer, clicksReachThem) {
    set("CVP", "3");
    play();
    fill();
    const ui::Box box = player().elements().get(MainElement::Picture1).box();
    player().input().mouseDown({.element = ui::addressOf(MainElement::Picture1, 0),
                                .x = 30,
                                .y = 7,
                                .windowX = box.left + 30,
                                .windowY = box.top + 7,
                                .button = ui::MouseButton::Left,
                                .leftHeld = true});
    EXPECT_THAT(sound_.visualCalls, testing::Contains("click 30 7"));
}

TEST_F(PluginsOfThePlayer, aDoubleClickShowsThemOnTheWholeScreenAndEndsIt) {
    set("CVP", "3");
    play();
    fill();
    answer();
    const auto doubleClick = [this] {
        player().input().doubleClick(
            {.element = ui::addressOf(MainElement::Picture1, 0), .button = ui::MouseButton::Left});
    };
    doubleClick();
    ASSERT_TRUE(window_.screen != nullptr);
    EXPECT_TRUE(player().visuals().onFullScreen());
    EXPECT_THAT(sound_.visualCalls, testing::Contains("size 320 x 200"));
    advance(100);
    answer();
    EXPECT_EQ(window_.screen->shown, 1);
    window_.screenInput.clicked(300, 100);
    EXPECT_THAT(sound_.visualCalls, testing::Contains("click 300 100"));
    window_.screenInput.leave(); // Escape, or a double click there
    EXPECT_FALSE(player().visuals().onFullScreen());
    EXPECT_EQ(window_.screen, nullptr);
    EXPECT_THAT(sound_.visualCalls, testing::Contains("size 166 x 24"));
    doubleClick();
    answer(sound::VisualNews::ended);
    EXPECT_FALSE(player().visuals().onFullScreen());
    doubleClick(); // nothing runs
    EXPECT_FALSE(player().visuals().onFullScreen());
}

TEST_F(VisualsOfThePlayer, theSpectrumOnTheWholeScreen) {
    set("CVP", "0");
    play();
    player().visuals().doubleClickVisual();
    EXPECT_EQ(reads(400), 10);
    ASSERT_TRUE(window_.screen != nullptr);
    EXPECT_GT(window_.screen->shown, 3);
    window_.seen = false; // the window below does not matter
    EXPECT_EQ(reads(400), 10);
    player().visuals().doubleClickVisual();
    EXPECT_EQ(window_.screen, nullptr);
    EXPECT_EQ(reads(400), 0);
}

} // namespace
} // namespace tovik::test
