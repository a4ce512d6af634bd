// SPDX-License-Identifier: GPL-3.0-or-later
// Ripping in the whole player: commands, and what the panel shows meanwhile.
#include "app/AppRig.h"

namespace tovik::test {
namespace {

using commands::CommandId;
using testing::ElementsAre;
using window::MainElement;

/// A dialog that shows nothing.
class Fields final : public cd::CdNFOView {
public:
    void showData() override {}

    void showTrack(std::size_t /*track*/) override {}

    void showSearch() override {}
};

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
        tracks.AddItem("", "D:\\Track01.cda", "One", "00:10", 10);
        tracks.AddItem("", "D:\\Track02.cda", "Two", "00:10", 10);
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

TEST_F(RipsTest, whatIsHandedOverMeanwhileWaitsForTheEnd) {
    set("DOF", "WAV");
    sound_.discTracks.erase(0); // which is told in a box
    openDisc();
    advance(200);
    player().discInfo().form.Text1[0] = "Album";
    const std::string path = track("song.mp3");
    bool boxed = false;
    host_.dialogs.onMessage = [&] {
        boxed = host_.messages.keep(host::handOver(path));
        advance(100);
        EXPECT_FALSE(player().state().IsPlaying);
        EXPECT_EQ(player().stdSS().ListCount(), 0);
    };
    player().discInfo().dialog.hooks.Rip_All();
    EXPECT_TRUE(boxed);
    EXPECT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(std::filesystem::file_size(host_.folder / "Music/-Album/TRACK2.WAV"),
              44U + 10U * 176'400U);
    advance(100);
    EXPECT_TRUE(player().state().IsPlaying);
    EXPECT_EQ(player().stdSS().text(1, playlist::RowText::FileName), path);
}

TEST_F(RipsTest, whatIsHandedOverMeanwhilePlaysBesideWithComfort) {
    openDisc();
    advance(200);
    player().ground().state.comfort.playsWhileRipping = true;
    const std::string path = track("song.mp3");
    bool arrived = false;
    sound_.onEncoder = [&](const auto& encoder) {
        if (encoder.bytes == 0 || arrived) {
            return;
        }
        arrived = host_.messages.keep(host::handOver(path));
        const std::size_t freed = callsOf("BASS_Free");
        advance(100);
        EXPECT_TRUE(player().state().IsPlaying);
        EXPECT_EQ(callsOf("BASS_Free"), freed) << "the rip would end";
    };
    player().commands().run(CommandId::ripSelected);
    EXPECT_TRUE(arrived);
    EXPECT_EQ(player().stdSS().text(1, playlist::RowText::FileName), path);
    ASSERT_THAT(sound_.encoders, testing::SizeIs(1));
    EXPECT_EQ(sound_.encoders.front().bytes, 10U * 176'400U);
    EXPECT_TRUE(player().state().IsPlaying);
}

TEST_F(RipsTest, comfortThatIsSwitchedOnMeanwhileWaitsForTheNextRip) {
    openDisc();
    advance(200);
    player().stdSS().AddItem("", track("song.mp3"), "Song", "", 0);
    player().stdSS().SelectIndex(1);
    bool asked = false;
    sound_.onEncoder = [&](const auto& encoder) {
        if (encoder.bytes == 0) {
            return;
        }
        player().ground().state.comfort.playsWhileRipping = true;
        const std::size_t freed = callsOf("BASS_Free");
        player().commands().run(CommandId::play);
        asked = true;
        EXPECT_FALSE(player().state().IsPlaying);
        EXPECT_EQ(callsOf("BASS_Free"), freed);
        EXPECT_EQ(callsOf("BASS_StreamCreateFile"), 0U);
    };
    player().commands().run(CommandId::ripSelected);
    EXPECT_TRUE(asked);
    ASSERT_THAT(sound_.encoders, testing::SizeIs(1));
    EXPECT_EQ(sound_.encoders.front().bytes, 10U * 176'400U);
    player().commands().run(CommandId::play);
    EXPECT_TRUE(player().state().IsPlaying);
}

TEST_F(RipsTest, theNamesOfADiscGoWithIt) {
    openDisc();
    cd::frmCdNFO& dialog = player().discInfo().dialog;
    dialog.hooks.open = [&dialog] {
        Fields fields;
        dialog.Form_Load(fields, [] {});
        dialog.Form_Activate();
        dialog.Text1_Change(0, "Typed");
        static_cast<void>(dialog.Command1_Click(cd::frmCdNFO::Button::rip));
        dialog.Form_Unload();
    };
    set("DOF", "WMA"); // after which the names stay
    dialog.Show();
    EXPECT_THAT(sound_.encoders.at(0).command.output, testing::HasSubstr("/-Typed/"));
    sound_.drives.front().toc = FakeDiscs::discOf({20, 20});
    player().lists().lstTracks.SelectIndex(2);
    player().commands().run(CommandId::ripSelected);
    EXPECT_THAT(sound_.encoders.back().command.output, testing::Not(testing::HasSubstr("Typed")));
    EXPECT_THAT(sound_.encoders, testing::SizeIs(3));
}

TEST_F(RipsTest, theSoundIsThereAgainAfterwards) {
    openDisc();
    player().commands().run(CommandId::ripSelected);
    EXPECT_TRUE(sound_.initialized);
    EXPECT_FALSE(player().state().RipRunning);
}

} // namespace
} // namespace tovik::test
