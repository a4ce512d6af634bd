// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/FollowedRows.h"

#include "playlist/Lists.h"
#include "playlist/ListUndo.h"

#include <gmock/gmock.h>

#include <random>

namespace tovik::playlist {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FollowedRowsTest : public testing::Test {
protected:
    FollowedRowsTest() {
        comfort.keepsRemovedRows = true;
        list.obey(comfort);
        fill(list, {"a", "b", "c"});
    }

    base::Comfort comfort;
    stdSS list;
    ListUndo undo{list};
};

TEST_F(FollowedRowsTest, rowsBehindThemChangeNothing) {
    const FollowedRows followed(list);
    fill(list, {"x", "y"});
    list.Remove(5);
    EXPECT_THAT(followed.rows(), ElementsAre(1, 2, 3));
}

TEST_F(FollowedRowsTest, theyGoWhereTheListTakesThem) {
    const FollowedRows followed(list);
    fill(list, {"x", "y"});
    list.Remove(2);
    EXPECT_THAT(followed.rows(), ElementsAre(1, 2));
    list.MoveRow(1, 4); // "a" behind "x"
    EXPECT_THAT(followed.rows(), ElementsAre(1, 3));
    list.MoveRow(4, 1); // "y" to the top
    EXPECT_THAT(followed.rows(), ElementsAre(2, 4));
    undo.undo();
    EXPECT_THAT(followed.rows(), ElementsAre(1, 3));
    list.Clear();
    EXPECT_THAT(followed.rows(), IsEmpty());
    fill(list, {"n"});
    EXPECT_THAT(followed.rows(), IsEmpty());
}

TEST_F(FollowedRowsTest, anyOrderOfChanges) {
    fill(list, {"d", "e", "f"}); // those from the start have one letter
    const FollowedRows followed(list);
    std::mt19937 random(7); // NOLINT(cert-msc51-cpp): the same each time
    for (int change = 0; change < 300; ++change) {
        const Row row = std::uniform_int_distribution<Row>(1, list.ListCount())(random);
        const Row other = std::uniform_int_distribution<Row>(1, list.ListCount() + 1)(random);
        if (random() % 20 == 0 && list.ListCount() > 4) {
            list.Remove(row);
        } else if (random() % 3 == 0) {
            fill(list, {"new"});
        } else {
            list.MoveRow(row, other);
        }
        std::vector<Row> expected;
        for (Row each = 1; each <= list.ListCount(); ++each) {
            if (list.text(each, RowText::Title).size() == 1) {
                expected.push_back(each);
            }
        }
        ASSERT_EQ(followed.rows(), expected) << change;
    }
}

} // namespace
} // namespace tovik::playlist
