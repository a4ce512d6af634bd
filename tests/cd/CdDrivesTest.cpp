// SPDX-License-Identifier: GPL-3.0-or-later
#include "CdRig.h"

#include "support/host/TemporaryFolder.h"

namespace tovik::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class CdDrives : public CdRig {
protected:
    [[nodiscard]] std::vector<std::string> box() const {
        std::vector<std::string> texts;
        for (const auto& entry : cd_.cmbCDDrives.entries) {
            texts.push_back(entry.text + " " + std::to_string(entry.ItemData));
        }
        return texts;
    }
};

TEST_F(CdDrives, theBoxHoldsThemAndTheFirstIsSelected) {
    insert({{10}, {20, 30}});
    sound_.drives[1].letter = 6; // letters need not be neighbours
    cd_.Init_CD_Ripper();
    EXPECT_THAT(box(), ElementsAre("D: Drive 0 0", "G: Drive 1 1"));
    EXPECT_EQ(cd_.cmbCDDrives.ListIndex, 0);
    EXPECT_EQ(disc_.CDDriveLast, 1);
    EXPECT_EQ(disc_.CDDrive, 0);
    EXPECT_EQ(letters_, "D|G");
    EXPECT_THAT(rowsOf(tracks_), ElementsAre("D:\\Track01.cda|Track 1|00:10|10"));
}

TEST_F(CdDrives, withoutOneTheBoxIsEmpty) {
    insert({{10}});
    cd_.Init_CD_Ripper();
    sound_.drives.clear();
    cd_.Init_CD_Ripper();
    EXPECT_THAT(box(), IsEmpty());
    EXPECT_EQ(cd_.cmbCDDrives.ListIndex, -1);
    EXPECT_EQ(disc_.CDDriveLast, -1);
    EXPECT_EQ(letters_, "");
    EXPECT_EQ(tracks_.ListCount(), 0);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(CdDrives, choosingOneReadsItAndListsItsTracks) {
    insert({{10}, {20, 30}});
    cd_.Init_CD_Ripper();
    sound_.driveCalls.clear();
    cd_.cmbCDDrives_Click(1);
    EXPECT_EQ(disc_.CDDrive, 1);
    EXPECT_THAT(sound_.driveCalls, Contains("BASS_CD_GetInfo(1)"));
    EXPECT_THAT(rowsOf(tracks_), ElementsAre("E:\\Track01.cda|Track 1|00:20|20",
                                             "E:\\Track02.cda|Track 2|00:30|30"));
    cd_.cmbCDDrives_Click(2); // there is none
    EXPECT_EQ(disc_.CDDrive, 1);
}

TEST_F(CdDrives, whatGoesWrongWithOneIsLoggedAndTold) {
    insert({{10}, {20}});
    cd_.Init_CD_Ripper();
    noLetters_ = true;
    cd_.cmbCDDrives_Click(1);
    EXPECT_THAT(logged(), ElementsAre("Subscript out of range,9,Player,cmbCDdrives"));
    ASSERT_THAT(host_.dialogs.boxes, SizeIs(1));
    EXPECT_TRUE(host_.dialogs.boxes[0].title.ends_with(" in sub cmbCDDrives_Click"));
}

TEST_F(CdDrives, theRestOfTheProgramGoesOnWhileTheyAreLookedAt) {
    insert({{10}});
    sound_.looksNeeded = 60;
    cd_.Init_CD_Ripper();
    EXPECT_GT(pump_.steps, 0);
    EXPECT_THAT(box(), SizeIs(1));
}

TEST_F(CdDrives, aLookEndsWithTheProgram) {
    insert({{10}});
    sound_.looksNeeded = 1'000'000;
    pump_.inStep = [] { return false; };
    cd_.Init_CD_Ripper();
    EXPECT_THAT(box(), IsEmpty());
}

TEST_F(CdDrives, whoLooksWhileAnotherLooksLeavesItToHim) {
    insert({{10}});
    sound_.looksNeeded = 60;
    pump_.inStep = [this] {
        cd_.Init_CD_Ripper();
        return true;
    };
    cd_.Init_CD_Ripper();
    EXPECT_THAT(sound_.driveCalls, SizeIs(2)); // one look, and what the drive can do
}

TEST_F(CdDrives, playingAnAudioCdFillsThePlaylist) {
    insert({{10}, {20, 30}});
    addRows(2, {});
    cd_.PlayAudioCD(1);
    EXPECT_THAT(rowsOf(list_), ElementsAre("E:\\Track01.cda|Track 1|00:20|20",
                                           "E:\\Track02.cda|Track 2|00:30|30"));
    EXPECT_EQ(disc_.CDDrive, 1);
    EXPECT_EQ(cd_.cmbCDDrives.ListIndex, 1);
    EXPECT_EQ(tracks_.ListCount(), 0);
    EXPECT_THAT(cd_.tracks.List1(), ElementsAre("Track 1", "Track 2"));
}

TEST_F(CdDrives, playingAnAudioCdThatIsNotThereEmptiesThePlaylist) {
    addRows(2, {});
    cd_.PlayAudioCD(0);
    EXPECT_EQ(list_.ListCount(), 0);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(CdDrives, areLookedAtWithoutWaitingToo) {
    insert({{10}});
    sound_.looksNeeded = 3;
    cd_.beginInit();
    EXPECT_THAT(box(), IsEmpty());
    advance(150);
    EXPECT_THAT(box(), IsEmpty());
    advance(100);
    EXPECT_THAT(box(), SizeIs(1));
    EXPECT_EQ(tracks_.ListCount(), 1);
    EXPECT_EQ(pump_.steps, 0);
    advance(1000);
    EXPECT_THAT(sound_.driveCalls, SizeIs(2)); // and once only
}

TEST_F(CdDrives, oneThatNeverAnswersKeepsNoOtherOut) {
    insert({{10}, {}});
    sound_.looksNeeded = 1'000'000;
    cd_.beginInit();
    cd_.watch(true);
    advance(19'500);
    EXPECT_THAT(box(), IsEmpty());
    advance(1000);
    EXPECT_THAT(box(), SizeIs(2));
    EXPECT_EQ(tracks_.ListCount(), 1);
    sound_.drives[0].toc = FakeDiscs::discOf({20, 30});
    sound_.drives[0].number = 2;
    advance(1000);
    EXPECT_EQ(tracks_.ListCount(), 2); // what is watched is followed again
    cd_.beginInit();
    sound_.drives.resize(1);
    advance(19'500);
    EXPECT_THAT(box(), SizeIs(2)); // a new look has all of its time
    advance(1000);
    EXPECT_THAT(box(), SizeIs(1));
}

TEST_F(CdDrives, oneWithoutALetterIsLeftOut) {
    insert({{10}, {20}, {30}});
    sound_.drives[1].letter = -1;
    cd_.Init_CD_Ripper();
    EXPECT_THAT(box(), ElementsAre("D: Drive 0 0", "F: Drive 2 2"));
    EXPECT_EQ(letters_, "D|F");
    cd_.cmbCDDrives_Click(1);
    EXPECT_THAT(rowsOf(tracks_), ElementsAre("F:\\Track01.cda|Track 1|00:30|30"));
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(CdDrives, lookedAtWithoutWaitingTheChosenOneStaysChosen) {
    insert({{10}, {20}});
    cd_.Init_CD_Ripper();
    cd_.cmbCDDrives_Click(1);
    cd_.beginInit();
    advance(100);
    EXPECT_EQ(cd_.cmbCDDrives.ListIndex, 1);
    EXPECT_EQ(disc_.CDDrive, 1);
    insert({{10}});
    cd_.beginInit();
    advance(100);
    EXPECT_EQ(cd_.cmbCDDrives.ListIndex, 0);
}

TEST_F(CdDrives, areLeftAloneWhileARipRuns) {
    insert({{10}});
    state_.RipRunning = true;
    cd_.beginInit();
    advance(1000);
    EXPECT_THAT(sound_.driveCalls, IsEmpty());
    state_.RipRunning = false;
    insert({{10}, {20}});
    cd_.Init_CD_Ripper();
    state_.RipRunning = true;
    int told = 0;
    cd_.cmbCDDrives.changed = [&told] { ++told; };
    cd_.choose(1);
    EXPECT_EQ(disc_.CDDrive, 0);
    EXPECT_EQ(told, 1); // the box shows the first one again
    state_.RipRunning = false;
    cd_.choose(1);
    EXPECT_EQ(disc_.CDDrive, 1);
}

TEST_F(CdDrives, theChosenOneStaysWhereThatIsWanted) {
    insert({{10}, {20}});
    cd_.Init_CD_Ripper();
    cd_.cmbCDDrives_Click(1);
    state_.comfort.encodesSelectedDrive = true;
    cd_.Init_CD_Ripper();
    EXPECT_EQ(disc_.CDDrive, 1);
    EXPECT_THAT(rowsOf(tracks_), ElementsAre("E:\\Track01.cda|Track 1|00:20|20"));
    state_.comfort.encodesSelectedDrive = false;
    cd_.Init_CD_Ripper();
    EXPECT_EQ(disc_.CDDrive, 0);
    EXPECT_EQ(cd_.cmbCDDrives.ListIndex, 0);
}

TEST_F(CdDrives, noneIsPlayedWhileARipRuns) {
    insert({{10}, {20}});
    cd_.Init_CD_Ripper();
    addRows(2, {});
    state_.RipRunning = true;
    cd_.PlayAudioCD(1);
    EXPECT_EQ(list_.ListCount(), 2);
    EXPECT_EQ(disc_.CDDrive, 0);
}

TEST_F(CdDrives, aRipThatBeginsWhileOneIsAboutToPlayKeepsItsDrive) {
    insert({{10}, {20}});
    cd_.Init_CD_Ripper();
    sound_.looksNeeded = 60;
    pump_.inStep = [this] { return state_.RipRunning = true; };
    cd_.PlayAudioCD(1);
    EXPECT_EQ(disc_.CDDrive, 0);
    EXPECT_EQ(list_.ListCount(), 0);
}

TEST_F(CdDrives, whoWantsToPlayOneWhileOthersWaitKeepsThePlaylist) {
    insert({{10}});
    addRows(2, {});
    sound_.looksNeeded = 60;
    pump_.inStep = [this] {
        cd_.PlayAudioCD(0);
        return true;
    };
    cd_.Init_CD_Ripper();
    EXPECT_EQ(list_.ListCount(), 2);
}

TEST_F(CdDrives, anotherDiscIsListedWhileTheyAreWatched) {
    insert({{10}});
    cd_.Init_CD_Ripper();
    cd_.watch(true);
    EXPECT_TRUE(sound_.drives[0].watched);
    advance(1000);
    EXPECT_EQ(tracks_.ListCount(), 1);
    sound_.drives[0].toc = FakeDiscs::discOf({20, 30});
    sound_.drives[0].number = 2;
    state_.RippingNow = true;
    advance(1000);
    EXPECT_EQ(tracks_.ListCount(), 1);
    state_.RippingNow = false;
    advance(1000);
    EXPECT_EQ(tracks_.ListCount(), 2);
    cd_.watch(false);
    EXPECT_FALSE(sound_.drives[0].watched);
    sound_.drives[0].number = 3;
    sound_.drives[0].ready = false;
    advance(1000);
    EXPECT_EQ(tracks_.ListCount(), 2);
}

TEST_F(CdDrives, theWatchGoesWithTheChosenOne) {
    insert({{10}, {20}});
    cd_.Init_CD_Ripper();
    cd_.watch(true);
    cd_.cmbCDDrives_Click(1);
    EXPECT_FALSE(sound_.drives[0].watched);
    EXPECT_TRUE(sound_.drives[1].watched);
}

TEST(PathExists, forADirectSubfolderAlone) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "a/b");
    folder.write("file", "");
    const std::string path = folder / "";
    EXPECT_TRUE(cd::PathExists(path, "a"));
    EXPECT_FALSE(cd::PathExists(path, "A"));
    EXPECT_FALSE(cd::PathExists(path, "b"));
    EXPECT_FALSE(cd::PathExists(path, "a/b"));
    EXPECT_FALSE(cd::PathExists(path, "file"));
    EXPECT_FALSE(cd::PathExists(path, ""));
    EXPECT_FALSE(cd::PathExists(path, "."));
    EXPECT_FALSE(cd::PathExists(path, ".."));
    EXPECT_FALSE(cd::PathExists("/no/such", "a"));
}

} // namespace
} // namespace tovik::test
