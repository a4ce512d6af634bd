// SPDX-License-Identifier: GPL-3.0-or-later
// The whole player moving from track to track: its timers, its list on the command line, its modes.
#include "app/AppRig.h"

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using window::MainElement;

class Advance : public AppRig {
protected:
    /// A list of tracks of three seconds, "1.mp3" and so on.
    std::string list(int rows) {
        std::string text = "#EXTM3U\n";
        for (int row = 1; row <= rows; ++row) {
            const std::string name = std::to_string(row);
            text += "#EXTINF:3,T" + name + "\n" + track(name + ".mp3", {.seconds = 3}) + "\n";
        }
        return host_.folder.write("list.m3u", text);
    }

    void startWithList(int rows) {
        options_.commandLine = "\"" + list(rows) + "\"";
        start();
    }

    /// Lets time pass for sound and timers alike.
    void play(std::int64_t milliseconds) {
        for (std::int64_t passed = 0; passed < milliseconds; passed += 10) {
            sound_.elapse(10);
            advance(10);
        }
    }

    /// Numbers with which the shuffle picks that row of at most ten, or none.
    void willPick(int row, int count) {
        host_.random.script.insert(host_.random.script.end(), 9, (row - 0.5) / count);
        host_.random.script.push_back(row == 0 ? 0 : 0.5);
    }

    const std::string& title() { return player().state().CurrentTitle; }
};

TEST_F(Advance, aListPlaysFromEndToEnd) {
    startWithList(3);
    std::vector<std::string> titles;
    for (int second = 0; second < 12; ++second) {
        if (titles.empty() || titles.back() != title()) {
            titles.push_back(title());
        }
        EXPECT_EQ(player().music().sounds(), second < 9) << second;
        EXPECT_FALSE(player().music().playsForEver());
        play(1000);
    }
    EXPECT_THAT(titles, ElementsAre("T1", "T2", "T3"));
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(Advance, withRepeatOrShuffleThereIsNoEnd) {
    set("RPT", "1");
    startWithList(2);
    EXPECT_TRUE(player().music().playsForEver());
    play(7000);
    EXPECT_EQ(title(), "T1");
    EXPECT_TRUE(player().music().sounds());
    player().music().playback.advance.button_loop();
    EXPECT_FALSE(player().music().playsForEver());
    player().music().playback.advance.button_shuffle();
    EXPECT_TRUE(player().music().playsForEver());
    player().music().playback.transport.button_stop();
    EXPECT_FALSE(player().music().playsForEver());
    EXPECT_FALSE(player().music().sounds());
}

TEST_F(Advance, withShuffleTheListBeginsWithThePick) {
    set("SHF", "1");
    willPick(2, 3);
    startWithList(3);
    EXPECT_EQ(player().List1().ListIndex(), 1);
    EXPECT_EQ(title(), "T2");
}

TEST_F(Advance, aPickOfNoRowBeginsWithTheFirst) {
    set("SHF", "1");
    willPick(0, 3);
    startWithList(3);
    EXPECT_EQ(title(), "T1");
}

TEST_F(Advance, aPickOfTheLastRowBeginsWithIt) {
    set("SHF", "1");
    willPick(3, 3);
    startWithList(3);
    EXPECT_TRUE(player().state().IsPlaying);
    EXPECT_EQ(title(), "T3");
}

TEST_F(Advance, aListOfMoreRowsThan16BitsCountIsShuffled) {
    constexpr int kRows = 32768;
    set("SHF", "1");
    const std::string file = track("last.mp3");
    std::string text = "#EXTM3U\n";
    for (int row = 1; row <= kRows; ++row) {
        text += file + "\n";
    }
    options_.commandLine = "\"" + host_.folder.write("list.m3u", text) + "\"";
    for (int pick = 0; pick < 2; ++pick) {
        // Neighbouring cells differ; the one that is taken holds the last row.
        host_.random.script.insert(host_.random.script.end(),
                                   {0, 0.99999, 0, 0.99999, 0, 0.99999, 0, 0.99999, 0, 0.23});
    }
    start();
    EXPECT_EQ(player().stdSS().SelectedIndex, kRows);
    EXPECT_TRUE(player().state().IsPlaying);
    player().stdSS().SelectIndex(1);
    player().music().playback.advance.button_next();
    EXPECT_EQ(player().stdSS().SelectedIndex, kRows);
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(Advance, crossfadesFreeTheOldChannelByThemselves) {
    set("CFD", "1");
    set("CFDT", "1");
    startWithList(3);
    play(3500);
    EXPECT_EQ(title(), "T2");
    EXPECT_TRUE(sound_.lives(player().state().PrimaryChannel));
    play(500);
    EXPECT_FALSE(sound_.lives(player().state().PrimaryChannel));
    EXPECT_TRUE(sound_.lives(player().state().SecondaryChannel));
}

TEST_F(Advance, aFadeOutStops) {
    set("CFDT", "1");
    startWithList(3);
    player().music().playback.fadeOut.FadeOutTrack();
    play(1000);
    EXPECT_FALSE(player().state().IsPlaying);
}

TEST_F(Advance, silenceSkipThatWasLeftOnWorksFromTheStart) {
    set("SLD", "1");
    startWithList(3);
    sound_.channel(player().state().PrimaryChannel).level = 0;
    play(1000);
    EXPECT_EQ(title(), "T2");
}

TEST_F(Advance, theCommandsReachIt) {
    using commands::CommandId;
    startWithList(3);
    const auto run = [this](CommandId id) { return player().commands().run(id); };
    EXPECT_TRUE(run(CommandId::next));
    EXPECT_EQ(title(), "T2");
    EXPECT_TRUE(run(CommandId::nextButton));
    EXPECT_EQ(title(), "T3");
    EXPECT_TRUE(run(CommandId::previous));
    EXPECT_EQ(title(), "T2");
    EXPECT_TRUE(run(CommandId::previousButton));
    EXPECT_EQ(title(), "T1");
    EXPECT_TRUE(run(CommandId::tenTracksForward)); // fewer are left: one row
    EXPECT_EQ(title(), "T2");
    EXPECT_TRUE(run(CommandId::tenTracksBack));
    EXPECT_EQ(title(), "T1");
    for (const CommandId mode :
         {CommandId::shuffle, CommandId::repeat, CommandId::crossfade, CommandId::silenceSkip}) {
        EXPECT_FALSE(player().commands().checked(mode));
        EXPECT_TRUE(run(mode));
        EXPECT_TRUE(player().commands().checked(mode));
    }
    EXPECT_TRUE(run(CommandId::stopWithFadeout));
    play(5000);
    EXPECT_FALSE(player().state().IsPlaying);
}

TEST_F(Advance, theCaptionGoesRound) {
    startWithList(1);
    EXPECT_EQ(window_.caption, "Tovik 0.1");
    advance(180);
    EXPECT_EQ(window_.caption, "ovik 0.1T");
}

TEST_F(Advance, withoutAButtonOnTheTaskBarTheCaptionIsEmptied) {
    set("SHI", "01");
    startWithList(1);
    advance(180);
    EXPECT_EQ(window_.caption, "");
    const std::size_t told = sound_.calls.size();
    advance(1000);
    EXPECT_EQ(sound_.calls.size(), told);
}

TEST_F(Advance, theModesAreSavedAtTheEndAsTheyWereSwitched) {
    startWithList(1);
    player().music().playback.advance.button_shuffle();
    player().music().playback.advance.button_loop();
    player().music().playback.crossfade.button_cfd();
    player().music().playback.silenceSkip.button_sld();
    for (const char* key : {"SHF", "RPT", "CFD", "SLD"}) {
        EXPECT_EQ(setting(key), "0") << key;
    }
    player().kill_me();
    for (const char* key : {"SHF", "RPT", "CFD", "SLD"}) {
        EXPECT_EQ(setting(key), "1") << key;
    }
}

TEST_F(Advance, theWordsFollowEachTrack) {
    const std::string first = track("a.mp3", {.seconds = 3, .channels = 1});
    const std::string second = track("b.mp3", {.seconds = 3, .rate = 22050});
    options_.commandLine = "\"" + first + "\"";
    start();
    player().stdSS().AddItem("", second, "B", "00:00", 0);
    const auto info = [this] {
        return player().elements().get(MainElement::musicinfo_img).caption;
    };
    EXPECT_TRUE(info().ends_with("  44 KHZ")) << info();
    play(3250);
    EXPECT_TRUE(info().ends_with("  22 KHZ")) << info();
}

} // namespace
} // namespace tovik::test
