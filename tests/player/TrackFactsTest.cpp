// SPDX-License-Identifier: GPL-3.0-or-later
// What is shown and told of a started track.
#include "player/PlayerRig.h"
#include "support/host/SettingPlace.h"

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Facts : public PlayerRig {
protected:
    void play(const std::string& path, const std::string& title = "") { burn(path, title); }
};

TEST_F(Facts, rateAndFrequency) {
    play(track("a.mp3", {.seconds = 10}, 160000));
    EXPECT_EQ(state_.TrackInfoText, "128 kbps  44 KHZ");
    EXPECT_EQ(view_.last.infoText, "128 kbps  44 KHZ");
    play(track("b.mp3", {.seconds = 10, .rate = 8000}, 20000));
    EXPECT_EQ(state_.TrackInfoText, "16 kbps  80 KHZ");
    play(track("c.mp3", {.seconds = 0, .rate = 48000}, 20000));
    EXPECT_EQ(state_.TrackInfoText, "0 kbps  48 KHZ");
}

TEST_F(Facts, aFileThatIsGoneHasNoLength) {
    const std::string path = track("a.mp3", {.seconds = 10}, 160000);
    std::filesystem::remove(path);
    play(path);
    EXPECT_EQ(state_.TrackInfoText, "0 kbps  44 KHZ");
    EXPECT_TRUE(state_.IsPlaying);
}

TEST_F(Facts, monoOrStereo) {
    play(track("a.mp3", {.seconds = 10, .channels = 1}));
    EXPECT_EQ(state_.TrackInfoMode, "Mono");
    EXPECT_EQ(view_.last.mode, "Mono");
    play(track("b.mp3", {.seconds = 10}));
    EXPECT_EQ(state_.TrackInfoMode, "Stereo");
    EXPECT_EQ(view_.last.mode, "Stereo");
}

TEST_F(Facts, fieldsShowSeventeenCharacters) {
    const TagTexts tag{.title = "A title of exactly thirty char",
                       .artist = "Seventeen letters",
                       .album = "Eighteen letters..",
                       .year = "2004",
                       .genre = 17};
    play(track("a.mp3", {.seconds = 10}, 1000, &tag));
    EXPECT_THAT(view_.last.fields, ElementsAre("Seventeen letters", "A title of exactl",
                                               "Eighteen letters.", "2004", "Rock"));
}

TEST_F(Facts, lettersOfTwoBytesCountAsOne) {
    const TagTexts tag{.title = "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9"
                                "\xC3\xA9 end",
                       .artist = std::string(20, '\xE9')};
    play(track("a.mp3", {.seconds = 10}, 1000, &tag));
    EXPECT_EQ(view_.last.fields[1], tag.title);
    EXPECT_EQ(view_.last.fields[0], std::string(17, '\xE9'));
}

TEST_F(Facts, blanksAndWhatFollowsAZeroByteAreNotShown) {
    using namespace std::string_literals;
    const TagTexts tag{.title = " Title \0rest"s, .artist = "Artist", .padding = ' '};
    play(track("a.mp3", {.seconds = 10}, 1000, &tag));
    EXPECT_THAT(view_.last.fields, ElementsAre("Artist", "Title", "N/A", "N/A", "Blues"));
    EXPECT_EQ(events_.report.artist, "Artist");
    EXPECT_EQ(events_.report.title, "Title");
    EXPECT_EQ(events_.report.album, "");
}

TEST_F(Facts, emptyFieldsAreUnknown) {
    play(track("a.mp3", {.seconds = 10}));
    EXPECT_THAT(view_.last.fields, ElementsAre("N/A", "N/A", "N/A", "N/A", "N/A"));
    const TagTexts tag{.title = "T", .genre = '\xFF'};
    play(track("b.mp3", {.seconds = 10}, 1000, &tag));
    EXPECT_THAT(view_.last.fields, ElementsAre("N/A", "T", "N/A", "N/A", "N/A"));
}

TEST_F(Facts, fieldsAreShownBeforeTheUnknownOnesAreNamed) {
    state_.RadioMode = true; // a station is left
    play(track("a.mp3", {.seconds = 10}));
    ASSERT_EQ(view_.facts.size(), 2U);
    EXPECT_THAT(view_.facts[0], ElementsAre("", "", "", "", ""));
    EXPECT_THAT(view_.told, ElementsAre("source", "facts", "titles", "facts"));
    EXPECT_FALSE(state_.RadioMode);
}

TEST_F(Facts, theLengthGoesIntoTheRowFromTheSecondTrackOn) {
    const std::string path = track("a.mp3", {.seconds = 75});
    fetchRow(path, "Song");
    play(path);
    EXPECT_EQ(list_.seconds(1), 0);
    EXPECT_EQ(list_.text(1, playlist::RowText::TimeText), "00:00");
    play(path);
    EXPECT_EQ(list_.seconds(1), 75);
    EXPECT_EQ(list_.text(1, playlist::RowText::TimeText), "00:01:15");
    state_.TracksStarted = 0;
    sound_.files[path].seconds = 80;
    play(path);
    EXPECT_EQ(list_.seconds(1), 75);
}

TEST_F(Facts, titlesAndCaptions) {
    const std::string path = track("a.mp3", {.seconds = 4500});
    fetchRow(path, "Artist - Song");
    play(path);
    EXPECT_EQ(state_.CurrentTitle, "Artist - Song");
    EXPECT_EQ(view_.last.scrollerText, " Artist - Song (15:00)");
    EXPECT_EQ(view_.last.caption, " Artist - Song (15:00)");
    EXPECT_EQ(view_.last.miniCaption, " Artist - Song");
}

TEST_F(Facts, aTitleGivenToTheStartIsForThePopupAlone) {
    const std::string path = track("a.mp3", {.seconds = 75});
    fetchRow(path, "Song");
    set("OSD", "1");
    play(path, "Other");
    EXPECT_THAT(events_.told,
                ElementsAre("visualisation", "popup Other(01:15)", "visualisation", "track"));
    EXPECT_EQ(state_.CurrentTitle, "Song");
}

TEST_F(Facts, thePopupShowsTheTitleOfTheRow) {
    const std::string path = track("a.mp3", {.seconds = 75});
    fetchRow(path, "Song");
    set("OSD", "1");
    play(path);
    EXPECT_THAT(events_.told,
                ElementsAre("visualisation", "popup Song (01:15)", "visualisation", "track"));
}

TEST_F(Facts, thereIsNoPopupUnlessTheSettingIsOne) {
    const std::string path = track("a.mp3", {.seconds = 75});
    for (const char* value : {"0", "2", "-1"}) {
        SCOPED_TRACE(value);
        set("OSD", value);
        events_.told.clear();
        play(path, "Other");
        EXPECT_THAT(events_.told, ElementsAre("visualisation", "visualisation", "track"));
    }
}

TEST_F(Facts, aMissingPopupSettingGoesToTheGuardBehindTheFields) {
    takeOut("OSD");
    const TagTexts tag{.title = "T"};
    play(track("a.mp3", {.seconds = 75}, 1000, &tag));
    EXPECT_THAT(logged(), ElementsAre("Invalid use of Null" + settingPlace(host_.folder, "OSD") +
                                      ",94,Player,BurnBaby"));
    EXPECT_THAT(view_.told, ElementsAre("source", "facts"));
    EXPECT_EQ(view_.last.fields[1], "T");
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_TRUE(clock_.watchesTrack());
}

TEST_F(Facts, theReport) {
    const TagTexts tag{.title = "Seventeen letters and more", .artist = "A", .album = "B"};
    const std::string path = track("a.mp3", {.seconds = 75}, 1000, &tag);
    fetchRow(path, "Song");
    play(path);
    EXPECT_EQ(events_.report.path, path);
    EXPECT_EQ(events_.report.artist, "A");
    EXPECT_EQ(events_.report.title, "Seventeen letters and more");
    EXPECT_EQ(events_.report.album, "B");
    EXPECT_EQ(events_.report.listTitle, "Song");
    EXPECT_EQ(events_.report.seconds, 75);
}

TEST_F(Facts, aFileOnlyReadableIsNoReasonForABox) {
    const std::string path = track("a.mp3", {.seconds = 75});
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    play(path);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

class RealTitle : public PlayerRig {
protected:
    /// The title that the row has behind its first start.
    std::string behindStart(const std::string& title, const TagTexts& tag) {
        path_ = track("a.b.mp3", {.seconds = 65}, 1000, &tag);
        list_.Clear();
        list_.AddItem("", path_, title, "00:00", 0);
        list_.SelectedIndex = 1;
        rowPlayer_.Stdss_Play("1");
        return std::string(list_.text(1, playlist::RowText::Title));
    }

    std::string path_;
    TagTexts tag_{.title = "Title", .artist = "Artist"};
};

TEST_F(RealTitle, itReplacesTheNameOfTheFile) {
    EXPECT_EQ(behindStart("a.b.mp3", tag_), "Artist-Title");
    EXPECT_EQ(behindStart("a.b", tag_), "Artist-Title");
    EXPECT_EQ(mirror_.List(0), "Artist-Title");
    EXPECT_EQ(list_.text(1, playlist::RowText::TimeText), "00:01:05");
}

TEST_F(RealTitle, anyOtherTitleStays) {
    for (const char* title : {"A title of a list", "a", "", "A.B.MP3"}) {
        EXPECT_EQ(behindStart(title, tag_), title);
    }
}

TEST_F(RealTitle, bothFieldsAreNeeded) {
    EXPECT_EQ(behindStart("a.b", {.title = "Title"}), "a.b");
    EXPECT_EQ(behindStart("a.b", {.artist = "Artist"}), "a.b");
    EXPECT_EQ(behindStart("a.b", {.title = "  ", .artist = "Artist"}), "a.b");
}

TEST_F(RealTitle, whatIsShownOfThatStartIsWhatTheRowHeld) {
    set("OSD", "1");
    behindStart("a.b", tag_);
    EXPECT_EQ(state_.CurrentTitle, "a.b");
    EXPECT_EQ(playing_.caption, " a.b (01:05)");
    EXPECT_EQ(events_.report.listTitle, "a.b");
    rowPlayer_.Stdss_Play("1");
    EXPECT_EQ(playing_.caption, " Artist-Title (01:05)");
}

TEST_F(RealTitle, aCrossfadeAndTheFirstTrackOfASessionDoTheSame) {
    EXPECT_EQ(behindStart("a.b", tag_), "Artist-Title"); // the first of the session
    state_.CrossfadeOn = true;
    EXPECT_EQ(behindStart("a.b", tag_), "Artist-Title");
}

TEST_F(RealTitle, aFileThatDoesNotOpenKeepsItsName) {
    list_.AddItem("", "/none/a.mp3", "a", "00:00", 0);
    list_.SelectedIndex = 1;
    rowPlayer_.Stdss_Play("1");
    EXPECT_EQ(list_.text(1, playlist::RowText::Title), "a");
}

} // namespace
} // namespace tovik::test
