// SPDX-License-Identifier: GPL-3.0-or-later
// What those who show a list are told.
#include "playlist/Lists.h"

#include <gmock/gmock.h>

namespace tovik::playlist {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ListChangesTest : public testing::Test {
protected:
    ListChangesTest() {
        fill(list, {"a", "b", "c", "d", "e"});
        static_cast<void>(changes.taken());
    }

    stdSS list;
    NotedChanges changes{list};
};

TEST_F(ListChangesTest, rowsComeAndGo) {
    fill(list, {"f"});
    EXPECT_THAT(changes.taken(), ElementsAre("inserted 6 1"));
    list.Remove(2);
    EXPECT_THAT(changes.taken(), ElementsAre("removed 2"));
    list.Clear();
    EXPECT_THAT(changes.taken(), ElementsAre("cleared"));
}

TEST_F(ListChangesTest, manyRemovedRowsAreToldAtOnceByTheirOldNumbers) {
    list.SelectIndex(4);
    toggle(list, {1, 5});
    static_cast<void>(changes.taken());
    list.MultiIzbris();
    EXPECT_THAT(changes.taken(), ElementsAre("removed 1 4 5"));
}

TEST_F(ListChangesTest, aMovedRowIsToldByItsTwoNumbers) {
    list.MoveRow(4, 2);
    EXPECT_THAT(changes.taken(), ElementsAre("moved 4 2", "looks 2 4", "looks 2 2", "show 2"));
    list.MoveRow(2, 6);
    EXPECT_THAT(changes.taken(),
                ElementsAre("moved 2 5", "looks 2 5", "looks 2 2", "looks 5 5", "show 5"));
    list.MoveRow(3, 3);
    list.MoveRow(3, 4);
    list.MoveRow(0, 4);
    list.MoveRow(6, 1);
    list.MoveRow(3, 0);
    list.MoveRow(3, 7);
    EXPECT_THAT(changes.taken(), IsEmpty());
}

TEST_F(ListChangesTest, refreshedRows) {
    list.RefreshTitle(2, "x");
    list.RefreshTime(3, 9, "x");
    list.RefreshTime(3, 9, "y");
    list.AddFileName2(4, "x");
    EXPECT_THAT(changes.taken(), ElementsAre("changed 2", "changed 3", "changed 4"));
}

TEST_F(ListChangesTest, selectingTouchesTwoRowsAndShowsOne) {
    list.SelectIndex(2);
    EXPECT_THAT(changes.taken(), ElementsAre("looks 2 2", "show 2"));
    list.SelectIndex(5);
    EXPECT_THAT(changes.taken(), ElementsAre("looks 2 2", "looks 5 5", "show 5"));
    list.SelectIndex(5);
    EXPECT_THAT(changes.taken(), IsEmpty());
}

TEST_F(ListChangesTest, theSelectionCanBeMovedUnseen) {
    list.SelectedIndex = 3;
    EXPECT_THAT(changes.taken(), IsEmpty());
}

TEST_F(ListChangesTest, marksChangeNoMoreThanTheyMust) {
    list.SelectIndex(3);
    static_cast<void>(changes.taken());
    list.ModifierMask = stdSS::kShiftMask;
    list.MS(5);
    EXPECT_THAT(changes.taken(), ElementsAre("looks 4 5"));
    list.MS(5);
    EXPECT_THAT(changes.taken(), IsEmpty());
    list.NoMS();
    EXPECT_THAT(changes.taken(), ElementsAre("looks 4 5"));
    toggle(list, {1});
    EXPECT_THAT(changes.taken(), ElementsAre("looks 1 1"));
}

TEST_F(ListChangesTest, thePlayedMarkMovesAndAReplayIsShown) {
    list.Play(2);
    EXPECT_THAT(changes.taken(), ElementsAre("looks 2 2"));
    list.Play(4);
    EXPECT_THAT(changes.taken(), ElementsAre("looks 2 2", "looks 4 4"));
    list.Play(4);
    EXPECT_THAT(changes.taken(), ElementsAre("show 4"));
}

TEST_F(ListChangesTest, whoLeftIsToldNothing) {
    { const NotedChanges another(list); }
    fill(list, {"f"});
    EXPECT_THAT(changes.taken(), ElementsAre("inserted 6 1"));
}

} // namespace
} // namespace tovik::playlist
