// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/DiscWatch.h"

#include "CdRig.h"

namespace tovik::test {
namespace {

using sound::DiscTrouble;
using testing::IsEmpty;
using testing::SizeIs;

class DiscWatch : public CdRig {
protected:
    /// Starts a track of a disc.
    void playTrack() {
        sound_.drives.resize(1);
        sound_.discTracks[0] = {.kind = FakeKind::disc, .seconds = 100};
        list_.AddItem("D:\\Track01.cda", "D:\\Track01.cda", "A song", "", 0);
        sound_.discReports[1] = {};
        burn("D:\\Track01.cda");
        state_.CurrentTitle = "A song";
        ASSERT_EQ(state_.active(), 1U);
    }

    void trouble(DiscTrouble what) { sound_.discReports[1].trouble = what; }

    config::MultiLNG language_{host_.paths};
    cd::DiscWatch watch_{
        {.core = core_, .transport = transport_, .dialogs = host_.dialogs, .language = language_}};
};

TEST_F(DiscWatch, aDiscThatIsTakenOutEndsTheTrackWithAMessage) {
    playTrack();
    advance(1000);
    EXPECT_TRUE(state_.IsPlaying);
    for (const DiscTrouble what : {DiscTrouble::noDisc, DiscTrouble::noDrive}) {
        SCOPED_TRACE(static_cast<int>(what));
        host_.dialogs.boxes.clear();
        state_.IsPlaying = true;
        news_.restartVisualisation();
        trouble(what);
        advance(300);
        EXPECT_FALSE(state_.IsPlaying);
        ASSERT_THAT(host_.dialogs.boxes, SizeIs(1));
        EXPECT_EQ(host_.dialogs.boxes[0].text, "The disc was taken out of its drive.");
        advance(2000);
        EXPECT_THAT(host_.dialogs.boxes, SizeIs(1)); // once
    }
}

TEST_F(DiscWatch, whatCannotBeReadIsSaidOnceOnTheDisplay) {
    playTrack();
    trouble(DiscTrouble::unreadable);
    advance(300);
    EXPECT_EQ(playing_.scrollerText, " A song (parts of the disc cannot be read)");
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    playing_.scrollerText = "another";
    advance(2000);
    EXPECT_EQ(playing_.scrollerText, "another");
}

TEST_F(DiscWatch, aTrackThatIsNotThereIsLikeAFileThatDoesNotOpen) {
    playTrack();
    trouble(DiscTrouble::noTrack);
    advance(1000);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(DiscWatch, whatIsNoDiscIsLeftAlone) {
    burn(track("a.mp3", {.seconds = 10}));
    sound_.discReports[99] = {.trouble = DiscTrouble::noDisc};
    advance(1000);
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

} // namespace
} // namespace tovik::test
