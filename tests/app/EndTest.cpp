// SPDX-License-Identifier: GPL-3.0-or-later
// The end of the program.
#include "app/AppRig.h"
#include "support/host/Unprivileged.h"

namespace tovik::test {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

class End : public AppRig {
protected:
    /// From now on nobody can write into the data folder, but for the log on demand.
    void lockFolder(bool logWritable) const {
        if (logWritable) {
            host_.folder.write("db/err.log", "");
            fs::permissions(host_.folder / "db/err.log", fs::perms(0666));
        }
        fs::permissions(host_.folder / kSettings, fs::perms(0444));
        fs::permissions(host_.folder.path(), fs::perms(0755));
        fs::permissions(host_.folder / "db", fs::perms(0555));
    }

    void killUnprivileged() {
        const Unprivileged user;
        player().kill_me();
    }
};

TEST_F(End, theOrder) {
    options_.commandLine = "\"" + track("song.mp3") + "\"";
    start();
    sound_.calls.clear();
    player().kill_me();
    EXPECT_THAT(sound_.calls,
                ElementsAre("nothing plays: {0} - {1} Music", "window hidden", "BASS_RecordFree()",
                            "BASS_Stop()", "BASS_StreamFree(2)", "BASS_StreamFree(0)",
                            "BASS_StreamFree(0)", "BASS_StreamFree(0)", "BASS_MusicFree(2)",
                            "BASS_MusicFree(0)", "BASS_MusicFree(0)", "BASS_MusicFree(0)",
                            "BASS_Free()"));
    EXPECT_EQ(host_.endStatus, 0);
    EXPECT_THAT(logged(), IsEmpty());
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(End, settingsAreSavedAsTheyStand) {
    for (const auto& [key, text] : {std::pair{"CVL", "33"},
                                    {"SHF", "1"},
                                    {"EQ", "1"},
                                    {"RPT", "1"},
                                    {"CFD", "1"},
                                    {"BLV", "-50"},
                                    {"TMD", "1"},
                                    {"SLD", "1"},
                                    {"CVP", "3"},
                                    {"QPL", "1"}}) {
        set(key, text);
    }
    start();
    // What the file holds now is not what counts at the end.
    for (const char* key :
         {"CVL", "SHF", "EQ", "RPT", "CFD", "BLV", "TMD", "SLD", "CVP", "QPL", "X", "Y"}) {
        set(key, "7");
    }
    window_.x = 2200;
    window_.y = -12;
    player().kill_me();
    EXPECT_EQ(setting("CVL"), "33");
    EXPECT_EQ(setting("SHF"), "1");
    EXPECT_EQ(setting("EQ"), "1");
    EXPECT_EQ(setting("RPT"), "1");
    EXPECT_EQ(setting("CFD"), "1");
    EXPECT_EQ(setting("BLV"), "-50");
    EXPECT_EQ(setting("TMD"), "1");
    EXPECT_EQ(setting("SLD"), "1");
    EXPECT_EQ(setting("CVP"), "3");
    EXPECT_EQ(setting("QPL"), "1");
    EXPECT_EQ(setting("X"), "33000");
    EXPECT_EQ(setting("Y"), "-180");
}

TEST_F(End, aPlaceWhereTheWindowRestsIsStoredBefore) {
    start();
    window_.x = 2200;
    window_.y = -12;
    player().input().windowMoved();
    EXPECT_NE(setting("X"), "33000");
    advance(300);
    EXPECT_EQ(setting("X"), "33000");
    EXPECT_EQ(setting("Y"), "-180");
}

TEST_F(End, aPlaceBeforeTheStartHasChosenOneIsNotStored) {
    set("CDB", "oops"); // ends the start
    start();
    const std::string before = host_.folder.read(kSettings);
    player().input().windowMoved();
    advance(300);
    EXPECT_EQ(host_.folder.read(kSettings), before);
}

TEST_F(End, flagsThatAreOffAreZeroAndAClosedQuickListIsTwo) {
    start();
    for (const char* key : {"SHF", "EQ", "RPT", "CFD", "SLD", "QPL"}) {
        set(key, "7");
    }
    player().kill_me();
    for (const char* key : {"SHF", "EQ", "RPT", "CFD", "SLD"}) {
        EXPECT_EQ(setting(key), "0") << key;
    }
    EXPECT_EQ(setting("QPL"), "2");
    EXPECT_EQ(setting("CVP"), "-1");
}

TEST_F(End, otherSettingsKeepTheirBytes) {
    start();
    const std::string before = host_.folder.read(kSettings);
    window_.y = 100;
    player().kill_me();
    EXPECT_EQ(host_.folder.read(kSettings), before);
}

TEST_F(End, aListThatWasReadToItsEndIsSaved) {
    const std::string one = track("one.mp3");
    host_.folder.write(kList, "#EXTM3U\r\n#EXTINF:65,One\r\n" + one + "\r\n");
    start();
    advance(100);
    player().stdSS().AddItem("", "/music/two.mp3", "Two", "01:10", 70);
    player().kill_me();
    EXPECT_EQ(host_.folder.read(kList),
              "#EXTM3U\r\n#EXTINF:65,One\r\n" + one + "\r\n#EXTINF:70,Two\r\n/music/two.mp3\r\n");
}

TEST_F(End, aListThatWasNotReadYetIsNotReplaced) {
    const std::string saved = "#EXTM3U\r\n#EXTINF:65,One\r\n/music/one.mp3\r\n";
    host_.folder.write(kList, saved);
    start();
    advance(50);
    player().kill_me();
    EXPECT_EQ(host_.folder.read(kList), saved);
}

TEST_F(End, aSaveThatFailsIsToldAndTheProcessEnds) {
    start();
    sound_.calls.clear();
    lockFolder(true);
    killUnprivileged();
    EXPECT_EQ(host_.endStatus, 0);
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].title, " in sub Kill_me");
    const auto lines = logged();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_TRUE(lines[0].starts_with(host_.dialogs.boxes[0].text + ",")) << lines[0];
    EXPECT_TRUE(lines[0].ends_with(",Player,kill process")) << lines[0];
    // What stands behind the failed save is left undone.
    EXPECT_THAT(sound_.calls, ElementsAre("nothing plays: {0} - {1} Music", "window hidden"));
}

TEST_F(End, aFailedSaveLosesNothing) {
    start();
    const std::string before = host_.folder.read(kSettings);
    lockFolder(true);
    window_.x = 500;
    killUnprivileged();
    EXPECT_EQ(host_.folder.read(kSettings), before);
}

TEST_F(End, aSessionThatMayGoOnHasAllSavedAndThePlayerGoesOn) {
    options_.commandLine = "\"" + track("song.mp3") + "\"";
    start();
    EXPECT_TRUE(player().commands().run(commands::CommandId::shuffle));
    window_.x = 500;
    sound_.calls.clear();
    player().saveSession();
    EXPECT_EQ(setting("SHF"), "1");
    EXPECT_EQ(setting("X"), "7500");
    EXPECT_THAT(sound_.calls, IsEmpty()) << "it plays on";
    EXPECT_FALSE(host_.endStatus);
    EXPECT_TRUE(player().state().IsPlaying);
    EXPECT_TRUE(player().commands().run(commands::CommandId::shuffle));
    player().kill_me();
    EXPECT_EQ(setting("SHF"), "0") << "the end saves what came behind it";
}

TEST_F(End, theListOfASessionThatMayGoOnIsSaved) {
    host_.folder.write("db/autosave.m3u", "#EXTM3U\r\n#EXTINF:1,one\r\n/one.mp3\r\n");
    start();
    advance(200); // the list is read 100 ms after the start
    player().lists().stdSS.AddItem("", "/two.mp3", "two", "", 0);
    player().saveSession();
    EXPECT_THAT(host_.folder.read("db/autosave.m3u"), testing::HasSubstr("/two.mp3"));
}

TEST_F(End, aSaveForASessionThatFailsIsOnlyLogged) {
    start();
    lockFolder(true);
    {
        const Unprivileged user;
        player().saveSession();
    }
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_THAT(logged(), Contains(EndsWith("settings.xml,70,Player,kill process")));
    EXPECT_THAT(logged(), Contains(HasSubstr("stations.dat,"))) << "one does not hide the other";
}

TEST_F(End, aListThatCannotBeSavedKeepsASessionFromNothingElse) {
    host_.folder.write(kList, "#EXTM3U\r\n#EXTINF:1,one\r\n/one.mp3\r\n");
    start();
    advance(200); // the list is read 100 ms after the start
    fs::remove(host_.folder / kList);
    fs::create_directory(host_.folder / kList);
    window_.x = 500;
    player().saveSession();
    EXPECT_EQ(setting("X"), "7500");
    EXPECT_THAT(logged(), ElementsAre(EndsWith(",Player,kill process")));
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(End, noBoxIsShownWhenNobodyIsThere) {
    start();
    lockFolder(true);
    player().ground().errors.showNoMoreBoxes();
    killUnprivileged();
    EXPECT_EQ(host_.endStatus, 0);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_THAT(logged(), testing::SizeIs(1));
}

TEST_F(End, withoutALogTheBoxAloneTellsIt) {
    start();
    lockFolder(false);
    killUnprivileged();
    EXPECT_EQ(host_.endStatus, 0);
    EXPECT_THAT(host_.dialogs.boxes, testing::SizeIs(1));
    EXPECT_FALSE(fs::exists(host_.folder / "db/err.log"));
}

TEST_F(End, withoutALogAndAnybodyThereItStillEnds) {
    start();
    lockFolder(false);
    player().ground().errors.showNoMoreBoxes();
    killUnprivileged();
    EXPECT_EQ(host_.endStatus, 0);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(End, aPlayerThatNeverGotAWindowEndsToo) {
    player().kill_me();
    EXPECT_EQ(host_.endStatus, 0);
    EXPECT_THAT(sound_.calls, Contains("BASS_Free()"));
}

} // namespace
} // namespace tovik::test
