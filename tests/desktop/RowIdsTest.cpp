// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/RowIds.h"

#include "playlist/ListUndo.h"

#include <gmock/gmock.h>

namespace tovik::desktop {
namespace {

TEST(RowIds, rowsThatComeBackAreNewAndTheOthersKeepTheirs) {
    base::Comfort comfort;
    comfort.keepsRemovedRows = true;
    playlist::stdSS list;
    list.obey(comfort);
    playlist::ListUndo undo(list);
    for (const char* const title : {"a", "b", "c", "d", "e"}) {
        list.AddItem("", title, title, "", 0);
    }
    RowIds ids(list); // 1 to 5
    list.SelectIndex(1);
    list.ModifierMask = 2;
    list.MS(3);
    list.MS(4);
    list.MultiIzbris();
    EXPECT_EQ(ids.idOf(1), 2U);
    EXPECT_EQ(ids.idOf(2), 5U);
    int told = 0;
    ids.changed = [&told] { ++told; };
    undo.undo();
    EXPECT_GE(told, 1);
    EXPECT_EQ(ids.idOf(1), 6U);
    EXPECT_EQ(ids.idOf(2), 2U);
    EXPECT_EQ(ids.idOf(3), 7U);
    EXPECT_EQ(ids.idOf(4), 8U);
    EXPECT_EQ(ids.idOf(5), 5U);
    EXPECT_EQ(ids.idOf(6), 0U);
}

} // namespace
} // namespace tovik::desktop
