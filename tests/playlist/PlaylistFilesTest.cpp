// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/PlaylistFiles.h"

#include "base/RuntimeError.h"
#include "playlist/FileNames.h"
#include "playlist/ListMirror.h"
#include "playlist/Lists.h"
#include "support/host/TemporaryFolder.h"
#include "support/host/Unprivileged.h"

#include <gmock/gmock.h>

#include <functional>

namespace tovik::playlist {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A pump that counts its steps and runs the test's code in each.
class ScriptedPump final : public host::MessagePump {
public:
    int steps = 0;
    std::function<bool()> inStep;

    [[nodiscard]] bool Step() override {
        ++steps;
        return !inStep || inStep();
    }
};

class PlaylistFilesTest : public testing::Test {
protected:
    int read(std::string_view text) { return files.open_m3u(folder.write("list.m3u", text)); }

    /// The number of the error that reading raises; 0 for none.
    int errorOf(const std::string& path) {
        try {
            static_cast<void>(files.open_m3u(path));
        } catch (const base::RuntimeError& error) {
            return error.number();
        }
        return 0;
    }

    int errorOfText(std::string_view text) { return errorOf(folder.write("list.m3u", text)); }

    /// Each row as "file name|title|time text|seconds".
    [[nodiscard]] std::vector<std::string> rows() {
        std::vector<std::string> rows;
        for (Row row = 1; row <= list.ListCount(); ++row) {
            list.GetData(row);
            EXPECT_EQ(list.OutItemData, "");
            rows.push_back(list.OutFileName + "|" + list.OutTitle + "|" + list.OutTimeText + "|" +
                           std::to_string(list.OutSeconds));
        }
        return rows;
    }

    test::TemporaryFolder folder;
    host::Paths paths{folder.path()};
    ScriptedPump pump;
    stdSS list;
    PlaylistFiles files{list, pump, paths};
};

TEST_F(PlaylistFilesTest, aListOfTheUsualForm) {
    EXPECT_EQ(read("#EXTM3U\r\n#EXTINF:215,First song\r\n/music/first.mp3\r\n"
                   "#EXTINF:60,A, B\r\nhttp://x/y\r\n"),
              1);
    EXPECT_THAT(rows(),
                ElementsAre("/music/first.mp3|First song|03:35|215", "http://x/y|A, B|01:00|60"));
}

TEST_F(PlaylistFilesTest, anEmptyPathIsNoList) {
    EXPECT_EQ(files.open_m3u(""), 0);
    EXPECT_EQ(list.ListCount(), 0);
}

TEST_F(PlaylistFilesTest, pathsAloneHaveNoTitlesAndNoTimes) {
    EXPECT_EQ(read("a.mp3\nb.mp3"), 1);
    EXPECT_THAT(rows(), ElementsAre("a.mp3||00:00|0", "b.mp3||00:00|0"));
    EXPECT_EQ(pump.steps, 0);
}

TEST_F(PlaylistFilesTest, titleAndLengthAreCarriedOver) {
    EXPECT_EQ(read("zero\n#EXTINF:5,T\none\ntwo\n#EXTINF:nothing here\nthree\n"), 1);
    EXPECT_THAT(rows(),
                ElementsAre("zero||00:00|0", "one|T|00:05|5", "two|T|00:05|5", "three|T|00:05|5"));
}

TEST_F(PlaylistFilesTest, aTitleWithoutALength) {
    EXPECT_EQ(read("#EXTINF:5,T\none\n#EXTINF,U\ntwo\n"), 1);
    EXPECT_THAT(rows(), ElementsAre("one|T|00:05|5", "two|U|00:05|5"));
}

TEST_F(PlaylistFilesTest, whateverIsNoDirectiveIsAnEntry) {
    EXPECT_EQ(read("# x\n\n  /a.mp3  \n#extinf:1,x\n#EXTGRP:y\n#EXT\n"), 1);
    EXPECT_THAT(rows(), ElementsAre("# x||00:00|0", "||00:00|0", "  /a.mp3||00:00|0",
                                    "#extinf:1,x||00:00|0"));
}

TEST_F(PlaylistFilesTest, lengthsOfOtherKinds) {
    EXPECT_EQ(read("#EXTINF:-1,S\na\n#EXTINF: 12.5 ,S\nb\n#EXTINF:360000,S\nc\n"), 1);
    EXPECT_THAT(rows(), ElementsAre("a|S|00:00|-1", "b|S|00:12|12", "c|S|00:00|360000"));
}

TEST_F(PlaylistFilesTest, aLengthThatIsNoNumberStopsTheRead) {
    EXPECT_EQ(errorOfText("#EXTINF:1,A\na\n#EXTINF:abc,X\nb\n"), 13);
    EXPECT_THAT(rows(), ElementsAre("a|A|00:01|1"));
    EXPECT_EQ(errorOfText("#EXTINF,12:34\n"), 13);
    EXPECT_EQ(errorOfText("#EXTINF:,X\n"), 13);
    EXPECT_EQ(errorOfText("#EXTINF:2147483648,X\n"), 6);
    EXPECT_EQ(errorOfText("#EXTINF:2147483647,X\n"), 0);
}

TEST_F(PlaylistFilesTest, listsThatBeginWithAByteOrderMark) {
    const std::string plain = "#EXTM3U\r\n#EXTINF:215,\xC5\xBD\r\n/a.mp3\r\n";
    const std::u16string wide = u"#EXTM3U\r\n#EXTINF:215,\u017D\r\n/a.mp3\r\n";
    std::string little = "\xFF\xFE";
    std::string big = "\xFE\xFF";
    for (const char16_t unit : wide) {
        const auto low = static_cast<char>(unit & 0xFFU);
        const auto high = static_cast<char>(unit >> 8U);
        little += {low, high};
        big += {high, low};
    }
    for (const std::string& text : {plain, "\xEF\xBB\xBF" + plain, little, big}) {
        list.Clear();
        EXPECT_EQ(read(text), 1);
        EXPECT_THAT(rows(), ElementsAre("/a.mp3|\xC5\xBD|03:35|215"));
    }
}

TEST_F(PlaylistFilesTest, whatOtherPlayersWrite) {
    using namespace std::string_literals;
    const std::string wide(64 * 1024, 'x');
    // Line ends of three kinds, bytes of Windows-1252, names of other systems and addresses, a line
    // of 64 KiB, a zero, and nothing behind the last line.
    EXPECT_EQ(read("#EXTM3U\r#EXTINF:10,\x8Al\xE4ger\rB\xFChne\\\xE4.mp3\r\n"
                   "#EXTINF:20,\xC5\xBD"
                   "elja\n../up/a.mp3\n#EXTINF:-1,S\nhttp://h:80/s?a=1,2#x\n"
                   "#EXTINF:30,"s +
                   wide + "\n/" + wide + "\n#EXTINF:40,A\0B\n/a\0b"s),
              1);
    EXPECT_THAT(rows(), ElementsAre("B\xFChne\\\xE4.mp3|\x8Al\xE4ger|00:10|10",
                                    "../up/a.mp3|\xC5\xBD"
                                    "elja|00:20|20",
                                    "http://h:80/s?a=1,2#x|S|00:00|-1",
                                    "/" + wide + "|" + wide + "|00:30|30", "/a\0b|A\0B|00:40|40"s));
}

TEST_F(PlaylistFilesTest, aSavedListOfSuchNamesComesBack) {
    using namespace std::string_literals;
    folder.write("db/settings.xml", "");
    EXPECT_EQ(read("#EXTINF:40,A\0B\n/a\0b\n#EXTINF:10,\x8Al\n\xE4.mp3"s), 1);
    const std::vector<std::string> before = rows();
    files.autosave_playlist();
    list.Clear();
    files.autoload_playlist();
    EXPECT_EQ(rows(), before);
}

TEST_F(PlaylistFilesTest, filesThatCannotBeRead) {
    EXPECT_EQ(errorOf(folder / "none.m3u"), 53);
    EXPECT_EQ(errorOf(folder.path()), 75);
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    const std::string secret = folder.write("secret.m3u", "a\n");
    std::filesystem::permissions(secret, std::filesystem::perms::none);
    const test::Unprivileged guard;
    EXPECT_EQ(errorOf(secret), 70);
}

TEST_F(PlaylistFilesTest, readingAppends) {
    EXPECT_EQ(read("a\n"), 1);
    EXPECT_EQ(read("a\n"), 1);
    EXPECT_THAT(titlesOf(list), ElementsAre("", ""));
    EXPECT_EQ(read(""), 1);
    EXPECT_EQ(list.ListCount(), 2);
}

TEST_F(PlaylistFilesTest, theMirrorShowsTheTitles) {
    const ListMirror List1(list);
    EXPECT_EQ(read("#EXTINF:1,A\na\n#EXTINF:1,B\nb\n"), 1);
    EXPECT_EQ(List1.ListCount(), 2);
    EXPECT_EQ(List1.List(1), "B");
}

TEST_F(PlaylistFilesTest, itGivesWayTwiceAtEachInfo) {
    EXPECT_EQ(read("#EXTINF:1,A\na\n#EXTINF:1,B\nb\n#EXTINF\n"), 1);
    EXPECT_EQ(pump.steps, 4);
}

TEST_F(PlaylistFilesTest, itEndsWithTheProgram) {
    pump.inStep = [this] { return pump.steps < 4; };
    EXPECT_EQ(read("#EXTINF:1,A\na\n#EXTINF:1,B\nb\n#EXTINF:1,C\nc\n"), 0);
    EXPECT_EQ(pump.steps, 4);
    EXPECT_THAT(titlesOf(list), ElementsAre("A"));
}

TEST_F(PlaylistFilesTest, theStopFlagEndsThisAndEveryLaterRead) {
    pump.inStep = [this] { return files.StopM3u = pump.steps == 3 || files.StopM3u, true; };
    EXPECT_EQ(read("#EXTINF:1,A\na\n#EXTINF:x,B\nb\n"), 1); // stopped before "x" is looked at
    EXPECT_THAT(titlesOf(list), ElementsAre("A"));
    EXPECT_EQ(pump.steps, 3);
    EXPECT_EQ(read("bare\n#EXTINF:1,C\nc\n"), 1);
    EXPECT_THAT(rows(), ElementsAre("a|A|00:01|1", "bare||00:00|0"));
    EXPECT_EQ(pump.steps, 3);
}

TEST_F(PlaylistFilesTest, theListMayBeClearedMeanwhile) {
    pump.inStep = [this] {
        if (pump.steps == 4) {
            list.Clear();
        }
        return true;
    };
    EXPECT_EQ(read("#EXTINF:1,A\na\n#EXTINF:1,B\nb\n"), 1);
    EXPECT_THAT(titlesOf(list), ElementsAre("B"));
}

TEST_F(PlaylistFilesTest, theListComesBackInTheNextSession) {
    folder.write("db/settings.xml", "");
    list.AddItem("data", "/a b.mp3", "A, B: C", "9:99", 215);
    list.AddItem("", "\xFF\xFE.mp3", "\xC3\xA4", "", 0);
    list.SelectIndex(1);
    list.Play(2);
    files.autosave_playlist();
    EXPECT_EQ(folder.read("db/autosave.m3u"), "#EXTM3U\r\n#EXTINF:215,A, B: C\r\n/a b.mp3\r\n"
                                              "#EXTINF:0,\xC3\xA4\r\n\xFF\xFE.mp3\r\n");
    list.Clear();
    EXPECT_EQ(files.AutosaveOnExit, 0);
    files.autoload_playlist();
    EXPECT_EQ(files.AutosaveOnExit, 1);
    EXPECT_THAT(rows(), ElementsAre("/a b.mp3|A, B: C|03:35|215", "\xFF\xFE.mp3|\xC3\xA4|00:00|0"));
    EXPECT_EQ(list.SelectedIndex, 0);
    EXPECT_THAT(markedRows(list), IsEmpty());
    EXPECT_EQ(playedRow(list), 0);
}

TEST_F(PlaylistFilesTest, whatABrokenOffSessionLeftComesBeforeTheSavedList) {
    folder.write("db/autosave.m3u", "#EXTM3U\r\n/saved\r\n");
    folder.write("db/autosave.new.m3u", "#EXTM3U\r\n/left\r\n");
    files.autoload_playlist();
    EXPECT_THAT(rows(), ElementsAre("/left||00:00|0"));
    EXPECT_EQ(files.AutosaveOnExit, 1);
}

TEST_F(PlaylistFilesTest, anEmptyListIsSavedToo) {
    folder.write("db/autosave.m3u", "#EXTM3U\r\n/old\r\n");
    files.autosave_playlist();
    EXPECT_EQ(folder.read("db/autosave.m3u"), "#EXTM3U\r\n");
}

TEST_F(PlaylistFilesTest, aFailedSaveIsToldAndLeavesTheOldFile) {
    const auto saveError = [this] {
        try {
            files.autosave_playlist();
        } catch (const base::RuntimeError& error) {
            return error.number();
        }
        return 0;
    };
    EXPECT_EQ(saveError(), 53); // no folder
    folder.write("db/autosave.m3u", "old");
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    std::filesystem::permissions(folder / "db", std::filesystem::perms::owner_read |
                                                    std::filesystem::perms::others_read |
                                                    std::filesystem::perms::others_exec);
    {
        const test::Unprivileged guard;
        EXPECT_EQ(saveError(), 70);
    }
    std::filesystem::permissions(folder / "db", std::filesystem::perms::all);
    EXPECT_EQ(folder.read("db/autosave.m3u"), "old");
}

TEST_F(PlaylistFilesTest, aMissingSavedListIsTold) {
    EXPECT_THROW(files.autoload_playlist(), base::RuntimeError);
    EXPECT_EQ(files.AutosaveOnExit, 0);
}

TEST_F(PlaylistFilesTest, aListLoadedInPartIsNotSaved) {
    EXPECT_FALSE(files.savesAtExit(false));
    EXPECT_TRUE(files.savesAtExit(true));
    files.AutosaveOnExit = 1;
    EXPECT_TRUE(files.savesAtExit(false));
    EXPECT_TRUE(files.savesAtExit(true));
}

TEST_F(PlaylistFilesTest, noFolderThatIsAddedMeanwhileMakesAPartOfTheListTheSavedOne) {
    folder.write("db/autosave.m3u", "#EXTM3U\r\n#EXTINF:1,A\r\n/a\r\n#EXTINF:2,B\r\n/b\r\n");
    std::vector<bool> saves;
    pump.inStep = [this, &saves] {
        saves.push_back(files.savesAtExit(true));
        return pump.steps < 3;
    };
    files.autoload_playlist();
    EXPECT_THAT(saves, ElementsAre(false, false, false));
    EXPECT_FALSE(files.savesAtExit(false));
}

TEST_F(PlaylistFilesTest, aSavedListThatIsBadStaysAsItIs) {
    folder.write("db/autosave.m3u", "#EXTINF:1,A\n/a\n#EXTINF:x,B\n/b\n");
    EXPECT_THROW(files.autoload_playlist(), base::RuntimeError);
    EXPECT_FALSE(files.savesAtExit(true));
}

TEST_F(PlaylistFilesTest, aPlsFileIsAppendedWhole) {
    files.Openpls2(folder.write(
        "x.pls", "\xEF\xBB\xBF[playlist]\nNumberOfEntries=1\nFile1=/a\nTitle1=A\nLength1=60"));
    files.Openpls2(folder / "none.pls");
    files.Openpls2("");
    EXPECT_THAT(rows(), ElementsAre("/a|A|01:00|60"));
}

TEST(FileNames, extensions) {
    EXPECT_EQ(get_extension("/a/b.mp3"), "mp3");
    EXPECT_EQ(get_extension("a.tar.GZ"), "GZ");
    EXPECT_EQ(get_extension("name"), "");
    EXPECT_EQ(get_extension("name."), "");
    EXPECT_EQ(get_extension(""), "");
    EXPECT_EQ(get_extension("/a.b/c"), "b/c");
}

TEST(FileNames, titlesThatAreNames) {
    EXPECT_TRUE(isNamedAfter("a.b.mp3", "/m/a.b.mp3"));
    EXPECT_TRUE(isNamedAfter("a.b", "/m/a.b.mp3"));
    EXPECT_TRUE(isNamedAfter("a", "/m.x/a"));
    for (const char* title : {"a", "", "A.B.mp3", "/m/a.b.mp3", "mp3"}) {
        EXPECT_FALSE(isNamedAfter(title, "/m/a.b.mp3")) << title;
    }
}

TEST(FileNames, lastParts) {
    EXPECT_EQ(GetLastBackSlash(R"(c:\music\a.mp3)"), "a.mp3");
    EXPECT_EQ(GetLastBackSlash("/music/a\\b.mp3"), "a\\b.mp3");
    EXPECT_EQ(GetLastBackSlash("a.mp3"), "a.mp3");
    EXPECT_EQ(GetLastBackSlash("/music/"), "");
    EXPECT_EQ(GetLastBackSlash(""), "");
}

} // namespace
} // namespace tovik::playlist
