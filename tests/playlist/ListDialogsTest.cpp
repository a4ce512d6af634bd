// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/HtmlList.h"
#include "playlist/ListDialogsRig.h"
#include "playlist/M3uList.h"
#include "playlist/PlsList.h"

#include <gmock/gmock.h>

namespace tovik::playlist {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using ListDialogsTest = ListDialogsRig;

TEST_F(ListDialogsTest, theNameTellsTheForm) {
    fill(list, {"a", "b"});
    save("x.m3u");
    save("x.pls");
    save("x.htm");
    EXPECT_EQ(host.folder.read("x.m3u"), m3uText(list));
    EXPECT_EQ(host.folder.read("x.pls"), plsText(list));
    EXPECT_EQ(host.folder.read("x.htm"), htmlText(list));
    save("xm3u"); // the last three characters, whatever stands before them
    EXPECT_EQ(host.folder.read("xm3u"), m3uText(list));
}

TEST_F(ListDialogsTest, anyOtherNameWritesNothing) {
    for (const char* name : {"LIST.M3U", "list.PLS", "list.html", "list.txt", "ab"}) {
        save(name);
        EXPECT_FALSE(exists(name)) << name;
    }
    EXPECT_THAT(host.dialogs.boxes, IsEmpty());
}

TEST_F(ListDialogsTest, anExistingFileIsReplaced) {
    host.folder.write("x.m3u", "a long text that was there before the list was saved\r\n");
    save("x.m3u");
    EXPECT_EQ(host.folder.read("x.m3u"), "#EXTM3U\r\n");
}

TEST_F(ListDialogsTest, aFailedSaveIsNotTold) {
    save("none/x.m3u");
    EXPECT_FALSE(exists("none"));
    EXPECT_THAT(host.dialogs.boxes, IsEmpty());
}

TEST_F(ListDialogsTest, twoSavesInARowAreBothWritten) {
    for (const char* name : {"a.m3u", "b.m3u", "c.m3u"}) {
        host.dialogs.filesToSave.push_back(host.folder / name);
        dialogs.SaveImg_Click();
    }
    dialogs.wait();
    EXPECT_TRUE(exists("a.m3u") && exists("b.m3u") && exists("c.m3u"));
}

TEST_F(ListDialogsTest, whatTheDialogsAsk) {
    dialogs.SaveImg_Click();
    dialogs.loadImg_Click();
    ASSERT_EQ(host.dialogs.saveDialogs.size(), 1U);
    const host::FileDialog& saving = host.dialogs.saveDialogs.front();
    EXPECT_EQ(saving.title, "Save it");
    EXPECT_EQ(saving.defaultExtension, "m3u");
    EXPECT_EQ(saving.fileName, "");
    ASSERT_EQ(saving.filters.size(), 3U);
    EXPECT_EQ(saving.filters[0].name, "M3U Playlist (*.m3u)");
    EXPECT_EQ(saving.filters[1].name, "PLS Playlist (*.pls)");
    EXPECT_EQ(saving.filters[2].name, "HTML File(*.htm)");
    EXPECT_THAT(saving.filters[2].patterns, ElementsAre("*.htm"));
    ASSERT_EQ(host.dialogs.openDialogs.size(), 1U);
    const host::FileDialog& loading = host.dialogs.openDialogs.front();
    EXPECT_EQ(loading.title, "Load it");
    EXPECT_FALSE(loading.manyFiles);
    ASSERT_EQ(loading.filters.size(), 1U);
    EXPECT_EQ(loading.filters[0].name, "Playlist Files (*.m3u;*.pls)");
    EXPECT_THAT(loading.filters[0].patterns, ElementsAre("*.m3u", "*.pls"));
    EXPECT_EQ(list.ListCount(), 0);
}

TEST_F(ListDialogsTest, aPlsFileIsAppended) {
    fill(list, {"before"});
    load(host.folder.write("x.PLS", "\xEF\xBB\xBF[playlist]\nNumberOfEntries=1\nFile1=/a\n"));
    EXPECT_THAT(rowsOf(list), ElementsAre("|/before|before||1", "|/a||00:00|0"));
}

TEST_F(ListDialogsTest, forAnM3uFileTheFixedOneIsRead) {
    const std::string chosen = host.folder.write("chosen.m3u", "#EXTINF:1,Chosen\n/chosen\n");
    load(chosen);
    EXPECT_EQ(list.ListCount(), 0); // it is not there
    host.folder.write("drive_c/Test.M3U", "#EXTINF:1,Fixed\n/fixed\n");
    load(chosen);
    EXPECT_THAT(titlesOf(list), ElementsAre("Fixed"));
    load(host.folder / "none.M3U");
    EXPECT_THAT(titlesOf(list), ElementsAre("Fixed", "Fixed"));
}

TEST_F(ListDialogsTest, whatFailsIsNotTold) {
    host.folder.write("drive_c/test.m3u", "#EXTINF:1,A\n/a\n#EXTINF:x,B\n/b\n");
    load("/x.m3u");
    EXPECT_THAT(titlesOf(list), ElementsAre("A"));
    load("/none.pls");
    load("/none.txt");
    load("x");
    EXPECT_EQ(list.ListCount(), 1);
    EXPECT_THAT(host.dialogs.boxes, IsEmpty());
}

} // namespace
} // namespace tovik::playlist
