// SPDX-License-Identifier: GPL-3.0-or-later
// Adding a folder, and the buttons that take rows away, also in the middle of it.
#include "player/frmOpenDirectory.h"

#include "base/ComfortTable.h"
#include "player/ListButtons.h"
#include "player/PlayerRig.h"
#include "playlist/ListUndo.h"
#include "support/host/Unprivileged.h"

#include <functional>

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// Runs the test's code in each step.
class WatchedPump final : public host::MessagePump {
public:
    std::function<bool()> inStep;

    [[nodiscard]] bool Step() override { return !inStep || inStep(); }
};

class OpenDirectoryTest : public PlayerRig {
protected:
    OpenDirectoryTest() {
        set("CFLD", "/last");
        set("ASOT", "0");
    }

    void make(const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            host_.folder.write("m/" + name, "x");
        }
    }

    /// Opens the dialog and accepts it.
    void add(bool subfolders) {
        dialog_.Form_Load();
        dialog_.Command1_Click(music_, subfolders);
    }

    /// What an add tells of a folder in which it finds nothing.
    [[nodiscard]] std::vector<std::string> toldOf(bool subfolders) {
        std::vector<std::string> told;
        dialog_.foundNothing = [&told](const std::string& folder, bool hasFolders) {
            told.push_back(folder + (hasFolders ? " below" : ""));
        };
        add(subfolders);
        dialog_.foundNothing = {};
        return told;
    }

    /// Each row as "name|title", the name told from the folder.
    [[nodiscard]] std::vector<std::string> rows() {
        std::vector<std::string> rows;
        for (playlist::Row row = 1; row <= list_.ListCount(); ++row) {
            list_.GetData(row);
            const bool inside = list_.OutFileName.starts_with(music_ + "/");
            rows.push_back(list_.OutFileName.substr(inside ? music_.size() + 1 : 0) + "|" +
                           list_.OutTitle);
        }
        return rows;
    }

    /// How many rows a file of that name gives in the chosen folder or in one below.
    [[nodiscard]] playlist::Row rowsOfFile(const std::string& name, bool subfolders) {
        std::filesystem::remove_all(music_);
        make({name});
        list_.Clear();
        add(subfolders);
        return list_.ListCount();
    }

    /// Calls `what` in the first step that sees that many rows.
    void whenRowsAre(playlist::Row count, std::function<void()> what) {
        pump_.inStep = [this, count, what = std::move(what), done = false]() mutable {
            if (!done && list_.ListCount() == count) {
                done = true;
                what();
            }
            return true;
        };
    }

    std::string music_ = host_.folder / "m";
    WatchedPump pump_;
    player::frmOpenDirectory dialog_{core_, pump_};
    playlist::PlaylistFiles files_{list_, pump_, host_.paths};
    player::ListButtons buttons_{core_, files_, dialog_};
};

TEST_F(OpenDirectoryTest, anAddMayEndWithTheListWhateverClearsIt) {
    make({"a.mp3", "b.mp3", "c.mp3"});
    for (const bool kind : {false, true}) {
        state_.comfort.clearsOnlyList = kind;
        list_.Clear();
        whenRowsAre(1, [this] { list_.Clear(); });
        add(false);
        EXPECT_EQ(list_.ListCount() == 0, kind);
    }
}

TEST_F(OpenDirectoryTest, aFolderWithoutMusicMayBeTold) {
    make({"cover.jpg", "d/a.mp3"});
    EXPECT_THAT(toldOf(false), IsEmpty());
    state_.comfort = base::ComfortChoices{.master = true}.record();
    EXPECT_THAT(toldOf(false), ElementsAre(music_ + " below"));
    EXPECT_THAT(toldOf(true), IsEmpty());
    EXPECT_THAT(rows(), ElementsAre("d/a.mp3|a"));
    std::filesystem::remove_all(music_ + "/d");
    EXPECT_THAT(toldOf(false), ElementsAre(music_));
    EXPECT_THAT(toldOf(true), ElementsAre(music_));
    state_.comfort = {.tellsEmptyFolder = true}; // of the files one by one
    EXPECT_THAT(toldOf(false), ElementsAre(music_));
    pump_.inStep = [this] {
        dialog_.cancel();
        return true;
    };
    EXPECT_THAT(toldOf(false), IsEmpty()) << "the list was cleared meanwhile";
}

TEST_F(OpenDirectoryTest, whatTheDialogBeginsWith) {
    state_.DirAddIdle = true;
    dialog_.Form_Load();
    EXPECT_EQ(dialog_.folder(), "/last");
    EXPECT_FALSE(dialog_.staysOnTop());
    EXPECT_FALSE(state_.DirAddIdle);
    set("ASOT", "2");
    dialog_.Form_Load();
    EXPECT_TRUE(dialog_.staysOnTop());
}

TEST_F(OpenDirectoryTest, theFolderAlone) {
    make({"b.mp3", "A.OGG", "name.with.dots.ogg", "no music.txt", "list.m3u", "list.pls", "noext",
          "d/below.mp3"});
    add(false);
    EXPECT_THAT(rows(), ElementsAre("A.OGG|A", "b.mp3|b", "name.with.dots.ogg|name.with.dots"));
    list_.GetData(1);
    EXPECT_EQ(list_.OutItemData, "");
    EXPECT_EQ(list_.OutTimeText, "0:00");
    EXPECT_EQ(list_.OutSeconds, 0);
    EXPECT_EQ(mirror_.List(1), "b");
}

TEST_F(OpenDirectoryTest, withSubfoldersTheChosenFolderComesTwice) {
    make({"b.mp3", "a.ogg", "d/c.mp3", "d/a.xm", "d/e/a.mp3"});
    add(true);
    EXPECT_THAT(rows(), ElementsAre("a.ogg|a", "b.mp3|b", "d/a.xm|a", "b.mp3|b", "d/c.mp3|c",
                                    "d/e/a.mp3|a", "a.ogg|a"));
}

TEST_F(OpenDirectoryTest, howManyRowsAFileGives) {
    EXPECT_EQ(rowsOfFile("x.flac", false), 2);
    EXPECT_EQ(rowsOfFile("d/x.flac", true), 4);
    EXPECT_EQ(rowsOfFile("x.flac", true), 6);
    EXPECT_EQ(rowsOfFile("x.bit", false), 2);
    EXPECT_EQ(rowsOfFile("x.item", false), 1);
    EXPECT_EQ(rowsOfFile("x.mp3x", false), 1);
    EXPECT_EQ(rowsOfFile("x.MP3", false), 1);
    EXPECT_EQ(rowsOfFile("d/x.mp3.bak", true), 0);
}

TEST_F(OpenDirectoryTest, aDotInTheNameOfAFolderIsNoExtension) {
    std::filesystem::create_directories(music_ + "/a.mp3");
    make({"d.mp3/readme"});
    add(true);
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(OpenDirectoryTest, theFolderIsKept) {
    make({"a.mp3"});
    add(false);
    EXPECT_EQ(settings_.getSetting("CFLD"), music_);
    EXPECT_EQ(dialog_.folder(), music_);
}

TEST_F(OpenDirectoryTest, aFolderThatCannotBeKeptIsToldAndAddedAllTheSame) {
    make({"a.mp3"});
    std::filesystem::permissions(host_.folder.path(), std::filesystem::perms::all);
    std::filesystem::permissions(host_.folder / "db", std::filesystem::perms(0555));
    {
        const Unprivileged guard;
        dialog_.Command1_Click(music_, false);
    }
    std::filesystem::permissions(host_.folder / "db", std::filesystem::perms::all);
    EXPECT_THAT(rows(), ElementsAre("a.mp3|a"));
    EXPECT_THAT(host_.dialogs.boxes, SizeIs(1));
    EXPECT_TRUE(state_.DirAddIdle);
}

TEST_F(OpenDirectoryTest, whetherAnAddGoesOnIsKnown) {
    make({"a.mp3"});
    bool idle = true;
    whenRowsAre(0, [&] { idle = state_.DirAddIdle; });
    add(false);
    EXPECT_FALSE(idle);
    EXPECT_TRUE(state_.DirAddIdle);
    dialog_.Form_Load();
    EXPECT_FALSE(state_.DirAddIdle);
    dialog_.Command2_Click();
    EXPECT_TRUE(state_.DirAddIdle);
}

TEST_F(OpenDirectoryTest, clearingEndsTheAdd) {
    make({"a.mp3", "b.mp3", "c.mp3"});
    list_.AddItem("", "/before", "before", "", 0);
    whenRowsAre(2, [this] { buttons_.clrIMG_Click(); });
    add(true);
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_TRUE(state_.DirAddIdle);
    add(false); // the next one runs whole
    EXPECT_THAT(rows(), SizeIs(3));
}

TEST_F(OpenDirectoryTest, clearingBesideTheOpenDialogEndsWhatItIsAskedFor) {
    make({"a.mp3"});
    dialog_.Form_Load();
    buttons_.clrIMG_Click();
    dialog_.Command1_Click(music_, false);
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_TRUE(state_.DirAddIdle);
}

TEST_F(OpenDirectoryTest, rowsMayBeDroppedAndDeletedMeanwhile) {
    make({"a.mp3", "b.mp3", "c.mp3"});
    whenRowsAre(2, [this] {
        list_.SelectedIndex = 1;
        buttons_.delIMG_Click();
        list_.AddItem("", "/dropped", "dropped", "00:00", 0);
        list_.SelectIndex(2);
    });
    add(false);
    EXPECT_THAT(rows(), ElementsAre("b.mp3|b", "/dropped|dropped", "c.mp3|c"));
    EXPECT_EQ(list_.SelectedIndex, 2);
}

TEST_F(OpenDirectoryTest, aFolderMayBeAddedWhileAnotherOneIs) {
    make({"a.mp3", "b.mp3"});
    host_.folder.write("other/x.mp3", "x");
    bool idle = true;
    whenRowsAre(1, [&, this] {
        dialog_.Form_Load();
        dialog_.Command1_Click(host_.folder / "other", false);
        idle = state_.DirAddIdle;
    });
    add(false);
    EXPECT_THAT(rows(), ElementsAre("a.mp3|a", (host_.folder / "other/x.mp3") + "|x", "b.mp3|b"));
    EXPECT_FALSE(idle);
    EXPECT_TRUE(state_.DirAddIdle);
}

TEST_F(OpenDirectoryTest, itEndsWithTheProgram) {
    make({"a.mp3", "b.mp3", "c.mp3"});
    pump_.inStep = [this] { return list_.ListCount() < 2; };
    add(false);
    EXPECT_THAT(rows(), SizeIs(2));
}

TEST_F(OpenDirectoryTest, withComfortEachFileComesOnceByFolderAndName) {
    make({"b.flac", "a.mp3", "sub/d.mp3", "sub/c.flac", "x.bit", "list.m3u", "no music.txt"});
    state_.comfort.addsFilesOnce = true;
    state_.comfort.ordersByFolder = true;
    add(false);
    EXPECT_THAT(rows(), ElementsAre("a.mp3|a", "b.flac|b"));
    list_.Clear();
    add(true);
    EXPECT_THAT(rows(), ElementsAre("a.mp3|a", "b.flac|b", "sub/c.flac|c", "sub/d.mp3|d"));
    EXPECT_EQ(list_.text(1, playlist::RowText::TimeText), "0:00");
}

TEST_F(OpenDirectoryTest, theOrderIsASwitchOfItsOwn) {
    make({"b.mp3", "a.flac"});
    state_.comfort = {.addsFilesOnce = true};
    add(true);
    EXPECT_THAT(rows(), ElementsAre("a.flac|a", "b.mp3|b")); // flac comes first among the kinds
    list_.Clear();
    make({"a.mp3"});
    add(true);
    EXPECT_THAT(rows(), ElementsAre("a.flac|a", "a.mp3|a", "b.mp3|b"));
    list_.Clear();
    std::filesystem::remove(music_ + "/a.flac");
    make({"c.flac"});
    add(true);
    EXPECT_THAT(rows(), ElementsAre("c.flac|c", "a.mp3|a", "b.mp3|b"));
    list_.Clear();
    state_.comfort.ordersByFolder = true;
    add(true);
    EXPECT_THAT(rows(), ElementsAre("a.mp3|a", "b.mp3|b", "c.flac|c"));
}

TEST_F(OpenDirectoryTest, withComfortLargeFilesAreFound) {
    make({"sub/large.wav"});
    std::filesystem::resize_file(music_ + "/sub/large.wav", std::uintmax_t{3} << 30);
    state_.comfort = {};
    add(true);
    EXPECT_THAT(rows(), IsEmpty());
    state_.comfort.findsLargeFiles = true;
    add(true);
    EXPECT_THAT(rows(), ElementsAre("sub/large.wav|large"));
}

TEST_F(OpenDirectoryTest, withComfortClearingEndsOnlyWhatRuns) {
    make({"a.mp3"});
    state_.comfort.clearsOnlyList = true;
    dialog_.Form_Load();
    buttons_.clrIMG_Click();
    dialog_.Command1_Click(music_, false);
    EXPECT_THAT(rows(), SizeIs(1));
    make({"b.mp3", "c.mp3"});
    whenRowsAre(2, [this] { buttons_.clrIMG_Click(); });
    add(false);
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(OpenDirectoryTest, aFolderIsOneStepToTakeBack) {
    make({"a.mp3", "b.mp3"});
    state_.comfort.keepsRemovedRows = true;
    list_.obey(state_.comfort);
    playlist::ListUndo undo(list_);
    list_.AddItem("", "/before", "before", "", 0);
    whenRowsAre(2, [this] { list_.Remove(1); }); // beside it
    add(false);
    EXPECT_THAT(rows(), ElementsAre("a.mp3|a", "b.mp3|b"));
    undo.undo();
    EXPECT_THAT(rows(), ElementsAre("/before|before"));
}

class ListButtonsTest : public OpenDirectoryTest {};

TEST_F(ListButtonsTest, clearingDuringTheAutomaticLoadStopsIt) {
    host_.folder.write("db/autosave.m3u", "#EXTINF:1,A\n/a\n#EXTINF:2,B\n/b\n#EXTINF:3,C\n/c\n");
    whenRowsAre(1, [this] { buttons_.clrIMG_Click(); });
    files_.autoload_playlist();
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_TRUE(files_.StopM3u);
    EXPECT_EQ(files_.AutosaveOnExit, 1);
}

TEST_F(ListButtonsTest, oneThatIsLoadedIsNotStopped) {
    files_.AutosaveOnExit = 1;
    list_.AddItem("", "/a", "a", "", 5);
    buttons_.clrIMG_Click();
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_FALSE(files_.StopM3u);
}

TEST_F(ListButtonsTest, rowsMayBeDroppedAndDeletedDuringALoad) {
    host_.folder.write("db/autosave.m3u", "#EXTINF:1,A\n/a\n#EXTINF:2,B\n/b\n#EXTINF:3,C\n/c\n");
    whenRowsAre(2, [this] {
        list_.SelectedIndex = 2;
        buttons_.delIMG_Click();
        list_.AddItem("", "/dropped", "dropped", "00:00", 0);
    });
    files_.autoload_playlist();
    EXPECT_THAT(rows(), ElementsAre("/a|A", "/dropped|dropped", "/c|C"));
}

TEST_F(ListButtonsTest, deletingTakesTheSelectedRowAlone) {
    for (const char* name : {"a", "b", "c"}) {
        list_.AddItem("", name, name, "", 0);
    }
    list_.SelectIndex(1);
    list_.ModifierMask = playlist::stdSS::kShiftMask;
    list_.MS(3);
    buttons_.delIMG_Click();
    EXPECT_THAT(rows(), ElementsAre("b|b", "c|c"));
    buttons_.delIMG_Click(); // nothing is selected any more
    EXPECT_THAT(rows(), SizeIs(2));
}

TEST_F(ListButtonsTest, withComfortItTakesAllThatAreMarked) {
    for (const char* name : {"a", "b", "c", "d"}) {
        list_.AddItem("", name, name, "", 0);
    }
    state_.comfort.deletesMarkedRows = true;
    list_.SelectIndex(1);
    list_.ModifierMask = playlist::stdSS::kShiftMask;
    list_.MS(3);
    buttons_.delIMG_Click();
    EXPECT_THAT(rows(), ElementsAre("d|d"));
}

} // namespace
} // namespace tovik::test
