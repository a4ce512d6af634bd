// SPDX-License-Identifier: GPL-3.0-or-later
// What fills and empties the playlist, through the whole player.
#include "app/AppRig.h"
#include "app/FullFacts.h"

#include <filesystem>

namespace tovik::test {
namespace {

using commands::CommandId;
using playlist::RowText;
using testing::ElementsAre;
using testing::IsEmpty;

class Filling : public AppRig {
protected:
    [[nodiscard]] std::vector<std::string> titles() {
        std::vector<std::string> titles;
        for (playlist::Row row = 1; row <= player().stdSS().ListCount(); ++row) {
            titles.emplace_back(player().stdSS().text(row, RowText::Title));
        }
        return titles;
    }

    /// The player, started, with its saved list read.
    void begin() {
        start();
        advance(100);
    }

    bool run(CommandId id) { return player().commands().run(id); }

    /// A list of that many entries, saved by the last session.
    std::string saved(int entries) {
        std::string text = "#EXTM3U\r\n";
        for (int n = 1; n <= entries; ++n) {
            const std::string number = std::to_string(n);
            text.append("#EXTINF:1,T").append(number).append("\r\n/").append(number).append("\r\n");
        }
        host_.folder.write(kList, text);
        return text;
    }
};

TEST_F(Filling, theDialogsBearTheTitlesOfTheLanguage) {
    begin();
    for (const CommandId id : {CommandId::addFile, CommandId::loadList, CommandId::saveList}) {
        EXPECT_TRUE(run(id));
    }
    ASSERT_EQ(host_.dialogs.openDialogs.size(), 2U);
    EXPECT_EQ(host_.dialogs.openDialogs[0].title, "Add files");
    EXPECT_EQ(host_.dialogs.openDialogs[1].title, "Load playlist");
    ASSERT_EQ(host_.dialogs.saveDialogs.size(), 1U);
    EXPECT_EQ(host_.dialogs.saveDialogs[0].title, "Save playlist");
}

TEST(FullFacts, modulesHaveALength) {
    const std::string folder = std::getenv("TOVIK_MEDIA");
    const tags::FileFacts facts = app::fullFactsOf(folder + "/song.xm");
    EXPECT_EQ(facts.seconds, 8);
    EXPECT_EQ(facts.title, "tovik test song");
    EXPECT_EQ(app::fullFactsOf(folder + "/text.mp3").seconds, 0);
    EXPECT_EQ(app::fullFactsOf(folder + "/missing.xm"), tags::FileFacts{.nothing = true});
}

TEST_F(Filling, everyButtonOfThePanelHasATarget) {
    begin();
    for (const CommandId id : {CommandId::addFile, CommandId::addFolder, CommandId::locationButton,
                               CommandId::removeFromList, CommandId::clearList, CommandId::loadList,
                               CommandId::saveList}) {
        EXPECT_TRUE(run(id));
    }
    using E = window::MainElement;
    for (const E name : {E::addfileIMG, E::adddirIMG, E::addlocIMG, E::delIMG, E::clrIMG,
                         E::loadImg, E::SaveImg}) {
        EXPECT_TRUE(player().elements().get(name).enabled);
    }
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(Filling, whatWasAddedIsFoundAgain) {
    begin();
    host_.dialogs.filesToOpen.push_back({track("b.mp3"), track("a.mp3")});
    run(CommandId::addFile);
    player().filling().media.Stdss_OleDragDrop(std::vector{track("c.mp3"), track("no.txt")});
    EXPECT_THAT(titles(), ElementsAre("b.mp3", "a.mp3", "c.mp3"));
    player().stdSS().SelectIndex(2);
    run(CommandId::removeFromList);
    player().kill_me();
    EXPECT_EQ(host_.folder.read(kList), "#EXTM3U\r\n#EXTINF:0,b.mp3\r\n" +
                                            (host_.folder / "b.mp3") + "\r\n#EXTINF:0,c.mp3\r\n" +
                                            (host_.folder / "c.mp3") + "\r\n");
}

TEST_F(Filling, aListIsSavedBeforeTheProgramEnds) {
    begin();
    host_.dialogs.filesToOpen.push_back({track("a.mp3")});
    run(CommandId::addFile);
    host_.dialogs.filesToSave.push_back(host_.folder / "x.pls");
    run(CommandId::saveList);
    player().kill_me();
    EXPECT_EQ(host_.folder.read("x.pls"), "[playlist]\r\nFile1=" + (host_.folder / "a.mp3") +
                                              "\r\nTitle1=a.mp3\r\nLength1=0\r\n"
                                              "NumberOfEntries=1\r\nVersion=2\r\n");
}

TEST_F(Filling, aPlsFileOnTheCommandLineIsPlayed) {
    const std::string list = host_.folder.write(
        "l.PLS", "[playlist]\nNumberOfEntries=2\nFile1=" + track("one.mp3") +
                     "\nTitle1=One\nFile2=" + track("two.mp3") + "\nTitle2=Two\nLength2=70\n");
    options_.commandLine = "\"" + list + "\"";
    start();
    EXPECT_THAT(titles(), ElementsAre("One", "Two"));
    EXPECT_TRUE(player().state().IsPlaying);
    EXPECT_EQ(player().state().CurrentTitle, "One");
    EXPECT_EQ(player().stdSS().SelectedIndex, 1);
}

TEST_F(Filling, withComfortAListIsSavedAndLoadedAsOthersDoIt) {
    options_.comfort = true;
    begin();
    host_.dialogs.filesToOpen.push_back({track("a.mp3"), track("b.mp3")});
    run(CommandId::addFile);
    host_.dialogs.filesToSave.push_back(host_.folder / "x.XSPF");
    run(CommandId::saveList);
    host_.dialogs.filesToOpen.push_back({host_.folder / "x.XSPF"});
    host_.dialogs.answers.push_back(host::MessageAnswer::No);
    run(CommandId::loadList);
    EXPECT_THAT(titles(), ElementsAre("a.mp3", "b.mp3", "a.mp3", "b.mp3"));
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text,
              "The playlist is not empty. Shall x.XSPF replace it, or be appended to it?");
    EXPECT_EQ(host_.dialogs.boxes[0].yesCaption, "&Replace");
    EXPECT_EQ(host_.dialogs.boxes[0].noCaption, "&Append");
    EXPECT_EQ(player().stdSS().text(3, RowText::FileName), host_.folder / "a.mp3");
}

TEST_F(Filling, withComfortAnXspfFileOnTheCommandLineIsPlayed) {
    options_.comfort = true;
    track("one.mp3");
    options_.commandLine =
        "\"" +
        host_.folder.write("l.xspf", "<playlist><trackList><track><location>one.mp3</location>"
                                     "<title>One</title></track></trackList></playlist>") +
        "\"";
    start();
    EXPECT_THAT(titles(), ElementsAre("One"));
    EXPECT_TRUE(player().state().IsPlaying);
    EXPECT_EQ(player().state().CurrentTitle, "One");
}

TEST_F(Filling, closingDuringTheAutomaticLoadLeavesTheSavedListAsItIs) {
    /// In the middle of the load a folder is added, and the user closes the window.
    class Closes final : public playlist::ListObserver {
    public:
        Closes(app::frmPlayer& player, host::Closing& closing)
            : player_(player), closing_(closing) {
            player_.stdSS().addObserver(*this);
        }

        void rowsInserted(playlist::Row first, playlist::Row /*count*/) override {
            if (first == 2) {
                player_.filling().openDirectory.Form_Load();
                player_.filling().openDirectory.Command2_Click();
                closing_.request();
            }
        }

    private:
        app::frmPlayer& player_;
        host::Closing& closing_;
    };

    const std::string before = saved(5);
    start();
    Closes closes(player(), host_.closing);
    host_.closing.setLeave([this] { player().kill_me(); });
    advance(100);
    player().stdSS().removeObserver(closes);
    EXPECT_TRUE(player().state().DirAddIdle);
    EXPECT_EQ(host_.endStatus, 0);
    EXPECT_EQ(host_.folder.read(kList), before);
    EXPECT_EQ(player().stdSS().ListCount(), 2);
}

TEST_F(Filling, withoutComfortNothingIsTakenBack) {
    saved(3);
    begin();
    EXPECT_TRUE(run(CommandId::clearList));
    EXPECT_FALSE(run(CommandId::undoList));
    EXPECT_EQ(player().commands().shown(CommandId::undoList), false);
    EXPECT_TRUE(run(CommandId::locationButton));
    EXPECT_THAT(windows_.opened, IsEmpty());
}

TEST_F(Filling, withComfortWhatIsClearedComesBack) {
    put("CMF10", "1");
    saved(3);
    begin();
    EXPECT_FALSE(run(CommandId::undoList)); // the saved list is where it begins
    EXPECT_EQ(player().commands().shown(CommandId::undoList), true);
    EXPECT_TRUE(run(CommandId::clearList));
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_TRUE(run(CommandId::undoList));
    EXPECT_THAT(titles(), ElementsAre("T1", "T2", "T3"));
}

TEST_F(Filling, withComfortNothingIsTakenBackWhileTheSavedListIsLoaded) {
    /// In the middle of the load the key is pressed.
    class TakesBack final : public playlist::ListObserver {
    public:
        explicit TakesBack(app::frmPlayer& player) : player_(player) {
            player_.stdSS().addObserver(*this);
        }

        void rowsInserted(playlist::Row first, playlist::Row /*count*/) override {
            if (first == 3) {
                EXPECT_FALSE(player_.commands().enabled(CommandId::undoList));
                player_.commands().run(CommandId::undoList);
            }
        }

    private:
        app::frmPlayer& player_;
    };

    put("CMF10", "1");
    saved(3);
    start();
    TakesBack takesBack(player());
    advance(200);
    EXPECT_THAT(titles(), ElementsAre("T1", "T2", "T3"));
    player().stdSS().removeObserver(takesBack);
}

TEST_F(Filling, withComfortTheButtonAsksForAnAddress) {
    put("CMF10", "1");
    saved(1);
    begin();
    EXPECT_TRUE(run(CommandId::locationButton));
    EXPECT_THAT(windows_.opened, ElementsAre(window::WindowId::addStation));
    radio::frmaddst& dialog = player().stations().addStation;
    dialog.Command1_Click("Name", "http://radio.example/a");
    dialog.Command1_Click("", "radio.example/b");
    dialog.Command1_Click("no address", "");
    EXPECT_THAT(titles(), ElementsAre("T1", "Name", "http://radio.example/b"));
    EXPECT_EQ(player().lists().RadioLst.ListCount(), 0);
    EXPECT_TRUE(run(CommandId::addStation)); // the radio's own button
    dialog.Command1_Click("Station", "http://radio.example/c");
    EXPECT_EQ(player().lists().RadioLst.ListCount(), 1);
    EXPECT_EQ(player().stdSS().ListCount(), 3);
}

} // namespace
} // namespace tovik::test
