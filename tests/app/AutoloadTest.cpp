// SPDX-License-Identifier: GPL-3.0-or-later
// The list of the last session, read shortly after the start, and the timers of a playing track.
#include "app/AppRig.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

namespace tovik::test {
namespace {

using playlist::RowText;
using testing::ElementsAre;

class Autoload : public AppRig {
protected:
    static constexpr const char* kUnsaved = "db/autosave.new.m3u";

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

TEST_F(Autoload, rowsOfTheStartComeBehindTheSavedOnesWhateverTheUserDoesMeanwhile) {
    start();
    for (const char* title : {"x", "y", "z"}) { // as of files that were named at the start
        player().stdSS().AddItem("", track(title), title, "", 0);
    }
    std::unique_ptr<host::Timer> user;
    user = host_.clock.makeTimer([&] {
        user->setEnabled(false);
        player().stdSS().Remove(2);
    });
    user->setInterval(100);
    user->setEnabled(true); // due in the load, not before it
    advance(100);
    std::vector<std::string> titles;
    for (playlist::Row row = 1; row <= player().stdSS().ListCount(); ++row) {
        titles.emplace_back(player().stdSS().text(row, RowText::Title));
    }
    EXPECT_THAT(titles, ElementsAre("One", "Two", "x", "z"));
}

TEST_F(Autoload, playWithoutASelectionStartsTheFirstRow) {
    start();
    advance(100);
    EXPECT_TRUE(player().commands().run(commands::CommandId::play));
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

class BadList : public Autoload {
protected:
    static constexpr const char* kBad = "#EXTM3U\n#EXTINF:1,One\n/1.mp3\n#EXTINF:x,Two\n/2.mp3\n";

    void startWithIt() {
        host_.folder.write(kList, kBad);
        host_.folder.write(kUnsaved, kBad);
        start();
        advance(1000);
        ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
        ASSERT_EQ(player().stdSS().ListCount(), 1);
    }

    void addFolder() {
        std::filesystem::create_directory(host_.folder / "music");
        host_.folder.write("music/a.mp3", "");
        player().filling().openDirectory.Form_Load();
        player().filling().openDirectory.Command1_Click(host_.folder / "music", false);
    }
};

TEST_F(BadList, isNotReplacedByTheHalfThatWasRead) {
    startWithIt();
    addFolder();
    advance(10000);
    player().kill_me();
    EXPECT_EQ(host_.folder.read(kList), kBad);
    EXPECT_EQ(host_.folder.read(kUnsaved), kBad);
}

TEST_F(BadList, givesWayToTheOneThatTheUserBeginsAnew) {
    startWithIt();
    player().filling().buttons.clrIMG_Click();
    addFolder();
    player().kill_me();
    EXPECT_EQ(host_.folder.read(kList),
              "#EXTM3U\r\n#EXTINF:0,a\r\n" + (host_.folder / "music/a.mp3") + "\r\n");
    EXPECT_FALSE(std::filesystem::exists(host_.folder / kUnsaved));
}

/// What stands in the list of a session that did not come to its end. It is written on a thread
/// of its own, so the test gives it time on the real clock.
std::string unsaved(const std::string& path) {
    for (int tries = 0; tries < 1000 && !std::filesystem::exists(path); ++tries) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(Autoload, aChangedListIsSavedWhileTheProgramRuns) {
    start();
    advance(100);
    player().stdSS().AddItem("", "/three.mp3", "Three", "00:03", 3);
    advance(5000);
    EXPECT_THAT(unsaved(host_.folder / kUnsaved),
                testing::EndsWith("Two\r\n" + (host_.folder / "two.mp3") +
                                  "\r\n#EXTINF:3,Three\r\n/three.mp3\r\n"));
    player().kill_me();
    EXPECT_FALSE(std::filesystem::exists(host_.folder / kUnsaved));
    EXPECT_THAT(host_.folder.read(kList), testing::EndsWith("/three.mp3\r\n"));
}

TEST_F(Autoload, whatACrashLeftIsTakenUpAndSavedAtTheEnd) {
    host_.folder.write(kUnsaved, "#EXTM3U\r\n#EXTINF:9,Left\r\n/left.mp3\r\n");
    start();
    advance(100);
    ASSERT_EQ(player().stdSS().ListCount(), 1);
    EXPECT_EQ(player().stdSS().text(1, RowText::Title), "Left");
    advance(10000);
    EXPECT_TRUE(std::filesystem::exists(host_.folder / kUnsaved)); // for another crash
    player().kill_me();
    EXPECT_FALSE(std::filesystem::exists(host_.folder / kUnsaved));
    EXPECT_EQ(host_.folder.read(kList), "#EXTM3U\r\n#EXTINF:9,Left\r\n/left.mp3\r\n");
}

TEST_F(Autoload, aSessionThatBeganWithAFileLeavesBothAlone) {
    host_.folder.write(kUnsaved, "#EXTM3U\r\n/left.mp3\r\n");
    const std::string saved = host_.folder.read(kList);
    options_.commandLine = "\"" + track("song.mp3") + "\"";
    start();
    advance(10000);
    player().stdSS().AddItem("", "/three.mp3", "Three", "00:03", 3);
    advance(10000);
    player().kill_me();
    EXPECT_EQ(host_.folder.read(kUnsaved), "#EXTM3U\r\n/left.mp3\r\n");
    EXPECT_EQ(host_.folder.read(kList), saved);
}

TEST_F(Autoload, aSessionThatKeepsNoListWritesNone) {
    const auto threads = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
    };
    options_.keepsList = false;
    start();
    advance(100);
    const auto before = threads();
    player().stdSS().AddItem("", "/three.mp3", "Three", "00:03", 3);
    advance(10000);
    // What writes it would be a thread of its own; one of the start may have come to its end.
    EXPECT_LE(threads(), before);
    EXPECT_FALSE(std::filesystem::exists(host_.folder / kUnsaved));
}

TEST_F(Autoload, theDigitsFollowThePlayingTrack) {
    start();
    advance(100);
    player().List1().ListIndex(0);
    player().music().playback.rows.List1_DblClick();
    sound_.setSeconds(player().state().PrimaryChannel, 12);
    advance(500);
    EXPECT_EQ(player().elements().get(window::MainElement::timed, 4).caption, "1");
    EXPECT_EQ(player().elements().get(window::MainElement::timed, 5).caption, "2");
    const double left = player().elements().get(window::MainElement::track).left;
    advance(500);
    EXPECT_GT(player().elements().get(window::MainElement::track).left, left);
}

} // namespace
} // namespace tovik::test
