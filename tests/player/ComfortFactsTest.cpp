// SPDX-License-Identifier: GPL-3.0-or-later
// The facts of tracks of every format, as the window shows them, and what goes by them.
#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

using playlist::RowText;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::StartsWith;

class ComfortFacts : public PlayerRig {
protected:
    ComfortFacts() { state_.comfort.readsEveryFormat = true; }

    static constexpr const char* kLong = "A title that is far longer than the field";

    /// An Ogg file as the only row; its path.
    std::string addOgg() {
        const std::string path = track("a.ogg", {.seconds = 75});
        known_[path] = {.artist = "Band",
                        .title = kLong,
                        .album = "Disc",
                        .year = "2001",
                        .genre = "Shoegaze",
                        .seconds = 75};
        list_.AddItem("", path, "a.ogg", "", 0);
        return path;
    }

    void playFirst() {
        list_.SelectIndex(1);
        rowPlayer_.PlayRow(1, 0);
    }
};

TEST_F(ComfortFacts, theWindowShowsThem) {
    addOgg();
    playFirst();
    EXPECT_THAT(view_.last.fields,
                ElementsAre("Band", "A title that is f", "Disc", "2001", "Shoegaze"));
    EXPECT_EQ(events_.report.title, kLong);
    EXPECT_EQ(events_.report.artist, "Band");
    EXPECT_EQ(list_.text(1, RowText::Title), std::string("Band - ") + kLong);
    EXPECT_EQ(state_.CurrentTitle, std::string("Band - ") + kLong);
    EXPECT_EQ(view_.last.wholeFields[1], "") << "another switch's";
}

TEST_F(ComfortFacts, withoutTheSwitchOnlyId3v1Counts) {
    state_.comfort.readsEveryFormat = false;
    addOgg();
    playFirst();
    EXPECT_THAT(view_.last.fields, ElementsAre("N/A", "N/A", "N/A", "N/A", "N/A"));
    EXPECT_EQ(state_.CurrentTitle, "a.ogg");
}

TEST_F(ComfortFacts, longTextsAreThereWhole) {
    state_.comfort.tellsWholeTexts = true;
    addOgg();
    playFirst();
    EXPECT_EQ(view_.last.fields[1], "A title that is f");
    EXPECT_EQ(view_.last.wholeFields[1], kLong);
}

TEST_F(ComfortFacts, theyComeInWhileTheTrackPlays) {
    watches_.nothing = false;
    addOgg();
    playFirst();
    EXPECT_THAT(view_.last.fields, ElementsAre("N/A", "N/A", "N/A", "N/A", "N/A"));
    EXPECT_TRUE(state_.IsPlaying) << "nobody waited";
    ASSERT_TRUE(watches_.waitUntil([this] { return desk_.waiting() == 0; }));
    EXPECT_EQ(view_.last.fields[0], "Band");
    EXPECT_EQ(state_.CurrentTitle, std::string("Band - ") + kLong);
    EXPECT_EQ(events_.told.back(), "facts");
    EXPECT_EQ(events_.report.album, "Disc");
    EXPECT_EQ(events_.report.seconds, 75);
}

TEST_F(ComfortFacts, thoseOfATrackThatIsOverAreNotShown) {
    watches_.nothing = false;
    addOgg();
    playFirst();
    const std::string other = track("b.wav", {.seconds = 9});
    list_.AddItem("", other, "b.wav", "", 0);
    list_.SelectIndex(2);
    rowPlayer_.PlayRow(2, 0);
    ASSERT_TRUE(watches_.waitUntil([this] { return desk_.waiting() == 0; }));
    EXPECT_THAT(view_.last.fields, ElementsAre("N/A", "N/A", "N/A", "N/A", "N/A"));
    EXPECT_EQ(state_.CurrentTitle, "b.wav");
}

TEST_F(ComfortFacts, theFirstTrackHasItsLengthToo) {
    addOgg();
    state_.comfort.writesFirstLength = true;
    list_.SelectIndex(1);
    mirror_.ListIndex(0);
    rowPlayer_.List1_DblClick();
    EXPECT_EQ(list_.seconds(1), 75);
}

// A track that waits to be played ----------------------------------------------------------------

TEST_F(ComfortFacts, aTrackThatWaitsTellsThemBeforeItIsPlayed) {
    watches_.nothing = false;
    state_.comfort.clockShowsHours = true;
    const std::string path = addOgg();
    known_[path].kilobits = 192;
    known_[path].hertz = 48000;
    known_[path].channels = 2;
    rowPlayer_.waitAt({1, 25});
    EXPECT_EQ(playing_.fields[0], "") << "nobody waited";
    ASSERT_TRUE(watches_.waitUntil([this] { return desk_.waiting() == 0; }));
    EXPECT_THAT(view_.last.fields,
                ElementsAre("Band", "A title that is f", "Disc", "2001", "Shoegaze"));
    EXPECT_EQ(view_.last.infoText, "192 kbps  48 KHZ");
    EXPECT_EQ(view_.last.mode, "Stereo");
    EXPECT_EQ(view_.last.scrollerText, std::string(" Band - ") + kLong + " (01:15)");
    EXPECT_EQ(view_.last.miniCaption, std::string(" Band - ") + kLong);
    EXPECT_EQ(list_.text(1, RowText::Title), std::string("Band - ") + kLong);
    EXPECT_EQ(view_.last.time, "00:25");
    EXPECT_THAT(events_.told, Not(Contains("facts"))) << "nothing plays";
    EXPECT_THAT(sound_.calls, testing::IsEmpty()) << "no decoder is asked";
    clock_.Timer2(); // what shows the words time and again has them, too
    EXPECT_EQ(playing_.infoText, "192 kbps  48 KHZ");
}

TEST_F(ComfortFacts, whatIsNotKnownOfOneThatWaitsStaysEmpty) {
    known_[track("a.xm", {})] = {};
    list_.AddItem("", host_.folder / "a.xm", "a.xm", "01:40", 100);
    rowPlayer_.waitAt({1, 25});
    EXPECT_THAT(view_.last.fields, ElementsAre("N/A", "N/A", "N/A", "N/A", "N/A"));
    EXPECT_EQ(playing_.infoText, "");
    EXPECT_EQ(playing_.scrollerText, " a.xm (01:40)") << "the list tells the length";
}

TEST_F(ComfortFacts, ofAnAddressThatWaitsNothingIsAsked) {
    list_.AddItem("", "http://radio.example/", "Radio", "", 0);
    rowPlayer_.waitAt({1, 25});
    EXPECT_THAT(view_.told, Not(Contains("facts")));
    state_.comfort.readsEveryFormat = false;
    addOgg();
    rowPlayer_.waitAt({2, 25});
    EXPECT_THAT(view_.told, Not(Contains("facts"))) << "without the switch";
}

TEST_F(ComfortFacts, ofOneThatWaitedNothingIsShownOnceAnotherPlays) {
    watches_.nothing = false;
    addOgg();
    list_.AddItem("", track("b.wav", {.seconds = 9}), "b.wav", "", 0);
    rowPlayer_.waitAt({1, 25});
    list_.SelectIndex(2);
    rowPlayer_.PlayRow(2, 0);
    ASSERT_TRUE(watches_.waitUntil([this] { return desk_.waiting() == 0; }));
    EXPECT_THAT(view_.last.fields, ElementsAre("N/A", "N/A", "N/A", "N/A", "N/A"));
    EXPECT_EQ(state_.CurrentTitle, "b.wav");
}

class ComfortAlbum : public PlayerRig {
protected:
    ComfortAlbum() {
        state_.comfort.endsExactly = true;
        state_.comfort.crossesBeforeEnd = true;
        state_.CrossfadeOn = true;
        set("CFDT", "4");
        addRows(2, {.seconds = 30});
        for (int row = 1; row <= 2; ++row) {
            known_[pathOf(row)] = {.artist = "Band", .album = "Disc", .track = row};
        }
    }

    [[nodiscard]] std::string pathOf(playlist::Row row) const {
        return std::string(list_.text(row, RowText::FileName));
    }

    /// Until shortly before the end of the first track.
    void playToEnd() {
        list_.SelectedIndex = 1;
        rowPlayer_.PlayRow(1, 0);
        sound_.calls.clear();
        advance(28000);
    }

    static constexpr const char* kSlide = "BASS_ChannelSlideAttributes(";
};

TEST_F(ComfortAlbum, tracksThatFollowEachOtherAreNotFaded) {
    playToEnd();
    EXPECT_THAT(sound_.calls, Contains(StartsWith("playBehind(")));
    EXPECT_THAT(sound_.calls, Not(Contains(StartsWith(kSlide))));
    EXPECT_EQ(list_.SoundingRow(), 1);
}

TEST_F(ComfortAlbum, othersAre) {
    known_[pathOf(2)].track = 3;
    playToEnd();
    EXPECT_THAT(sound_.calls, Contains(StartsWith(kSlide)));
    EXPECT_EQ(list_.SoundingRow(), 2);
}

TEST_F(ComfortAlbum, whatIsReadMeanwhileCounts) {
    watches_.nothing = false;
    list_.SelectedIndex = 1;
    rowPlayer_.PlayRow(1, 0);
    advance(10000);
    ASSERT_TRUE(watches_.waitUntil([this] { return desk_.waiting() == 0; }));
    sound_.calls.clear();
    advance(18000);
    EXPECT_THAT(sound_.calls, Contains(StartsWith("playBehind(")));
    EXPECT_THAT(sound_.calls, Not(Contains(StartsWith(kSlide))));
}

} // namespace
} // namespace tovik::test
