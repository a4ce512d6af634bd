// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/ShuffleOrder.h"

#include "host/SeededRandom.h"
#include "playlist/ListUndo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <numeric>
#include <set>

namespace tovik::player {
namespace {

using playlist::Row;
using testing::ElementsAre;
using testing::UnorderedElementsAreArray;

class ShuffleOrderTest : public testing::Test {
protected:
    void fill(int rows) {
        for (int row = 0; row < rows; ++row) {
            list_.AddItem("", "file", "title", "", 1);
        }
    }

    std::vector<Row> takeRound(bool repeats = true) {
        std::vector<Row> rows;
        for (Row i = 0; i < list_.ListCount(); ++i) {
            rows.push_back(order_.next(repeats).value_or(0));
        }
        return rows;
    }

    static std::vector<Row> all(int rows) {
        std::vector<Row> numbers(static_cast<std::size_t>(rows));
        std::iota(numbers.begin(), numbers.end(), 1);
        return numbers;
    }

    playlist::stdSS list_;
    host::SeededRandom random_{7};
    ShuffleOrder order_{list_, random_};
};

TEST_F(ShuffleOrderTest, everyRowComesOnceARound) {
    fill(50);
    std::vector<Row> before;
    for (int round = 0; round < 20; ++round) {
        const std::vector<Row> rows = takeRound();
        EXPECT_THAT(rows, UnorderedElementsAreArray(all(50)));
        EXPECT_NE(rows, before) << "another order each time";
        if (!before.empty()) {
            EXPECT_NE(rows.front(), before.back()) << "not twice in a row";
        }
        before = rows;
    }
}

TEST_F(ShuffleOrderTest, withoutRepeatOneRoundIsAll) {
    fill(3);
    EXPECT_TRUE(order_.hasNext(false));
    takeRound(false);
    EXPECT_FALSE(order_.hasNext(false));
    EXPECT_FALSE(order_.next(false).has_value());
    EXPECT_TRUE(order_.hasNext(true));
}

TEST_F(ShuffleOrderTest, anEmptyListHasNothingAndASingleRowComesAgain) {
    EXPECT_FALSE(order_.next(true).has_value());
    fill(1);
    EXPECT_EQ(order_.next(true), 1);
    EXPECT_EQ(order_.next(true), 1);
}

TEST_F(ShuffleOrderTest, theWayBackIsTheWayThatWasGone) {
    fill(5);
    const std::vector<Row> rows = takeRound();
    for (std::size_t i = rows.size() - 1; i > 0; --i) {
        EXPECT_EQ(order_.previous(), rows[i - 1]);
    }
    EXPECT_FALSE(order_.previous().has_value());
    for (std::size_t i = 1; i < rows.size(); ++i) {
        EXPECT_EQ(order_.next(true), rows[i]) << "and forward again";
    }
}

TEST_F(ShuffleOrderTest, aRowThatWasStartedByHandHasHadItsTurn) {
    fill(4);
    order_.noteStarted(3);
    std::vector<Row> rows{3};
    for (int i = 0; i < 3; ++i) {
        rows.push_back(order_.next(false).value_or(0));
    }
    EXPECT_THAT(rows, UnorderedElementsAreArray(all(4)));
    EXPECT_FALSE(order_.hasNext(false));
    order_.noteStarted(2);
    EXPECT_TRUE(order_.hasNext(false)) << "a new round";
}

TEST_F(ShuffleOrderTest, whatComesNextIsKnownBefore) {
    fill(6);
    for (int i = 0; i < 30; ++i) {
        const auto upcoming = order_.upcoming(true);
        ASSERT_TRUE(upcoming.has_value());
        EXPECT_EQ(order_.upcoming(true), upcoming);
        if (i % 2 == 0) {
            EXPECT_EQ(order_.next(true), upcoming);
        } else {
            order_.noteStarted(*upcoming); // it followed by itself
        }
        const std::string text = order_.text();
        EXPECT_EQ(order_.upcoming(true).has_value(), true);
        EXPECT_EQ(order_.text(), text) << "looking changes nothing";
    }
    const auto here = order_.previous();
    const auto forward = order_.upcoming(true);
    order_.noteStarted(forward.value_or(0));
    EXPECT_EQ(order_.previous(), here);
}

TEST_F(ShuffleOrderTest, whatTheOrderStartedItselfIsNotedOnce) {
    fill(3);
    const Row first = order_.next(false).value_or(0);
    order_.noteStarted(first);
    EXPECT_FALSE(order_.previous().has_value());
}

TEST_F(ShuffleOrderTest, rowsKeepTheirPlacesWhenOthersComeGoAndMove) {
    fill(6);
    for (const Row row : {2, 5, 3}) {
        order_.noteStarted(row);
    }
    list_.MoveRow(5, 1); // 5 is 1, 2 is 3, 3 is 4
    EXPECT_EQ(order_.previous(), 1);
    EXPECT_EQ(order_.previous(), 3);
    list_.Remove(1); // 3 is 2, 4 is 3
    EXPECT_EQ(order_.next(true), 3);
    const std::vector<Row> rest = {order_.next(false).value_or(0), order_.next(false).value_or(0),
                                   order_.next(false).value_or(0)};
    EXPECT_THAT(rest, UnorderedElementsAreArray({1, 4, 5}));
    list_.AddItem("", "new", "new", "", 1);
    EXPECT_EQ(order_.next(false), 6);
}

TEST_F(ShuffleOrderTest, theOrderSurvivesASession) {
    fill(20);
    std::vector<Row> rows;
    for (int i = 0; i < 8; ++i) {
        rows.push_back(order_.next(true).value_or(0));
    }
    order_.previous();
    ShuffleOrder next(list_, random_);
    next.restore(order_.text());
    EXPECT_EQ(next.next(true), rows[7]);
    for (std::size_t i = 7; i > 0; --i) {
        EXPECT_EQ(next.previous(), rows[i - 1]);
    }
    for (std::size_t i = 1; i < 8; ++i) {
        EXPECT_EQ(next.next(true), rows[i]);
    }
    for (int i = 0; i < 12; ++i) {
        rows.push_back(next.next(true).value_or(0));
    }
    EXPECT_THAT(rows, UnorderedElementsAreArray(all(20))) << "the round goes on";
}

TEST_F(ShuffleOrderTest, aTextThatDoesNotFitIsLeft) {
    fill(3);
    for (const char* const text :
         {"", "x", "4 1 2 - 2", "3 2 1 - 1", "3 1 4 - 4", "3 1 0 -", "3 1 1 - x", "3 -1 1 - 1"}) {
        order_.restore(text);
        EXPECT_EQ(order_.text(), "3 0 -") << text;
    }
    order_.restore("3 1 2 - 2");
    EXPECT_EQ(order_.text(), "3 1 2 - 2");
    list_.Clear();
    EXPECT_EQ(order_.text(), "0 0 -");
}

TEST_F(ShuffleOrderTest, rowsThatWentAndCameBackHaveTheirTurnAndTheOthersKeepTheirs) {
    base::Comfort comfort;
    comfort.keepsRemovedRows = true;
    list_.obey(comfort);
    playlist::ListUndo undo(list_);
    fill(6);
    for (const Row row : {5, 1, 4, 3}) {
        order_.noteStarted(row);
    }
    list_.SelectIndex(1);
    list_.ModifierMask = 2;
    list_.MS(4);
    list_.MultiIzbris(); // 2, 3, 5 and 6 are left, of which 3 and 5 were played
    EXPECT_EQ(order_.previous(), 3);
    undo.undo();
    EXPECT_EQ(order_.next(false), 3); // forward again on the way, which is 5, 3
    std::set<Row> left;
    while (const auto row = order_.next(false)) {
        left.insert(*row);
    }
    EXPECT_EQ(left, (std::set<Row>{1, 2, 4, 6}));
}

} // namespace
} // namespace tovik::player
