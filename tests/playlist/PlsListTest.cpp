// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/PlsList.h"

#include "playlist/Lists.h"
#include "playlist/PlsFormat.h"

#include <gmock/gmock.h>

#include <functional>

namespace tovik::playlist {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class PlsPump final : public host::MessagePump {
public:
    int steps = 0;
    std::function<bool()> inStep;

    [[nodiscard]] bool Step() override {
        ++steps;
        return !inStep || inStep();
    }
};

class PlsListTest : public testing::Test {
protected:
    ReadEnd read(std::string_view text) { return appendPls(text, list, pump); }

    /// The rows of a list with this text alone.
    [[nodiscard]] static std::vector<std::string> rowsIn(std::string_view text) {
        stdSS rows;
        PlsPump pump;
        EXPECT_EQ(appendPls(text, rows, pump), ReadEnd::Complete);
        return rowsOf(rows);
    }

    PlsPump pump;
    stdSS list;
};

TEST_F(PlsListTest, aListOfTheUsualForm) {
    EXPECT_THAT(rowsIn("[playlist]\r\nNumberOfEntries=2\r\nFile1=/a.mp3\r\nTitle1=A = B\r\n"
                       "Length1=215\r\nFile2=http://x/y?z=1\r\nTitle2=S\r\nLength2=-1\r\n"
                       "Version=2\r\n"),
                ElementsAre("|/a.mp3|A = B|03:35|215", "|http://x/y?z=1|S|00:00|-1"));
}

TEST_F(PlsListTest, keysAreFoundWhereverTheyStand) {
    EXPECT_THAT(rowsIn("length2=2\nFILE2=/b\n[other]\nFile1=/no\n[PlayList]\nTITLE2=B\n"
                       "file2=/b\nFile1=/a\nTitle1=A\nLength1=1\nnumberofentries=2\nfile1=/later\n"
                       "[playlist]\nFile2=/second\n"),
                ElementsAre("|/a|A|00:01|1", "|/b|B|00:01|1"));
}

TEST_F(PlsListTest, theNumberOfEntriesCounts) {
    const std::string three = "[playlist]\nFile1=/a\nFile2=/b\nFile3=/c\n";
    EXPECT_THAT(rowsIn(three + "NumberOfEntries=2\n"), ElementsAre("|/a||00:00|0", "|/b||00:00|0"));
    EXPECT_EQ(rowsIn(three + "NumberOfEntries=4\n").back(), "|||00:00|0");
    for (const char* number :
         {"", "NumberOfEntries=0\n", "NumberOfEntries=-3\n", "NumberOfEntries=x\n",
          "NumberOfEntries=\n", "NumberOfEntries=99999999999\n"}) {
        EXPECT_THAT(rowsIn(three + number), IsEmpty()) << number;
    }
    EXPECT_EQ(rowsIn(three + "NumberOfEntries= 1 \n").size(), 1U);
    EXPECT_THAT(rowsIn(""), IsEmpty());
    EXPECT_THAT(rowsIn("File1=/a\nNumberOfEntries=1\n"), IsEmpty()); // in no section
}

TEST_F(PlsListTest, moreThanSixteenBitsOfEntries) {
    std::string text = "[playlist]\nNumberOfEntries=40000\n";
    for (int n = 1; n <= 40000; ++n) {
        text += "File" + std::to_string(n) + "=/" + std::to_string(n) + "\n";
    }
    EXPECT_EQ(read(text), ReadEnd::Complete);
    EXPECT_EQ(list.ListCount(), 40000);
    EXPECT_EQ(list.text(40000, RowText::FileName), "/40000");
}

TEST_F(PlsListTest, aNumberWithNothingBehindItDoesNotFillTheMemory) {
    EXPECT_EQ(rowsIn("[playlist]\nNumberOfEntries=2147483647\nFile1=/a\n").size(), 32767U);
    EXPECT_EQ(rowsIn("[playlist]\nNumberOfEntries=2147483647\nFile33000=/a\n").size(), 33000U);
}

TEST_F(PlsListTest, whatIsMissing) {
    EXPECT_THAT(rowsIn("[playlist]\nNumberOfEntries=4\nFile1=/a\nTitle1=A\nLength1=7\n"
                       "File2=/b\nTitle3=C\nLength3=x\nFile4=/d\nLength4=2147483648\n"),
                ElementsAre("|/a|A|00:07|7", "|/b||00:07|7", "||C|00:07|7", "|/d||00:07|7"));
}

TEST_F(PlsListTest, keysCountAsTheyAreWritten) {
    EXPECT_THAT(rowsIn("[playlist]\nNumberOfEntries=1\nFile01=/no\nFile1x=/no\nFile=/no\n"
                       "File 1=/no\n;File1=/no\nFile+1=/no\nFile1\n File1 = /a\nFile1=/b\n"),
                ElementsAre("|/a||00:00|0"));
}

TEST_F(PlsListTest, aValueIsTakenWhole) {
    EXPECT_THAT(rowsIn("[playlist]\nNumberOfEntries=1\nFile1=/a  \nTitle1= \"Heroes\"\n"),
                ElementsAre("|/a  | \"Heroes\"|00:00|0"));
    const std::string name(64 * 1024, 'x');
    EXPECT_THAT(rowsIn("[playlist]\nNumberOfEntries=1\nFile1=/" + name + "\nTitle1=A\0B"s),
                ElementsAre("|/" + name + "|A\0B|00:00|0"s));
}

TEST_F(PlsListTest, whatOtherPlayersWrite) {
    // Line ends of three kinds, bytes of Windows-1252 and of UTF-8, names that are relative or of
    // another system, addresses, and nothing behind the last line.
    EXPECT_THAT(rowsIn("[playlist]\rFile1=B\xFChne\\\xE4.mp3\rTitle1=\x8Al\xE4ger\rLength1=10\r\n"
                       "File2=../up/a.mp3\nTitle2=\xC5\xBD"
                       "elja\nLength2=20\n\nFile3=http://h:80/s?a=1,2#x\r\n"
                       "Title3=\r\nLength3=-1\nNumberOfEntries=3\rVersion=2"),
                ElementsAre("|B\xFChne\\\xE4.mp3|\x8Al\xE4ger|00:10|10",
                            "|../up/a.mp3|\xC5\xBD"
                            "elja|00:20|20",
                            "|http://h:80/s?a=1,2#x||00:00|-1"));
}

TEST_F(PlsListTest, itGivesWayOnceAndAtEachEntry) {
    EXPECT_EQ(read("[playlist]\nNumberOfEntries=2\nFile1=/a\nFile2=/b\n"), ReadEnd::Complete);
    EXPECT_EQ(pump.steps, 3);
    pump.inStep = [this] { return pump.steps < 5; };
    EXPECT_EQ(read("[playlist]\nNumberOfEntries=2\nFile1=/a\nFile2=/b\n"), ReadEnd::ProgramEnding);
    EXPECT_EQ(list.ListCount(), 2);
}

TEST_F(PlsListTest, theListMayChangeMeanwhile) {
    pump.inStep = [this] {
        switch (pump.steps) {
        case 3:
            list.Clear();
            break;
        case 4:
            list.Remove(1);
            list.AddItem("", "/dropped", "dropped", "00:00", 0);
            break;
        default:
            break;
        }
        return true;
    };
    EXPECT_EQ(read("[playlist]\nNumberOfEntries=4\nFile1=/a\nFile2=/b\nFile3=/c\nFile4=/d\n"),
              ReadEnd::Complete);
    EXPECT_THAT(rowsOf(list),
                ElementsAre("|/dropped|dropped|00:00|0", "|/c||00:00|0", "|/d||00:00|0"));
}

TEST_F(PlsListTest, theFormThatIsWritten) {
    EXPECT_EQ(plsText(list), "[playlist]\r\nNumberOfEntries=0\r\nVersion=2\r\n");
    list.AddItem("data", "/a.mp3", "A", "9:99", 215);
    list.AddItem("", "/b\nc", "B\r\nC", "", -1);
    EXPECT_EQ(plsText(list), "[playlist]\r\nFile1=/a.mp3\r\nTitle1=A\r\nLength1=215\r\n"
                             "File2=/b c\r\nTitle2=B  C\r\nLength2=-1\r\n"
                             "NumberOfEntries=2\r\nVersion=2\r\n");
}

TEST_F(PlsListTest, whatIsWrittenComesBack) {
    list.AddItem("", "/ a \xFF=.mp3 ", " [playlist] ", "03:35", 215);
    list.AddItem("", "", "'q'", "00:00", 0);
    EXPECT_EQ(rowsIn(plsText(list)), rowsOf(list));
}

} // namespace
} // namespace tovik::playlist
