// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/AddMedia.h"

#include "config/ErrHandler.h"
#include "playlist/FollowedRows.h"
#include "playlist/ListMirror.h"
#include "playlist/Lists.h"
#include "playlist/ListUndo.h"
#include "playlist/PlaylistFiles.h"
#include "support/host/RecordingDialogs.h"
#include "support/host/ScriptedPump.h"
#include "support/host/TestHost.h"

#include <gmock/gmock.h>

namespace tovik::playlist {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class AddMediaTest : public testing::Test {
protected:
    [[nodiscard]] std::vector<std::string> chosen(std::string_view text) {
        std::vector<std::string> paths;
        splitChosen(text, [&paths](const std::string& path) { paths.push_back(path); });
        return paths;
    }

    test::TestHost host;
    config::ErrHandler log{host.paths, host.clock, host.operatingSystem};
    config::Errors errors{log, host.dialogs};
    stdSS list;
    ListMirror List1{list};
    std::string title = "Add files";
    PlaylistFiles files{list, host.pump, host.paths};
    AddMedia media{{.list = list,
                    .files = files,
                    .dialogs = host.dialogs,
                    .pump = host.pump,
                    .errors = errors},
                   [this] { return title; }};
};

TEST_F(AddMediaTest, theDialogsAnswerIsTakenApart) {
    EXPECT_THAT(chosen(""), IsEmpty());
    EXPECT_THAT(chosen("/m/a.mp3\0\0"s), ElementsAre("/m/a.mp3"));
    EXPECT_THAT(chosen("/m\0b.mp3\0a.mp3\0\0"s), ElementsAre("/m/b.mp3", "/m/a.mp3"));
    EXPECT_THAT(chosen("/\0b.mp3\0a.mp3\0\0"s), ElementsAre("/b.mp3", "/a.mp3"));
    EXPECT_THAT(chosen("/m\0\0a\0\0\0"s), ElementsAre("/m/a"));
}

TEST_F(AddMediaTest, aFolderEndsInOneSeparator) {
    EXPECT_EQ(RPP("/m"), "/m/");
    EXPECT_EQ(RPP("/m/"), "/m/");
    EXPECT_EQ(RPP("/"), "/");
}

TEST_F(AddMediaTest, chosenFilesBecomeRows) {
    host.dialogs.filesToOpen.push_back({"/m/b.mp3", "/m/no music.txt", "/m/\xFF.ogg"});
    media.Add_file();
    EXPECT_THAT(rowsOf(list),
                ElementsAre("|/m/b.mp3|b.mp3|00:00|0", "|/m/no music.txt|no music.txt|00:00|0",
                            "|/m/\xFF.ogg|\xFF.ogg|00:00|0"));
    EXPECT_EQ(List1.List(1), "no music.txt");
    host.dialogs.filesToOpen.push_back({"/m/c.mp3"});
    media.Add_file();
    EXPECT_EQ(list.ListCount(), 4);
    EXPECT_EQ(list.SelectedIndex, 0);
}

TEST_F(AddMediaTest, theDialogAsksForMusic) {
    media.Add_file();
    ASSERT_EQ(host.dialogs.openDialogs.size(), 1U);
    const host::FileDialog& dialog = host.dialogs.openDialogs.front();
    EXPECT_EQ(dialog.title, "Add files");
    EXPECT_TRUE(dialog.manyFiles);
    EXPECT_EQ(dialog.fileName, "");
    ASSERT_EQ(dialog.filters.size(), 1U);
    EXPECT_EQ(
        dialog.filters[0].name,
        "Audio files (*.mo3;*.xm;*.mod;*.s3m;*.it;*.mtm;*.umx;*.mp3;*.ogg;*.wav;*.flac;*.fla)");
    EXPECT_THAT(dialog.filters[0].patterns,
                ElementsAre("*.mo3", "*.xm", "*.mod", "*.s3m", "*.it", "*.mtm", "*.umx", "*.mp?",
                            "*.ogg", "*.wav", "*.wma", "*.flac", "*.fla"));
    EXPECT_EQ(list.ListCount(), 0); // cancelled
}

TEST_F(AddMediaTest, addressesOfTheWebThatAreDroppedStayAsTheyAre) {
    const std::vector<std::string> dropped = {"http://one.example/live", "ftp://one.example/a",
                                              "HTTPS://one.example/"};
    media.Stdss_OleDragDrop(dropped);
    EXPECT_THAT(rowsOf(list),
                ElementsAre("|http://one.example/live|http://one.example/live|00:00|0",
                            "|HTTPS://one.example/|HTTPS://one.example/|00:00|0"));
}

TEST_F(AddMediaTest, theTitleFollowsTheLanguage) {
    title = "Dodaj datoteke";
    media.Add_file();
    EXPECT_EQ(host.dialogs.openDialogs.front().title, "Dodaj datoteke");
}

TEST_F(AddMediaTest, droppedMusicBecomesRows) {
    media.Stdss_OleDragDrop(std::vector<std::string>{"/m/A.MP3", "/m/folder", "/m/x.txt",
                                                     "/m/a.flac", "/m/list.m3u", "/m/noext"});
    EXPECT_THAT(rowsOf(list), ElementsAre("|/m/A.MP3|A.MP3|00:00|0", "|/m/a.flac|a.flac|00:00|0",
                                          "|/m/list.m3u|list.m3u|00:00|0"));
    EXPECT_EQ(List1.ListCount(), 3);
}

TEST_F(AddMediaTest, aFailedDropIsToldUnderItsName) {
    class Failing final : public ListEvents {
        void TotalTimeChanged(std::int32_t /*TotalSeconds*/) override {
            throw base::RuntimeError(base::ErrorNumber::Overflow);
        }
    } failing;

    list.setEvents(&failing);
    media.Stdss_OleDragDrop(std::vector<std::string>{"/a.mp3", "/b.mp3"});
    list.setEvents(nullptr);
    ASSERT_EQ(host.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host.dialogs.boxes.front().title, " in sub Stdss_OleDragDrop");
}

class ComfortAddMediaTest : public AddMediaTest {
protected:
    ComfortAddMediaTest() {
        comfort.scansDroppedFolders = true;
        comfort.opensDroppedLists = true;
        comfort.keepsRemovedRows = true;
        list.obey(comfort);
        for (const char* name : {"m/b.mp3", "m/below/a.ogg", "m/cover.jpg", "x.wav"}) {
            host.folder.write(name, "x");
        }
        host.folder.write("three.m3u", "#EXTM3U\n#EXTINF:5,One\n/one.mp3\n"
                                       "#EXTINF:6,Two\n/two.mp3\n");
    }

    void drop(const std::vector<std::string>& names) {
        std::vector<std::string> paths;
        for (const std::string& name : names) {
            paths.push_back(host.folder / name);
        }
        media.Stdss_OleDragDrop(paths);
    }

    base::Comfort comfort;
    ListUndo undo{list};
};

TEST_F(ComfortAddMediaTest, aDroppedFolderIsLookedThrough) {
    drop({"m", "x.wav"});
    EXPECT_THAT(titlesOf(list), ElementsAre("b", "a", "x.wav"));
    EXPECT_THAT(host.dialogs.boxes, IsEmpty());
}

TEST_F(ComfortAddMediaTest, aDroppedListIsOpened) {
    drop({"x.wav", "three.m3u"});
    EXPECT_THAT(rowsOf(list), ElementsAre("|" + (host.folder / "x.wav") + "|x.wav|00:00|0",
                                          "|/one.mp3|One|00:05|5", "|/two.mp3|Two|00:06|6"));
    undo.undo(); // all of it at once
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_FALSE(undo.canUndo());
}

TEST_F(ComfortAddMediaTest, eachOfTheTwoStandsForItself) {
    comfort.scansDroppedFolders = false;
    drop({"m", "three.m3u"});
    EXPECT_THAT(titlesOf(list), ElementsAre("One", "Two"));
    list.Clear();
    comfort.scansDroppedFolders = true;
    comfort.opensDroppedLists = false;
    drop({"m", "three.m3u"});
    EXPECT_THAT(titlesOf(list), ElementsAre("b", "a", "three.m3u"));
}

TEST_F(ComfortAddMediaTest, aListThatIsChosenIsOpened) {
    host.dialogs.filesToOpen.push_back({host.folder / "three.m3u", host.folder / "m/cover.jpg"});
    media.Add_file();
    EXPECT_THAT(titlesOf(list), ElementsAre("One", "Two", "cover.jpg"));
    EXPECT_THAT(host.dialogs.openDialogs.front().filters.front().patterns,
                testing::IsSupersetOf({"*.mp?", "*.m3u", "*.m3u8", "*.pls", "*.cue"}));
}

TEST_F(ComfortAddMediaTest, whatIsMissingIsToldBehindTheRest) {
    drop({"gone.pls", "x.wav"});
    EXPECT_THAT(titlesOf(list), ElementsAre("x.wav"));
    ASSERT_EQ(host.dialogs.boxes.size(), 1U);
    EXPECT_THAT(host.dialogs.boxes.front().text, testing::HasSubstr("gone.pls"));
}

TEST_F(ComfortAddMediaTest, theFirstRowIsToldWhenItIsThere) {
    list.AddItem("", "/before", "before", "", 0);
    std::vector<Row> told;
    media.add(std::vector<std::string>{host.folder / "three.m3u", host.folder / "x.wav"}, {},
              [&told](Row first) { told.push_back(first); });
    EXPECT_THAT(told, ElementsAre(2));
    EXPECT_EQ(list.ListCount(), 4);
}

TEST_F(ComfortAddMediaTest, theFirstRowIsItsOwnWhateverComesWhileAListIsRead) {
    test::ScriptedPump pump;
    pump.inStep = [&] {
        if (pump.steps == 1) {
            const FollowedRows added(list);
            list.AddItem("", "/saved", "saved", "", 0);
            list.moveToEnd(std::vector(added.rows()));
        }
        return true;
    };
    PlaylistFiles readFiles{list, pump, host.paths};
    AddMedia adding{
        {.list = list, .files = readFiles, .dialogs = host.dialogs, .pump = pump, .errors = errors},
        [] { return ""; }};
    std::string first;
    adding.add(std::vector<std::string>{host.folder / "three.m3u"}, {},
               [&](Row row) { first = list.text(row, RowText::Title); });
    EXPECT_EQ(first, "One");
    EXPECT_THAT(titlesOf(list), ElementsAre("saved", "One", "Two"));
}

TEST_F(ComfortAddMediaTest, whatStandsBeforeABadLineOfAListIsAdded) {
    host.folder.write("bad.m3u", "#EXTM3U\n#EXTINF:5,One\n/one.mp3\n#EXTINF:no,Two\n/two.mp3\n");
    drop({"bad.m3u"});
    EXPECT_THAT(titlesOf(list), ElementsAre("One"));
    EXPECT_EQ(host.dialogs.boxes.size(), 1U);
}

TEST_F(ComfortAddMediaTest, itEndsWhereTheListIsCleared) {
    media.add(std::vector<std::string>{host.folder / "x.wav", host.folder / "m"}, {},
              [this](Row) { list.Clear(); });
    EXPECT_EQ(list.ListCount(), 0);
    drop({"m"}); // the next one runs whole
    EXPECT_EQ(list.ListCount(), 2);
}

TEST_F(ComfortAddMediaTest, soDoesTheListThatIsBeingRead) {
    /// The user clears the list whenever he can.
    class ClearingPump final : public host::MessagePump {
    public:
        explicit ClearingPump(stdSS& rows) : rows_(rows) {}

        [[nodiscard]] bool Step() override {
            rows_.Clear();
            return true;
        }

    private:
        stdSS& rows_;
    };

    comfort.readsOnAfterStop = comfort.readsAllOfPls = true;
    host.folder.write("three.pls", "[playlist]\nFile1=/one\nFile2=/two\nFile3=/three\n");
    ClearingPump pump(list);
    PlaylistFiles reader(list, pump, host.paths);
    reader.obey(comfort);
    AddMedia adding(
        {.list = list, .files = reader, .dialogs = host.dialogs, .pump = pump, .errors = errors},
        {});
    for (const char* name : {"three.m3u", "three.pls"}) {
        adding.Stdss_OleDragDrop(std::vector{host.folder / name, host.folder / "x.wav"});
        EXPECT_EQ(list.ListCount(), 0) << name;
    }
    EXPECT_THAT(host.dialogs.boxes, IsEmpty());
}

} // namespace
} // namespace tovik::playlist
