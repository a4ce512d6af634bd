// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/Lists.h"

#include <gmock/gmock.h>

#include <random>

namespace tovik::playlist {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RemovalTest : public testing::Test {
protected:
    RemovalTest() {
        fill(list, {"a", "b", "c", "d", "e"}); // 1 to 5 s, 15 in all
        static_cast<void>(events.taken());
    }

    stdSS list;
    NotedEvents events{list};
};

TEST_F(RemovalTest, rowsBehindMoveUp) {
    list.Remove(2);
    EXPECT_THAT(titlesOf(list), ElementsAre("a", "c", "d", "e"));
    EXPECT_EQ(list.TotalSeconds(), 13);
    EXPECT_THAT(events.taken(), ElementsAre("Total 13"));
    list.GetData(2);
    EXPECT_EQ(list.OutFileName, "/c");
    EXPECT_EQ(list.OutSeconds, 3);
}

TEST_F(RemovalTest, nothingIsSelectedAfterwards) {
    list.SelectIndex(4);
    list.Remove(2);
    EXPECT_EQ(list.SelectedIndex, 0);
    EXPECT_THAT(markedRows(list), ElementsAre(3)); // the mark went with its entry
    list.Remove(list.SelectedIndex);               // a second press of Delete
    EXPECT_EQ(list.ListCount(), 4);
}

TEST_F(RemovalTest, removingBeforeThePlayedRowKeepsItsEntryAndIsSilent) {
    list.Play(3);
    static_cast<void>(events.taken());
    list.SilentMove = true;
    list.Remove(1);
    EXPECT_EQ(playedRow(list), 2);
    EXPECT_EQ(list.text(2, RowText::Title), "c");
    EXPECT_FALSE(list.SilentMove);
    EXPECT_THAT(events.taken(), ElementsAre("Total 14"));
}

TEST_F(RemovalTest, removingBehindThePlayedRowLeavesIt) {
    list.Play(3);
    list.Remove(4);
    EXPECT_EQ(playedRow(list), 3);
}

TEST_F(RemovalTest, removingThePlayedRowLeavesNoneButDoesNotStop) {
    list.Play(3);
    static_cast<void>(events.taken());
    list.Remove(3);
    EXPECT_EQ(playedRow(list), 0);
    EXPECT_THAT(events.taken(), ElementsAre("Total 12"));
}

TEST_F(RemovalTest, theLastRowToo) {
    for (int n = 0; n < 5; ++n) {
        list.Remove(1);
    }
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.TotalSeconds(), 0);
}

TEST_F(RemovalTest, rowsThatAreNotThereAreNotRemoved) {
    list.SelectIndex(2);
    static_cast<void>(events.taken());
    for (const Row row : {0, -1, 6}) {
        list.Remove(row);
    }
    EXPECT_EQ(list.ListCount(), 5);
    EXPECT_EQ(list.SelectedIndex, 2);
    EXPECT_THAT(events.taken(), IsEmpty());
}

TEST_F(RemovalTest, theSelectedRowGoesWithTheMarkedOnes) {
    list.SelectIndex(2);
    toggle(list, {4, 5, 2}); // the selected row itself is no longer marked
    list.Play(3);
    list.MultiIzbris();
    EXPECT_THAT(titlesOf(list), ElementsAre("a", "c"));
    EXPECT_EQ(playedRow(list), 2);
    EXPECT_EQ(list.TotalSeconds(), 4);
    EXPECT_EQ(list.SelectedIndex, 0);
    EXPECT_TRUE(list.MultiActive());
    list.MultiIzbris(); // nothing left to remove
    EXPECT_EQ(list.ListCount(), 2);
}

/// Removing one row after the other, as Delete on a multiple selection is told.
void removeOneByOne(stdSS& list) {
    list.Remove(list.SelectedIndex);
    for (auto marked = markedRows(list); !marked.empty(); marked = markedRows(list)) {
        list.SelectedIndex = marked.front();
        list.Remove(list.SelectedIndex);
    }
}

TEST(Removal, onePassEqualsOneByOne) {
    std::mt19937 random(7);
    const auto upTo = [&random](Row most) {
        return std::uniform_int_distribution<Row>(0, most)(random);
    };
    int removals = 0;
    for (int round = 0; round < 500; ++round) {
        stdSS one;
        stdSS other;
        const Row count = upTo(12);
        std::vector<Row> marks;
        for (Row n = 0; n < count; ++n) {
            fill(one, {std::string(1, static_cast<char>('a' + n))});
            fill(other, {std::string(1, static_cast<char>('a' + n))});
            if (upTo(2) == 0) {
                marks.push_back(n + 1);
            }
        }
        const Row selected = upTo(count + 1);
        const Row played = upTo(count + 1);
        for (stdSS* list : {&one, &other}) {
            list->SelectIndex(selected);
            list->Play(played);
            toggle(*list, marks);
        }
        one.MultiIzbris();
        removeOneByOne(other);
        ASSERT_EQ(titlesOf(one), titlesOf(other));
        ASSERT_EQ(playedRow(one), playedRow(other));
        ASSERT_EQ(one.TotalSeconds(), other.TotalSeconds());
        ASSERT_EQ(one.SelectedIndex, other.SelectedIndex);
        ASSERT_THAT(markedRows(one), IsEmpty());
        removals += count - one.ListCount();
        // The count of marks is right: selecting leaves one mark alone.
        toggle(one, {1, 2});
        one.SelectIndex(one.ListCount());
        ASSERT_EQ(markedRows(one).size(), one.ListCount() > 0 ? 1U : 0U);
    }
    EXPECT_GT(removals, 500);
}

} // namespace
} // namespace tovik::playlist
