// SPDX-License-Identifier: GPL-3.0-or-later
// The list of the last session, read shortly after the start, and the timers of a playing track.
#include "app/AppRig.h"

namespace tovik::test {
namespace {

using playlist::RowText;
using testing::ElementsAre;

class Autoload : public AppRig {
protected:
    Autoload() {
        host_.folder.write(kList, "#EXTM3U\r\n#EXTINF:65,One\r\n" + track("one.mp3") +
                                      "\r\n#EXTINF:70,Two\r\n" + track("two.mp3") + "\r\n");
    }
};

TEST_F(Autoload, theListComesBackWithoutASelectionAndNothingPlays) {
    start();
    EXPECT_EQ(player().stdSS().ListCount(), 0);
    advance(99);
    EXPECT_EQ(player().stdSS().ListCount(), 0);
    advance(1);
    ASSERT_EQ(player().stdSS().ListCount(), 2);
    EXPECT_EQ(player().stdSS().text(1, RowText::Title), "One");
    EXPECT_EQ(player().stdSS().seconds(2), 70);
    EXPECT_EQ(player().stdSS().SelectedIndex, 0);
    EXPECT_EQ(player().List1().ListIndex(), -1);
    EXPECT_FALSE(player().state().IsPlaying);
    EXPECT_EQ(player().state().TracksStarted, 0);
}

TEST_F(Autoload, playWithoutASelectionStartsTheFirstRow) {
    start();
    advance(100);
    EXPECT_TRUE(player().commands().run(player::CommandId::play));
    EXPECT_TRUE(player().state().IsPlaying);
    EXPECT_EQ(player().state().CurrentTitle, "One");
    EXPECT_TRUE(player().stdSS().isPlayed(1));
}

TEST_F(Autoload, itIsReadOnce) {
    start();
    advance(10000);
    EXPECT_EQ(player().stdSS().ListCount(), 2);
}

TEST_F(Autoload, theVeryFirstStartPlaysTheFirstRow) {
    host_.folder.write("firstrun.ini", "[Firstrun]\nLNG=English\n");
    start();
    EXPECT_FALSE(player().state().IsPlaying);
    advance(100);
    EXPECT_TRUE(player().state().IsPlaying);
    EXPECT_EQ(player().state().CurrentTitle, "One");
    EXPECT_EQ(player().List1().ListIndex(), 0);
    EXPECT_EQ(player().stdSS().SelectedIndex, 1);
    EXPECT_EQ(window_.caption, " One (01:05)");
}

TEST_F(Autoload, aStartThatFailedReadsNoList) {
    takeOut("TMD");
    start();
    advance(1000);
    EXPECT_EQ(player().stdSS().ListCount(), 0);
}

TEST_F(Autoload, aListThatIsMissingIsToldOnceAndNotReplacedAtTheEnd) {
    std::filesystem::remove(host_.folder / kList);
    start();
    advance(1000);
    EXPECT_THAT(logged(), ElementsAre("File not found,53,Player,Autoload_Playlist"));
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].title, " in sub Autoload_Playlist");
    player().kill_me();
    EXPECT_FALSE(std::filesystem::exists(host_.folder / kList));
    EXPECT_EQ(host_.endStatus, 0);
}

TEST_F(Autoload, theDigitsFollowThePlayingTrack) {
    start();
    advance(100);
    player().List1().ListIndex(0);
    player().transport().List1_DblClick();
    sound_.setSeconds(player().state().PrimaryChannel, 12);
    advance(500);
    EXPECT_EQ(player().elements().get(ui::MainElement::timed, 4).caption, "1");
    EXPECT_EQ(player().elements().get(ui::MainElement::timed, 5).caption, "2");
    const double left = player().elements().get(ui::MainElement::track).left;
    advance(500);
    EXPECT_GT(player().elements().get(ui::MainElement::track).left, left);
}

} // namespace
} // namespace tovik::test
