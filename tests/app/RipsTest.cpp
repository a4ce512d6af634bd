// SPDX-License-Identifier: GPL-3.0-or-later
// Ripping in the whole player: commands, and what the panel shows meanwhile.
#include "app/AppRig.h"

namespace tovik::test {
namespace {

using commands::CommandId;
using testing::ElementsAre;
using window::MainElement;

class RipsTest : public AppRig {
protected:
    RipsTest() {
        set("ROP", host_.folder / "Music");
        set("DOF", "MP3 CBR");
        host_.programs.present = {"lame.exe"};
        sound_.drives.resize(1);
        sound_.drives.front().toc = FakeDiscs::discOf({10, 10});
        sound_.discTracks[0] = sound_.discTracks[1] = {.kind = FakeKind::disc, .seconds = 10};
    }

    void openDisc() {
        start();
        playlist::stdSS& tracks = player().lists().lstTracks;
        tracks.Clear();
        tracks.AddItem("1", "1", "One", "00:10", 10);
        tracks.AddItem("2", "2", "Two", "00:10", 10);
        tracks.SelectIndex(2);
    }

    [[nodiscard]] bool visible(MainElement element) {
        return player().elements().get(element).visible;
    }
};

TEST_F(RipsTest, thePanelShowsAJobWhileItRuns) {
    openDisc();
    player().commands().run(CommandId::ripPanel);
    EXPECT_FALSE(visible(MainElement::cancelrip));
    EXPECT_FALSE(visible(MainElement::ripbar));
    std::vector<std::string> words;
    double done = -1;
    sound_.onEncoder = [&](const auto& encoder) {
        for (const MainElement element : {MainElement::cancelrip, MainElement::ripbar,
                                          MainElement::ripfill, MainElement::riplbl}) {
            EXPECT_TRUE(visible(element));
        }
        EXPECT_FALSE(player().commands().enabled(CommandId::ripSelected));
        EXPECT_FALSE(player().commands().enabled(CommandId::ripAll));
        words.push_back(player().elements().get(MainElement::riplbl).caption);
        done = std::max(done, player().elements().get(MainElement::ripfill).width);
        host_.clock.advanceTo(host_.clock.monotonicMs() + (encoder.bytes > 0 ? 1000 : 0));
    };
    player().commands().run(CommandId::ripSelected);
    ASSERT_GE(words.size(), 3U);
    EXPECT_EQ(words.front(), "Track 1 of 1");
    EXPECT_EQ(words[2], "Track 1 of 1, 00:06 left");
    EXPECT_GT(done, player().elements().get(MainElement::ripbar).width / 2);
    EXPECT_FALSE(visible(MainElement::cancelrip));
    EXPECT_FALSE(visible(MainElement::ripfill));
    EXPECT_TRUE(player().commands().enabled(CommandId::ripSelected));
    EXPECT_EQ(sound_.encoders.size(), 1U);
    EXPECT_EQ(player().lists().lstTracks.text(2, playlist::RowText::Title), "Track 2 100%");
}

TEST_F(RipsTest, anotherPanelHidesIt) {
    openDisc();
    player().commands().run(CommandId::ripPanel);
    sound_.onEncoder = [&](const auto& /*encoder*/) {
        player().commands().run(CommandId::mainPanel);
        EXPECT_FALSE(visible(MainElement::cancelrip));
        EXPECT_FALSE(visible(MainElement::riplbl));
        player().commands().run(CommandId::ripPanel);
        EXPECT_TRUE(visible(MainElement::cancelrip));
    };
    player().commands().run(CommandId::ripSelected);
    EXPECT_FALSE(sound_.encoders.empty());
}

TEST_F(RipsTest, cancelAsksAndEndsTheTrack) {
    openDisc();
    host_.dialogs.answers = {host::MessageAnswer::Yes};
    sound_.onEncoder = [&](const auto& encoder) {
        if (encoder.bytes > 0) {
            player().commands().run(CommandId::cancelRip);
        }
    };
    player().commands().run(CommandId::ripSelected);
    EXPECT_EQ(sound_.encoders.at(0).bytes, 262144U);
    EXPECT_EQ(host_.dialogs.boxes.at(0).text, "Cancel the rip that is running?");
}

TEST_F(RipsTest, theSoundIsThereAgainAfterwards) {
    openDisc();
    player().commands().run(CommandId::ripSelected);
    EXPECT_TRUE(sound_.initialized);
    EXPECT_FALSE(player().state().RipRunning);
}

} // namespace
} // namespace tovik::test
