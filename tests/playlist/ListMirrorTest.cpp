// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/ListMirror.h"

#include "playlist/Lists.h"

#include <gtest/gtest.h>

#include <limits>

namespace tovik::playlist {
namespace {

class ListMirrorTest : public testing::Test {
protected:
    stdSS list;
    ListMirror List1{list};
};

TEST_F(ListMirrorTest, itemsAreTheRowsCountedFromZero) {
    EXPECT_EQ(List1.ListCount(), 0);
    fill(list, {"a", "b"});
    EXPECT_EQ(List1.ListCount(), 2);
    EXPECT_EQ(List1.List(0), "a");
    EXPECT_EQ(List1.List(1), "b");
    list.RefreshTitle(2, "x");
    EXPECT_EQ(List1.List(1), "x");
    EXPECT_EQ(List1.List(2), "");
    EXPECT_EQ(List1.List(-1), "");
    EXPECT_EQ(List1.List(std::numeric_limits<std::int32_t>::max()), "");
}

TEST_F(ListMirrorTest, itsSelectionIsItsOwn) {
    fill(list, {"a", "b", "c"});
    EXPECT_EQ(List1.ListIndex(), -1);
    List1.ListIndex(2);
    list.SelectIndex(1);
    EXPECT_EQ(List1.ListIndex(), 2);
    EXPECT_EQ(list.SelectedIndex, 1);
}

TEST_F(ListMirrorTest, anItemThatIsNotThereSelectsNone) {
    fill(list, {"a", "b"});
    for (const std::int32_t item : {2, 9, -1, -7}) {
        List1.ListIndex(1);
        List1.ListIndex(item);
        EXPECT_EQ(List1.ListIndex(), -1);
    }
}

TEST_F(ListMirrorTest, theSelectionStaysWithItsEntry) {
    fill(list, {"a", "b", "c", "d", "e"});
    List1.ListIndex(3);
    list.Remove(5);
    EXPECT_EQ(List1.ListIndex(), 3);
    list.Remove(1);
    EXPECT_EQ(List1.ListIndex(), 2);
    EXPECT_EQ(List1.List(2), "d");
    toggle(list, {1, 2});
    list.MultiIzbris();
    EXPECT_EQ(List1.ListIndex(), 0);
    EXPECT_EQ(List1.List(0), "d");
    list.Remove(1);
    EXPECT_EQ(List1.ListIndex(), -1);
}

TEST_F(ListMirrorTest, theSelectionGoesWithItsEntryWhenRowsAreMoved) {
    for (Row own = 1; own <= 5; ++own) {
        for (Row from = 1; from <= 5; ++from) {
            for (Row before = 1; before <= 6; ++before) {
                list.Clear();
                fill(list, {"a", "b", "c", "d", "e"});
                List1.ListIndex(own - 1);
                const std::string entry(List1.List(own - 1));
                list.MoveRow(from, before);
                EXPECT_EQ(List1.List(List1.ListIndex()), entry) << from << " before " << before;
            }
        }
    }
    List1.ListIndex(ListMirror::kNone);
    list.MoveRow(1, 5);
    EXPECT_EQ(List1.ListIndex(), -1);
}

TEST_F(ListMirrorTest, whoWatchesHearsOfItemsThatLookDifferent) {
    fill(list, {"a", "b", "c"});
    std::vector<std::int32_t> heard;
    List1.watchSelection([&](std::int32_t item) { heard.push_back(item); });
    List1.ListIndex(1);
    List1.ListIndex(1);
    List1.ListIndex(2);
    List1.ListIndex(77);
    EXPECT_EQ(heard, (std::vector<std::int32_t>{1, 1, 2, 2}));
}

TEST_F(ListMirrorTest, noneStaysNone) {
    fill(list, {"a", "b"});
    list.Remove(1);
    EXPECT_EQ(List1.ListIndex(), -1);
    List1.ListIndex(0);
    list.Clear();
    EXPECT_EQ(List1.ListIndex(), -1);
}

TEST(ListMirror, leavesItsListInPeace) {
    stdSS list;
    {
        const ListMirror mirror(list);
        fill(list, {"a"});
    }
    list.Remove(1);
    EXPECT_EQ(list.ListCount(), 0);
}

} // namespace
} // namespace tovik::playlist
