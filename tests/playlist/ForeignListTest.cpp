// SPDX-License-Identifier: GPL-3.0-or-later
// Lists of other players, read as those do.
#include "base/ComfortTable.h"
#include "base/RuntimeError.h"
#include "host/Paths.h"
#include "playlist/Lists.h"
#include "playlist/PlaylistFiles.h"
#include "support/host/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <functional>

namespace tovik::playlist {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CallingPump final : public host::MessagePump {
public:
    std::function<void()> inStep;

    [[nodiscard]] bool Step() override {
        if (inStep) {
            inStep();
        }
        return goesOn;
    }

    bool goesOn = true;
};

class ForeignListTest : public testing::Test {
protected:
    ForeignListTest() { files.obey(comfort); }

    /// The rows of a list of that name beside the data, without the data that rows carry, and with
    /// "~" for its folder.
    std::vector<std::string> rowsIn(std::string_view text, const std::string& name = "x.m3u") {
        list.Clear();
        const std::string path = folder.write(name, text);
        files.open(path, listFormOf(path, comfort).value_or(ListForm::M3u));
        std::vector<std::string> rows = rowsOf(list);
        for (std::string& row : rows) {
            row.erase(0, 1);
            if (row.starts_with(folder.path())) {
                row.replace(0, folder.path().size(), "~");
            }
        }
        return rows;
    }

    test::TemporaryFolder folder;
    host::Paths paths{folder.path()};
    CallingPump pump;
    stdSS list;
    base::Comfort comfort;
    PlaylistFiles files{list, pump, paths};
};

TEST_F(ForeignListTest, namesCountFromTheFolderOfTheList) {
    constexpr std::string_view kText = "#EXTINF:1,A\nsub\\a.mp3\n#EXTINF:1,B\n../b.mp3\n"
                                       "#EXTINF:1,C\n/m/c.mp3\n#EXTINF:1,D\nhttp://x/d\n";
    EXPECT_THAT(rowsIn(kText), ElementsAre("sub\\a.mp3|A|00:01|1", "../b.mp3|B|00:01|1",
                                           "/m/c.mp3|C|00:01|1", "http://x/d|D|00:01|1"));
    comfort.resolvesNames = true;
    EXPECT_THAT(rowsIn(kText), ElementsAre("~/sub/a.mp3|A|00:01|1", "~/../b.mp3|B|00:01|1",
                                           "/m/c.mp3|C|00:01|1", "http://x/d|D|00:01|1"));
    EXPECT_THAT(rowsIn("[playlist]\nNumberOfEntries=1\nFile1=a.mp3\n", "x.pls"),
                ElementsAre("~/a.mp3||00:00|0"));
}

TEST_F(ForeignListTest, titlesBelongToOneEntry) {
    constexpr std::string_view kText =
        "#EXTM3U\n#EXTINF:5,T\n/one\n/two\n\n \t\n# said\n#EXTINF:6,U\n#EXTVLCOPT:x\n/three\n";
    EXPECT_THAT(rowsIn(kText),
                ElementsAre("/one|T|00:05|5", "/two|T|00:05|5", "|T|00:05|5", " \t|T|00:05|5",
                            "# said|T|00:05|5", "/three|U|00:06|6"));
    comfort.resetsTitles = true;
    EXPECT_THAT(rowsIn(kText), ElementsAre("/one|T|00:05|5", "/two||00:00|0", "/three|U|00:06|6"));
    comfort.namesUntitled = true;
    EXPECT_THAT(rowsIn("/m/one.mp3\nhttp://x/y\n#EXTINF:1, \ntwo.mp3\n"),
                ElementsAre("/m/one.mp3|one.mp3|00:00|0", "http://x/y|http://x/y|00:00|0",
                            "two.mp3|two.mp3|00:01|1"));
    EXPECT_THAT(rowsIn("[playlist]\nNumberOfEntries=1\nFile1=/m/a.mp3\n", "x.pls"),
                ElementsAre("/m/a.mp3|a.mp3|00:00|0"));
}

TEST_F(ForeignListTest, aBadLengthIsNone) {
    constexpr std::string_view kText =
        "#EXTINF:abc,A\n/a\n#EXTINF:-1,B\n/b\n#EXTINF,12:34\n/c\n#EXTINF:99999999999,D\n/d\n"
        "#EXTINF:12 logo=\"x\",E\n/e\n#EXTINF:12.6,F\n/f\n";
    EXPECT_THROW(rowsIn(kText), base::RuntimeError);
    comfort.takesBadLengths = true;
    EXPECT_THAT(rowsIn(kText), ElementsAre("/a|A|00:00|0", "/b|B|00:00|0", "/c|12:34|00:00|0",
                                           "/d|D|00:00|0", "/e|E|00:12|12", "/f|F|00:13|13"));
}

TEST_F(ForeignListTest, aPlsLengthIsThatOfItsEntry) {
    constexpr std::string_view kText = "[playlist]\nNumberOfEntries=4\nFile1=/a\nLength1=5\n"
                                       "File2=/b\nFile3=/c\nLength3=x\nFile4=/d\nLength4=-1\n";
    EXPECT_THAT(rowsIn(kText, "x.pls"),
                ElementsAre("/a||00:05|5", "/b||00:05|5", "/c||00:05|5", "/d||00:00|-1"));
    comfort.forgetsLengths = true;
    EXPECT_THAT(rowsIn(kText, "x.pls"),
                ElementsAre("/a||00:05|5", "/b||00:00|0", "/c||00:00|0", "/d||00:00|0"));
}

TEST_F(ForeignListTest, aPlsListIsReadWhole) {
    constexpr std::string_view kText =
        "[playlist]\nTitle2=x\nFile3=/c\nLength3=3\nFile1=/a\nFile2147483647=/z\nFile7=\n";
    EXPECT_THAT(rowsIn(kText, "x.pls"), IsEmpty());
    comfort.readsAllOfPls = true;
    EXPECT_THAT(rowsIn(kText, "x.pls"), ElementsAre("/a||00:00|0", "/c||00:03|3", "/z||00:03|3"));
}

TEST_F(ForeignListTest, theStopOfTheAutomaticLoadStopsNothingElse) {
    files.StopM3u = true;
    EXPECT_THAT(rowsIn("#EXTINF:1,A\n/a\n"), IsEmpty());
    comfort.readsOnAfterStop = true;
    EXPECT_THAT(rowsIn("#EXTINF:1,A\n/a\n"), ElementsAre("/a|A|00:01|1"));
}

TEST_F(ForeignListTest, theAutomaticLoadIsStillStopped) {
    comfort.readsOnAfterStop = true;
    folder.write("db/autosave.m3u", "#EXTINF:1,A\n/a\n#EXTINF:1,B\n/b\n");
    pump.inStep = [this] {
        if (list.ListCount() == 1) {
            files.stopAutoload();
            list.Clear();
        }
    };
    files.autoload_playlist();
    EXPECT_THAT(titlesOf(list), IsEmpty());
    EXPECT_TRUE(files.savesAtExit(false));
}

TEST_F(ForeignListTest, theOwnListOfAPlayerIsReadAsItWasSaved) {
    comfort = base::ComfortChoices{.master = true}.record();
    list.AddItem("", "AC\\DC.mp3", "", "", 1);
    list.AddItem("", "# 1.mp3", "T", "", -1);
    list.AddItem("", "rel/a.mp3", "", "", 0);
    folder.write("db/settings.xml", "");
    files.autosave_playlist();
    list.Clear();
    files.autoload_playlist();
    EXPECT_THAT(rowsOf(list),
                ElementsAre("|AC\\DC.mp3||00:01|1", "|# 1.mp3|T|00:00|0", "|rel/a.mp3||00:00|0"));
    folder.write("db/autosave.m3u", "#EXTINF:x,A\n/a\n");
    list.Clear();
    files.autoload_playlist();
    EXPECT_THAT(titlesOf(list), ElementsAre("A")) << "a bad length loses no list";
}

TEST_F(ForeignListTest, aListIsReadWithoutAChangeOfTheRows) {
    fill(list, {"before"});
    const std::string path = folder.write("x.m3u", "#EXTINF:65,A\na.mp3\n");
    comfort.resolvesNames = true;
    const auto content = files.readList(path);
    ASSERT_TRUE(content.has_value());
    EXPECT_THAT(
        content->entries,
        ElementsAre(ListEntry{
            .fileName = folder / "a.mp3", .title = "A", .timeText = "01:05", .seconds = 65}));
    EXPECT_EQ(list.ListCount(), 1);
    files.append(content->entries);
    EXPECT_THAT(titlesOf(list), ElementsAre("before", "A"));
    EXPECT_THROW(static_cast<void>(files.readList(folder / "none.m3u")), base::RuntimeError);
    pump.goesOn = false;
    EXPECT_FALSE(files.readList(path).has_value()) << "the program is ending";
}

TEST_F(ForeignListTest, aLongDocumentHoldsUpNobody) {
    using Clock = std::chrono::steady_clock;
    comfort = base::ComfortChoices{.master = true}.record();
    std::string text = "<playlist><trackList>";
    constexpr std::size_t kTracks = 100'000;
    for (std::size_t n = 0; n < kTracks; ++n) {
        text += "<track><location>a.mp3</location><title>T</title></track>";
    }
    const std::string path = folder.write("x.xspf", text + "</trackList></playlist>");
    const Clock::time_point begin = Clock::now();
    Clock::time_point last = begin;
    Clock::duration longest{};
    const auto step = [&] {
        longest = std::max(longest, Clock::now() - last);
        last = Clock::now();
    };
    pump.inStep = step;
    const auto content = files.readList(path);
    step();
    ASSERT_TRUE(content.has_value());
    EXPECT_EQ(content->entries.size(), kTracks);
    // Taken apart here it would be nearly all of it.
    EXPECT_LT(longest, (last - begin) / 2);
    RecordProperty("ms", static_cast<int>((last - begin) / std::chrono::milliseconds(1)));
    RecordProperty("longest", static_cast<int>(longest / std::chrono::milliseconds(1)));
}

TEST_F(ForeignListTest, theTextTellsTheFormWhereTheNameIsWrong) {
    const std::string path =
        folder.write("x.m3u", "[playlist]\nNumberOfEntries=1\nFile1=/a\nTitle1=A\n");
    ASSERT_TRUE(files.readList(path).has_value());
    EXPECT_EQ(files.readList(path)->entries.size(), 4U) << "every line an entry";
    comfort.opensMoreLists = true;
    ASSERT_EQ(files.readList(path)->entries.size(), 1U);
    EXPECT_EQ(files.readList(path)->entries.front().fileName, "/a");
}

} // namespace
} // namespace tovik::playlist
