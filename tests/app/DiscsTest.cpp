// SPDX-License-Identifier: GPL-3.0-or-later
// Audio CDs in the whole player: when drives are looked at, menus, panel.
#include "app/AppRig.h"
#include "window/PanelTable.h"

namespace tovik::test {
namespace {

using commands::CommandId;
using testing::IsEmpty;

class DiscsTest : public AppRig {
protected:
    void insert(const std::vector<std::vector<std::int32_t>>& discs) {
        sound_.drives.clear();
        for (const auto& disc : discs) {
            sound_.drives.push_back({.letter = 3 + static_cast<int>(sound_.drives.size()),
                                     .toc = FakeDiscs::discOf(disc)});
        }
    }

    [[nodiscard]] bool shown(const char* key) {
        const auto& menus = player().menus().frmTSR.m_Menus;
        return menus.ItemVisible(menus.IndexForKey(key));
    }

    [[nodiscard]] long looks() const {
        return std::ranges::count(sound_.driveCalls, "lookAtDrives()");
    }

    void switchTo(const char* mask) { player().view().panels.Switch_Win(mask); }
};

TEST_F(DiscsTest, drivesAreLookedAtSoonAfterTheStartWithoutWaiting) {
    insert({{10}, {20}});
    start();
    EXPECT_THAT(sound_.driveCalls, IsEmpty());
    advance(1000);
    EXPECT_EQ(looks(), 1);
    EXPECT_TRUE(shown("mnuDevice1"));
    EXPECT_TRUE(shown("mnuDevice2"));
    EXPECT_FALSE(shown("mnuDevice3"));
    EXPECT_EQ(player().discs().state.CDDriveLast, 1);
    EXPECT_EQ(player().lists().lstTracks.ListCount(), 1);
}

TEST_F(DiscsTest, withoutADriveTheMenuHasNoEntry) {
    start();
    advance(1000);
    EXPECT_FALSE(shown("mnuDevice1"));
    EXPECT_FALSE(player().commands().enabled(CommandId::playDrive1));
}

TEST_F(DiscsTest, theMenuPoursADiscIntoThePlaylist) {
    insert({{10}, {20, 30}});
    start();
    advance(1000);
    player().stdSS().AddItem("", track("a.mp3"), "a", "01:05", 65);
    ASSERT_TRUE(player().commands().enabled(CommandId::playDrive2));
    EXPECT_FALSE(player().commands().enabled(CommandId::playDrive3));
    player().commands().run(CommandId::playDrive2);
    ASSERT_EQ(player().stdSS().ListCount(), 2);
    EXPECT_EQ(player().stdSS().text(2, playlist::RowText::FileName), "E:\\Track02.cda");
}

TEST_F(DiscsTest, aDiscEndsWhatIsBeingAdded) {
    options_.comfort = true;
    insert({{10}, {20, 30}});
    start();
    advance(1000);
    std::vector<std::string> paths;
    for (int i = 0; i < 500; ++i) { // gives way in between
        paths.push_back(host_.folder.write("m/" + std::to_string(i) + ".mp3", "x"));
    }
    player().filling().media.add(paths, {}, [this](playlist::Row) {
        EXPECT_TRUE(player().commands().run(CommandId::playDrive2));
    });
    ASSERT_EQ(player().stdSS().ListCount(), 2);
    EXPECT_EQ(player().stdSS().text(2, playlist::RowText::FileName), "E:\\Track02.cda");
}

TEST_F(DiscsTest, theRipPanelLooksAnewAndWatchesTheDrive) {
    insert({{10}});
    start();
    advance(1000);
    switchTo("00010");
    EXPECT_EQ(looks(), 2);
    EXPECT_TRUE(sound_.drives[0].watched);
    advance(100);
    sound_.drives[0].toc = FakeDiscs::discOf({20, 30, 40});
    ++sound_.drives[0].number;
    advance(1000);
    EXPECT_EQ(player().lists().lstTracks.ListCount(), 3);
    switchTo("00010");
    EXPECT_EQ(looks(), 2); // it was shown already
    switchTo("10000");
    EXPECT_FALSE(sound_.drives[0].watched);
}

TEST_F(DiscsTest, theRowsPlayFromTheDriveOfTheirLetter) {
    insert({{10}, {20, 30}});
    start();
    advance(1000);
    player().commands().run(CommandId::playDrive2);
    player().stdSS().SelectIndex(2);
    player().commands().run(CommandId::play);
    EXPECT_EQ(callsOf("BASS_CD_StreamCreate"), 1U);
    EXPECT_THAT(sound_.calls, testing::Contains("BASS_CD_StreamCreate(1, 1, 327680)"));
}

} // namespace
} // namespace tovik::test
