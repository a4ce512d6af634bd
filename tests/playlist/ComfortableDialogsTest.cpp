// SPDX-License-Identifier: GPL-3.0-or-later
// Saving and loading lists as users expect it.
#include "base/ComfortTable.h"
#include "playlist/HtmlList.h"
#include "playlist/ListDialogsRig.h"
#include "playlist/ListUndo.h"
#include "playlist/M3uList.h"
#include "playlist/PlsList.h"
#include "playlist/XspfList.h"

#include <gmock/gmock.h>

namespace tovik::playlist {
namespace {

using host::MessageAnswer;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ComfortableDialogsTest : public ListDialogsRig {
protected:
    ComfortableDialogsTest() {
        comfort = base::ComfortChoices{.master = true}.record();
        files.obey(comfort);
    }

    [[nodiscard]] ListManner manner() const {
        return {.comfort = comfort, .folder = host.folder.path()};
    }
};

TEST_F(ComfortableDialogsTest, theExtensionTellsTheFormInAnyCase) {
    list.AddItem("", host.folder / "sub/a b.mp3", "\xE4", "", 0);
    list.AddItem("", "/elsewhere/b.mp3", "B", "", 215);
    for (const char* name : {"x.M3U", "x.m3u8", "x.Pls", "x.XSPF", "x.htm", "x.html"}) {
        save(name);
    }
    EXPECT_EQ(host.folder.read("x.M3U"), "#EXTM3U\r\n#EXTINF:0,\xE4\r\nsub/a b.mp3\r\n"
                                         "#EXTINF:215,B\r\n/elsewhere/b.mp3\r\n");
    EXPECT_EQ(host.folder.read("x.m3u8"), "#EXTM3U\r\n#EXTINF:0,\xC3\xA4\r\nsub/a b.mp3\r\n"
                                          "#EXTINF:215,B\r\n/elsewhere/b.mp3\r\n");
    EXPECT_THAT(host.folder.read("x.Pls"), HasSubstr("File1=sub/a b.mp3\r\n"));
    EXPECT_EQ(host.folder.read("x.XSPF"), xspfText(list, manner()));
    EXPECT_EQ(host.folder.read("x.htm"), htmlText(list, manner()));
    EXPECT_EQ(host.folder.read("x.html"), htmlText(list, manner()));
}

TEST_F(ComfortableDialogsTest, whatAListReplacedComesBackInOneStep) {
    fill(list, {"new1", "new2"});
    save("x.m3u");
    list.Clear();
    list.obey(comfort);
    fill(list, {"old"});
    ListUndo undo(list);
    host.dialogs.answers = {MessageAnswer::Yes};
    load(host.folder / "x.m3u");
    EXPECT_EQ(list.ListCount(), 2);
    undo.undo();
    ASSERT_EQ(list.ListCount(), 1);
    EXPECT_EQ(list.text(1, RowText::Title), "old");
}

TEST_F(ComfortableDialogsTest, aNameWithoutAnExtensionGetsOne) {
    fill(list, {"a"});
    save("Vol. 2");
    EXPECT_EQ(host.folder.read("Vol. 2.m3u"), m3uText(list));
    ASSERT_EQ(host.dialogs.saveDialogs.size(), 1U);
    const host::FileDialog& dialog = host.dialogs.saveDialogs.front();
    EXPECT_TRUE(dialog.addsFilterExtension);
    std::vector<std::string> patterns;
    for (const host::FileFilter& filter : dialog.filters) {
        patterns.push_back(filter.patterns.front());
    }
    EXPECT_THAT(patterns, ElementsAre("*.m3u", "*.m3u8", "*.pls", "*.xspf", "*.htm"));
}

TEST_F(ComfortableDialogsTest, aSaveThatFailsIsTold) {
    host.folder.write("x.m3u", "kept");
    save("none/x.m3u");
    ASSERT_EQ(host.dialogs.boxes.size(), 1U);
    EXPECT_THAT(host.dialogs.boxes.front().text, HasSubstr(host.folder / "none/x.m3u"));
    EXPECT_EQ(host.folder.read("x.m3u"), "kept");
}

TEST_F(ComfortableDialogsTest, whatIsSavedComesBackInEachForm) {
    list.AddItem("", host.folder / "sub/# a.mp3", "A", "03:35", 215);
    list.AddItem("", host.folder / "AC\\DC \xFF.mp3", "\xC4\x8D", "00:00", 0);
    list.AddItem("", "/elsewhere/100%25.mp3", "B", "00:01", 1);
    list.AddItem("", "http://x/a?b&c", "Radio", "00:00", 0);
    const std::vector<std::string> rows = rowsOf(list);
    for (const char* name : {"x.m3u", "x.m3u8", "x.pls", "x.xspf"}) {
        save(name);
        list.Clear();
        load(host.folder / name);
        EXPECT_EQ(rowsOf(list), rows) << name;
    }
    EXPECT_THAT(host.dialogs.boxes, IsEmpty()) << "an empty list asks nothing";
}

TEST_F(ComfortableDialogsTest, theChosenListIsLoaded) {
    host.folder.write("drive_c/test.m3u", "#EXTINF:1,Fixed\n/fixed\n");
    load(host.folder.write("chosen.m3u", "#EXTINF:1,Chosen\nchosen.mp3\n"));
    EXPECT_THAT(rowsOf(list), ElementsAre("|" + (host.folder / "chosen.mp3") + "|Chosen|00:01|1"));
    ASSERT_EQ(host.dialogs.openDialogs.size(), 1U);
    EXPECT_THAT(host.dialogs.openDialogs.front().filters.front().patterns,
                ElementsAre("*.m3u", "*.m3u8", "*.pls", "*.xspf"));
}

TEST_F(ComfortableDialogsTest, theUserSaysWhetherItReplacesTheRows) {
    const std::string path = host.folder.write("x.m3u", "#EXTINF:1,New\n/new\n");
    fill(list, {"old"});
    host.dialogs.answers = {MessageAnswer::Cancel, MessageAnswer::No, MessageAnswer::Yes};
    load(path);
    EXPECT_THAT(titlesOf(list), ElementsAre("old"));
    load(path);
    EXPECT_THAT(titlesOf(list), ElementsAre("old", "New"));
    load(path);
    EXPECT_THAT(titlesOf(list), ElementsAre("New"));
    ASSERT_EQ(host.dialogs.boxes.size(), 3U);
    const host::MessageBox& box = host.dialogs.boxes.front();
    EXPECT_EQ(box.text, "13 x.m3u");
    EXPECT_EQ(box.buttons, host::MessageButtons::YesNoCancel);
    EXPECT_EQ(box.yesCaption, "14 [x]");
    EXPECT_EQ(box.noCaption, "15 [x]");
    EXPECT_EQ(box.cancelCaption, "3 [x]");
    EXPECT_EQ(box.defaultAnswer, MessageAnswer::No) << "nothing is lost by Enter";
    comfort.asksBeforeLoading = false;
    load(path);
    EXPECT_THAT(titlesOf(list), ElementsAre("New", "New"));
    EXPECT_EQ(host.dialogs.boxes.size(), 3U);
}

TEST_F(ComfortableDialogsTest, aListThatReplacesTheOthersEndsTheAutomaticLoad) {
    fill(list, {"old"});
    host.dialogs.answers = {MessageAnswer::Yes};
    load(host.folder.write("x.m3u", "/new\n"));
    EXPECT_TRUE(files.StopM3u);
    EXPECT_TRUE(files.savesAtExit(false)) << "the list is the user's own now";
}

TEST_F(ComfortableDialogsTest, noRowIsLostToAListThatCannotBeRead) {
    fill(list, {"old"});
    host.dialogs.answers.assign(6, MessageAnswer::Ok);
    load(host.folder / "none.m3u");
    load(host.folder.write("bad.xspf", "<playlist"));
    load(host.folder.write("bad.pls", "File1=/a\n"));
    load(host.folder.write("empty.pls", "[playlist]\nNumberOfEntries=0\n"));
    load(host.folder.write("empty.xspf", "<playlist><trackList/></playlist>"));
    load(host.folder.write("empty.m3u", "#EXTM3U\n"));
    EXPECT_THAT(titlesOf(list), ElementsAre("old"));
    ASSERT_EQ(host.dialogs.boxes.size(), 6U);
    EXPECT_THAT(host.dialogs.boxes[0].text, HasSubstr("none.m3u"));
    EXPECT_EQ(host.dialogs.boxes[1].text, "16 bad.xspf");
    EXPECT_EQ(host.dialogs.boxes[2].text, "16 bad.pls");
    EXPECT_EQ(host.dialogs.boxes[3].text, "22 empty.pls");
    EXPECT_EQ(host.dialogs.boxes[4].text, "22 empty.xspf");
    EXPECT_EQ(host.dialogs.boxes[5].text, "22 empty.m3u");
}

} // namespace
} // namespace tovik::playlist
