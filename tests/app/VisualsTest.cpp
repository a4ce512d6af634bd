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

} // namespace
} // namespace tovik::test
