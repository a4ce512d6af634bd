// SPDX-License-Identifier: GPL-3.0-or-later
#include "CdRig.h"

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// CD-Text with bars for NULs, ended as it should be.
std::string cdText(std::string bars) {
    std::ranges::replace(bars, '|', '\0');
    return bars + '\0';
}

class CdTrackList : public CdRig {
protected:
    void load(playlist::stdSS& target) { cd_.tracks.LoadTrackList(target, &target == &list_); }

    void loadText(const std::string& bars) {
        sound_.drives.at(0).text = cdText(bars);
        load(tracks_);
    }
};

TEST_F(CdTrackList, aRowForEachTrack) {
    insert({{245, 3599, 3600, 0, 1}});
    load(tracks_);
    EXPECT_THAT(rowsOf(tracks_), ElementsAre("D:\\Track01.cda|Track 1|04:05|245",
                                             "D:\\Track02.cda|Track 2|59:59|3599",
                                             "D:\\Track03.cda|Track 3|1:00:00|3600",
                                             "D:\\Track04.cda|Track 4|00:00|0", // data
                                             "D:\\Track05.cda|Track 5|00:01|1"));
}

TEST_F(CdTrackList, secondsAreRounded) {
    insert({{1, 1}});
    sound_.drives[0].toc.tracks[0].sectors = 112; // 1.49 s
    sound_.drives[0].toc.tracks[1].sectors = 113;
    load(tracks_);
    EXPECT_EQ(tracks_.seconds(1), 1);
    EXPECT_EQ(tracks_.seconds(2), 2);
}

TEST_F(CdTrackList, numbersOfTwoDigits) {
    insert({std::vector<std::int32_t>(99, 10)});
    load(tracks_);
    EXPECT_EQ(tracks_.text(9, playlist::RowText::FileName), "D:\\Track09.cda");
    EXPECT_EQ(tracks_.text(10, playlist::RowText::FileName), "D:\\Track10.cda");
    EXPECT_EQ(tracks_.text(99, playlist::RowText::FileName), "D:\\Track99.cda");
}

TEST_F(CdTrackList, theLetterIsThatOfTheCurrentDrive) {
    insert({{10}, {20}, {30}});
    sound_.drives[2].letter = 25;
    disc_.CDDrive = 2;
    load(tracks_);
    EXPECT_THAT(rowsOf(tracks_), ElementsAre("Z:\\Track01.cda|Track 1|00:30|30"));
    noLetters_ = true;
    EXPECT_THROW(load(tracks_), base::RuntimeError);
}

TEST_F(CdTrackList, namesGoToThePlainListWithThePlaylistAlone) {
    insert({{10, 20}});
    load(tracks_);
    EXPECT_THAT(cd_.tracks.List1(), IsEmpty());
    load(list_);
    EXPECT_THAT(cd_.tracks.List1(), ElementsAre("Track 1", "Track 2"));
    EXPECT_THAT(rowsOf(list_), SizeIs(2));
    EXPECT_THAT(rowsOf(tracks_), IsEmpty()); // it is emptied whichever the target is
}

TEST_F(CdTrackList, withoutADiscTheListIsEmptyAndNothingIsSaid) {
    insert({{10}});
    load(tracks_);
    sound_.drives[0].ready = false;
    load(tracks_);
    EXPECT_EQ(tracks_.ListCount(), 0);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(CdTrackList, aDiscThatDoesNotTellItsTracksIsTold) {
    insert({{10}});
    sound_.drives[0].tracksFail = true;
    load(tracks_);
    ASSERT_THAT(host_.dialogs.boxes, SizeIs(1));
    EXPECT_EQ(host_.dialogs.boxes[0].text, "Error retreiving number of tracks.");
    EXPECT_EQ(tracks_.ListCount(), 0);
}

TEST_F(CdTrackList, cdTextNamesTheRowsAndTheDisc) {
    insert({{10, 20}});
    loadText("TITLE0=Album|PERFORMER0=Band|title1=One|Performer1=A|TITLE2=T = U|SONGWRITER1=x|"
             "PERFORMER2=|");
    EXPECT_THAT(rowsOf(tracks_), ElementsAre("D:\\Track01.cda|1One / A|00:10|10",
                                             "D:\\Track02.cda|2T = U / |00:20|20"));
    EXPECT_EQ(form_.Text1[0], "Album");
    EXPECT_EQ(form_.Text2[0], "Band");
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(CdTrackList, cdTextGoesToThePlaylistToo) {
    insert({{10}});
    sound_.drives[0].text = cdText("TITLE1=One|");
    load(list_);
    EXPECT_THAT(rowsOf(list_), ElementsAre("D:\\Track01.cda|1One / |00:10|10"));
}

TEST_F(CdTrackList, aTrackWithoutLengthHasNoRowBesideCdText) {
    insert({{0, 10, 0, 20}});
    loadText("TITLE2=Two|TITLE4=Four|");
    EXPECT_THAT(rowsOf(tracks_), ElementsAre("D:\\Track02.cda|2Two / |00:10|10",
                                             "D:\\Track04.cda|4Four / |00:20|20"));
}

TEST_F(CdTrackList, bytesThatAreNoUtf8AreWindows1252) {
    insert({{10, 10}});
    loadText("TITLE1=Caf\xe9|TITLE2=Café|");
    EXPECT_EQ(tracks_.text(1, playlist::RowText::Title), "1Café / ");
    EXPECT_EQ(tracks_.text(2, playlist::RowText::Title), "2Café / ");
}

class BrokenCdText : public CdTrackList, public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(Texts, BrokenCdText,
                         testing::Values("TITLE3=beyond|", "PERFORMER-1=x|", "TITLE=none|",
                                         "TITLEx=x|", "TITLE1|", "TITLE99999999999=x|"));

TEST_P(BrokenCdText, isToldAndGivesNoRow) {
    insert({{10, 20}});
    loadText(GetParam());
    EXPECT_EQ(tracks_.ListCount(), 0);
    ASSERT_THAT(host_.dialogs.boxes, SizeIs(1));
    EXPECT_THAT(host_.dialogs.boxes[0].text,
                HasSubstr("Error in routine : LoadTrackListFromCDText"));
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(CdTrackList, cdTextWithoutAnEndIsReadToItsEnd) {
    insert({{10}});
    cd_.tracks.LoadTrackListFromCDText("TITLE1=One", 1, tracks_);
    EXPECT_THAT(rowsOf(tracks_), ElementsAre("D:\\Track01.cda|1One / |00:10|10"));
    cd_.tracks.LoadTrackListFromCDText("", 1, tracks_);
    EXPECT_THAT(rowsOf(tracks_), SizeIs(2));
}

TEST(Seconds2HMS, ofMinutesAndHours) {
    EXPECT_EQ(cd::Seconds2HMS(0), "00:00");
    EXPECT_EQ(cd::Seconds2HMS(59), "00:59");
    EXPECT_EQ(cd::Seconds2HMS(3599), "59:59");
    EXPECT_EQ(cd::Seconds2HMS(3600), "1:00:00");
    EXPECT_EQ(cd::Seconds2HMS(4441), "1:14:01");
}

TEST_F(CdTrackList, theNumberMayBeLeftToTheRow) {
    insert({{10, 20, 30, 40}});
    state_.comfort.leavesNumberToRow = true;
    loadText("TITLE0=Album|TITLE1=Song|PERFORMER1=Singer|TITLE2=2 More|TITLE3=A = B |PERFORMER3= |"
             "PERFORMER4=Band");
    EXPECT_THAT(rowsOf(tracks_),
                ElementsAre("D:\\Track01.cda|Song / Singer|00:10|10",
                            "D:\\Track02.cda|2 More|00:20|20", "D:\\Track03.cda|A = B|00:30|30",
                            "D:\\Track04.cda|Track 4 / Band|00:40|40"));
}

TEST_F(CdTrackList, aTrackThatTheDiscDoesNotHaveMayBePassedOver) {
    insert({{10, 20}});
    state_.comfort.skipsStrayCdText = true;
    loadText("TITLE1=Song|TITLE3=None|PERFORMER-1=No|PERFORMER2=Singer");
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_EQ(tracks_.ListCount(), 2);
    EXPECT_EQ(tracks_.text(1, playlist::RowText::Title), "1Song / ");
    EXPECT_EQ(tracks_.text(2, playlist::RowText::Title), "2 / Singer");
}

TEST_F(CdTrackList, theRipListMayStayBesideThePlaylist) {
    insert({{10, 20}});
    load(tracks_);
    state_.comfort.keepsRipList = true;
    load(list_);
    EXPECT_EQ(tracks_.ListCount(), 2);
    EXPECT_EQ(list_.ListCount(), 2);
    load(tracks_);
    EXPECT_EQ(tracks_.ListCount(), 2) << "its own pouring empties it";
    state_.comfort.keepsRipList = false;
    load(list_);
    EXPECT_EQ(tracks_.ListCount(), 0);
}

} // namespace
} // namespace tovik::test
