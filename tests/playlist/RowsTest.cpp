// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of a list: adding, reading, refreshing, clearing.
#include "playlist/Lists.h"

#include <gmock/gmock.h>

#include <limits>

namespace tovik::playlist {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

class RowsTest : public testing::Test {
protected:
    void expectOut(const char* itemData, const char* fileName, const char* title,
                   const char* timeText, std::int32_t seconds) const {
        EXPECT_EQ(list.OutItemData, itemData);
        EXPECT_EQ(list.OutFileName, fileName);
        EXPECT_EQ(list.OutTitle, title);
        EXPECT_EQ(list.OutTimeText, timeText);
        EXPECT_EQ(list.OutSeconds, seconds);
    }

    stdSS list;
    NotedEvents events{list};
};

TEST_F(RowsTest, aNewListHasNothing) {
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.TotalSeconds(), 0);
    EXPECT_EQ(list.SelectedIndex, 0);
    EXPECT_FALSE(list.SilentMove);
    EXPECT_FALSE(list.MultiActive());
    expectOut("", "", "", "", 0);
}

TEST_F(RowsTest, addingAppendsAndSumsUp) {
    list.AddItem("data", "/a.mp3", "A", "03:35", 215);
    list.AddItem("", "http://x/", "", "00:00", 0);
    list.AddItem("", "/a.mp3", "A", "03:35", 215); // duplicates are no concern
    EXPECT_EQ(list.ListCount(), 3);
    EXPECT_EQ(list.TotalSeconds(), 430);
    EXPECT_THAT(events.taken(), ElementsAre("Total 215", "Total 215", "Total 430"));
    list.GetData(1);
    expectOut("data", "/a.mp3", "A", "03:35", 215);
    list.GetData(2);
    expectOut("", "http://x/", "", "00:00", 0);
}

TEST_F(RowsTest, addingLeavesSelectionAndPlayedMark) {
    fill(list, {"a", "b"});
    list.SelectIndex(2);
    list.Play(1);
    fill(list, {"c"});
    EXPECT_EQ(list.SelectedIndex, 2);
    EXPECT_EQ(playedRow(list), 1);
    EXPECT_THAT(markedRows(list), ElementsAre(2));
}

TEST_F(RowsTest, aRowOfTheListItselfCanBeAdded) {
    fill(list, {"a title that is too long for any short text"});
    for (int n = 0; n < 10; ++n) {
        list.AddItem("", list.text(1, RowText::FileName), list.text(1, RowText::Title), "", 0);
    }
    EXPECT_EQ(list.text(11, RowText::Title), "a title that is too long for any short text");
}

TEST_F(RowsTest, dataOfNoRowIsEmpty) {
    list.AddItem("data", "/a.mp3", "A", "03:35", 215);
    for (const Row row : {0, -1, std::numeric_limits<Row>::min()}) {
        list.GetData(1);
        list.GetData(row);
        expectOut("", "", "", "", 0);
    }
}

TEST_F(RowsTest, dataPastTheEndLeavesWhatWasThere) {
    list.AddItem("data", "/a.mp3", "A", "03:35", 215);
    list.GetData(1);
    list.GetData(2);
    expectOut("data", "/a.mp3", "A", "03:35", 215);
    list.GetData(std::numeric_limits<Row>::max());
    expectOut("data", "/a.mp3", "A", "03:35", 215);
}

TEST_F(RowsTest, clearingResetsAllButNotTheTimeText) {
    list.AddItem("data", "/a.mp3", "A", "03:35", 215);
    list.GetData(1);
    list.SelectIndex(1);
    list.Play(1);
    static_cast<void>(events.taken());
    list.Clear();
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.TotalSeconds(), 0);
    EXPECT_EQ(list.SelectedIndex, 0);
    expectOut("", "", "", "0", 0);
    EXPECT_THAT(events.taken(), ElementsAre("Total 0"));
    list.GetData(0);
    expectOut("", "", "", "", 0);
    fill(list, {"new"});
    EXPECT_EQ(playedRow(list), 0);
    EXPECT_THAT(markedRows(list), IsEmpty());
}

TEST_F(RowsTest, refreshingATimeMovesTheSumByTheDifference) {
    fill(list, {"a", "b"}); // 1 s and 2 s
    static_cast<void>(events.taken());
    list.RefreshTime(1, 100, "01:40");
    EXPECT_EQ(list.TotalSeconds(), 102);
    EXPECT_EQ(list.text(1, RowText::TimeText), "01:40");
    EXPECT_EQ(list.seconds(1), 100);
    list.RefreshTime(1, 0, "");
    EXPECT_EQ(list.TotalSeconds(), 2);
    EXPECT_THAT(events.taken(), ElementsAre("Total 102", "Total 2"));
}

TEST_F(RowsTest, theSameTimeLeavesTheOldText) {
    list.AddItem("", "", "", "old", 5);
    static_cast<void>(events.taken());
    list.RefreshTime(1, 5, "new");
    EXPECT_EQ(list.text(1, RowText::TimeText), "old");
    EXPECT_THAT(events.taken(), IsEmpty());
}

TEST_F(RowsTest, aSumThatDoesNotFitStays) {
    list.AddItem("", "", "", "", kMost);
    list.AddItem("", "", "", "", 1);
    EXPECT_EQ(list.TotalSeconds(), kMost);
    list.RefreshTime(2, -5, "");
    EXPECT_EQ(list.TotalSeconds(), kMost - 6);
}

TEST_F(RowsTest, titlesAndFileNamesAreReplacedAlone) {
    list.AddItem("data", "/a.mp3", "A", "03:35", 215);
    list.RefreshTitle(1, "B");
    list.GetData(1);
    expectOut("data", "/a.mp3", "B", "03:35", 215);
    list.AddFileName2(1, "/b.mp3");
    list.GetData(1);
    expectOut("data", "/b.mp3", "B", "03:35", 215);
}

TEST_F(RowsTest, rowsThatAreNotThereChangeNothing) {
    fill(list, {"a"});
    static_cast<void>(events.taken());
    for (const Row row : {-1, 0, 2, std::numeric_limits<Row>::max()}) {
        list.RefreshTitle(row, "x");
        list.RefreshTime(row, 9, "x");
        list.AddFileName2(row, "x");
        EXPECT_EQ(list.numberText(row), "");
        EXPECT_EQ(list.text(row, RowText::Title), "");
        EXPECT_FALSE(list.isMarked(row));
        EXPECT_FALSE(list.isPlayed(row));
    }
    EXPECT_THAT(titlesOf(list), ElementsAre("a"));
    EXPECT_EQ(list.TotalSeconds(), 1);
    EXPECT_THAT(events.taken(), IsEmpty());
}

TEST_F(RowsTest, numbersBelongToThePlace) {
    fill(list, {"a", "b", "c"});
    list.Remove(1);
    EXPECT_EQ(list.numberText(1), "1. ");
    EXPECT_EQ(list.numberText(2), "2. ");
    EXPECT_EQ(list.numberText(3), "");
    EXPECT_EQ(list.text(1, RowText::Title), "b");
}

TEST_F(RowsTest, halfAMillionRows) {
    for (int n = 0; n < 500'000; ++n) {
        list.AddItem("", "/music", "title", "00:01", 1);
    }
    EXPECT_EQ(list.ListCount(), 500'000);
    EXPECT_EQ(list.TotalSeconds(), 500'000);
    EXPECT_EQ(list.numberText(500'000), "500000. ");
    list.SelectIndex(400'000);
    list.Play(500'000);
    list.Remove(40'000);
    EXPECT_EQ(list.ListCount(), 499'999);
    EXPECT_TRUE(list.isPlayed(499'999));
}

} // namespace
} // namespace tovik::playlist
