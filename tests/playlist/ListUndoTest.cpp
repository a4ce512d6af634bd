// SPDX-License-Identifier: GPL-3.0-or-later
// Taking back what was done to a list, and which row is selected behind a removal.
#include "playlist/ListUndo.h"

#include "playlist/ListMirror.h"
#include "playlist/Lists.h"

#include <gmock/gmock.h>

#include <array>
#include <new>
#include <random>

namespace tovik::playlist {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ListUndoTest : public testing::Test {
protected:
    ListUndoTest() {
        comfort.keepsRemovedRows = true;
        list.obey(comfort);
        fill(list, {"a", "b", "c", "d", "e"}); // 1 to 5 s, 15 in all
        undo.forget();
    }

    base::Comfort comfort;
    stdSS list;
    ListMirror mirror{list};
    ListUndo undo{list};
};

TEST_F(ListUndoTest, aRemovedRowComesBackAsItWas) {
    const auto before = rowsOf(list);
    list.SelectIndex(2);
    list.Remove(2);
    ASSERT_TRUE(undo.canUndo());
    undo.undo();
    EXPECT_EQ(rowsOf(list), before);
    EXPECT_EQ(list.TotalSeconds(), 15);
    EXPECT_EQ(list.SelectedIndex, 2);
    EXPECT_THAT(markedRows(list), ElementsAre(2));
    EXPECT_FALSE(undo.canUndo());
    undo.undo(); // nothing is left
    EXPECT_EQ(rowsOf(list), before);
}

TEST_F(ListUndoTest, markedRowsComeBackToTheirPlaces) {
    list.SelectIndex(4);
    toggle(list, {1, 3});
    mirror.ListIndex(4);
    NotedChanges changes(list);
    list.MultiIzbris();
    EXPECT_THAT(titlesOf(list), ElementsAre("b", "e"));
    static_cast<void>(changes.taken());
    undo.undo();
    EXPECT_THAT(titlesOf(list), ElementsAre("a", "b", "c", "d", "e"));
    EXPECT_THAT(markedRows(list), ElementsAre(4));
    EXPECT_EQ(mirror.List(mirror.ListIndex()), "e");
    EXPECT_THAT(changes.taken(),
                ElementsAre("inserted 1 1", "inserted 3 1", "inserted 4 1", "looks 4 4", "show 4"));
}

TEST_F(ListUndoTest, aClearedListComesBackWithWhatPlays) {
    list.SelectIndex(3);
    list.showSounding(4);
    list.Clear();
    undo.undo();
    EXPECT_THAT(titlesOf(list), ElementsAre("a", "b", "c", "d", "e"));
    EXPECT_EQ(list.SelectedIndex, 3);
    EXPECT_EQ(playedRow(list), 4);
    EXPECT_EQ(list.TotalSeconds(), 15);
}

TEST_F(ListUndoTest, whatWasStartedSinceKeepsTheLook) {
    list.showSounding(4);
    list.Remove(4);
    list.showSounding(1);
    undo.undo();
    EXPECT_EQ(playedRow(list), 1);
}

TEST_F(ListUndoTest, aRowBehindThePlayedOneMakesRoom) {
    list.showSounding(4);
    list.Remove(2);
    EXPECT_EQ(playedRow(list), 3);
    undo.undo();
    EXPECT_EQ(playedRow(list), 4);
}

TEST_F(ListUndoTest, severalStepsGoBackOneByOne) {
    list.Remove(1);
    list.Clear();
    fill(list, {"x", "y"}); // both at once: nobody did anything in between
    list.MoveRow(2, 1);
    EXPECT_THAT(titlesOf(list), ElementsAre("y", "x"));
    undo.undo();
    EXPECT_THAT(titlesOf(list), ElementsAre("x", "y"));
    undo.undo();
    EXPECT_THAT(titlesOf(list), IsEmpty());
    undo.undo();
    EXPECT_THAT(titlesOf(list), ElementsAre("b", "c", "d", "e"));
    undo.undo();
    EXPECT_THAT(titlesOf(list), ElementsAre("a", "b", "c", "d", "e"));
    EXPECT_FALSE(undo.canUndo());
}

TEST_F(ListUndoTest, whatBelongsTogetherIsOneStep) {
    {
        const ListUndo::Step step(list);
        list.Clear();
        fill(list, {"x"});
        {
            const ListUndo::Step command(list); // in the middle of a long read
            list.Remove(1);
        }
        fill(list, {"y", "z"});
    }
    undo.undo();
    EXPECT_THAT(titlesOf(list), IsEmpty()); // "y" and "z" are gone
    undo.undo();
    EXPECT_THAT(titlesOf(list), ElementsAre("x"));
    undo.undo();
    EXPECT_THAT(titlesOf(list), ElementsAre("a", "b", "c", "d", "e"));
    EXPECT_FALSE(undo.canUndo());
}

TEST_F(ListUndoTest, aMoveDownGoesBack) {
    list.MoveRow(2, 5);
    EXPECT_THAT(titlesOf(list), ElementsAre("a", "c", "d", "b", "e"));
    undo.undo();
    EXPECT_THAT(titlesOf(list), ElementsAre("a", "b", "c", "d", "e"));
}

TEST_F(ListUndoTest, withoutTheSwitchNothingIsKept) {
    list.Remove(1);
    comfort.keepsRemovedRows = false;
    list.Remove(1); // unseen: what is known of places before is out of date
    EXPECT_FALSE(undo.canUndo());
    comfort.keepsRemovedRows = true;
    EXPECT_FALSE(undo.canUndo());
    list.Remove(1);
    undo.undo();
    EXPECT_THAT(titlesOf(list), ElementsAre("c", "d", "e"));
}

TEST_F(ListUndoTest, memoryIsBounded) {
    for (std::size_t n = 0; n < ListUndo::kMostSteps + 20; ++n) {
        list.Remove(1);
        fill(list, {"x"});
    }
    std::size_t steps = 0;
    for (; undo.canUndo(); ++steps) {
        undo.undo();
    }
    EXPECT_EQ(steps, ListUndo::kMostSteps);
    EXPECT_EQ(list.ListCount(), 5);
}

TEST_F(ListUndoTest, soIsTheNumberOfRowsButForTheLastStep) {
    constexpr Row kRows = 300'000;
    const auto fillWith = [this](const char* title) {
        list.Clear();
        for (Row row = 0; row < kRows; ++row) {
            list.AddItem("", "", title, "", 0);
        }
    };
    fillWith("first");
    fillWith("second");
    list.Clear();
    undo.undo();
    EXPECT_EQ(list.text(1, RowText::Title), "second");
    undo.undo(); // the rows that came
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_FALSE(undo.canUndo()); // those of the first are too many beside the second
}

TEST_F(ListUndoTest, theFirstRowsGoToTheEnd) {
    list.SelectIndex(1);
    list.showSounding(2);
    list.moveToEnd(std::array{1, 2});
    EXPECT_THAT(titlesOf(list), ElementsAre("c", "d", "e", "a", "b"));
    EXPECT_EQ(list.SelectedIndex, 4);
    EXPECT_EQ(playedRow(list), 5);
    EXPECT_EQ(list.TotalSeconds(), 15);
    list.moveToEnd(std::array{4, 5});
    list.moveToEnd({});
    EXPECT_THAT(titlesOf(list), ElementsAre("c", "d", "e", "a", "b"));
    list.moveToEnd(std::array{1, 4});
    EXPECT_THAT(titlesOf(list), ElementsAre("d", "e", "b", "c", "a"));
    EXPECT_EQ(list.SelectedIndex, 5);
    EXPECT_EQ(playedRow(list), 3);
}

TEST_F(ListUndoTest, itGoesOnBehindAStepThatBrokeOff) {
    struct Fails final : ListObserver {
        bool fails = true;

        void rowsInserted(Row /*first*/, Row /*count*/) override {
            if (fails) {
                throw std::bad_alloc();
            }
        }
    } observer;

    list.Remove(5);
    list.Remove(2);
    list.addObserver(observer);
    EXPECT_THROW(undo.undo(), std::bad_alloc);
    EXPECT_FALSE(undo.canUndo()) << "nobody knows what came back";
    observer.fails = false;
    const auto before = titlesOf(list);
    list.Remove(1);
    EXPECT_TRUE(undo.canUndo());
    undo.undo();
    EXPECT_EQ(titlesOf(list), before);
    EXPECT_FALSE(undo.canUndo());
    list.removeObserver(observer);
}

TEST_F(ListUndoTest, whatDoesNotFitIsLeft) {
    RemovedRows removed;
    removed.places = {9};
    removed.records.resize(1);
    list.putBack(std::move(removed));
    EXPECT_EQ(list.ListCount(), 5);
}

TEST_F(ListUndoTest, anyOrderOfChangesGoesBack) {
    std::mt19937 random(11); // NOLINT(cert-msc51-cpp): the same each time
    for (int round = 0; round < 200; ++round) {
        std::vector<std::vector<std::string>> states;
        undo.forget();
        for (int change = 0; change < 12; ++change) {
            states.push_back(titlesOf(list));
            const ListUndo::Step step(list);
            const auto anyRow = [&] {
                return std::uniform_int_distribution<Row>(1, list.ListCount() + 1)(random);
            };
            const Row row = anyRow();
            switch (random() % 5) {
            case 0:
                fill(list, {"n" + std::to_string(random() % 100), "m"});
                break;
            case 1:
                list.Remove(row);
                break;
            case 2:
                list.MoveRow(row, anyRow());
                break;
            case 3:
                toggle(list, {row, row + 2});
                list.MultiIzbris();
                break;
            default:
                if (random() % 4 == 0) {
                    list.Clear();
                }
            }
            if (titlesOf(list) == states.back()) {
                states.pop_back(); // nothing happened, or nothing to be seen
                undo.forget();
                states.clear();
            }
        }
        for (; !states.empty() && undo.canUndo(); states.pop_back()) {
            undo.undo();
            ASSERT_EQ(titlesOf(list), states.back()) << round;
        }
        ASSERT_TRUE(states.empty()) << round;
    }
}

class NeighbourTest : public ListUndoTest {
protected:
    NeighbourTest() { comfort.selectsNeighbour = true; }
};

TEST_F(NeighbourTest, theRowAtThePlaceIsSelected) {
    list.SelectIndex(2);
    list.Remove(2);
    EXPECT_EQ(list.SelectedIndex, 2);
    EXPECT_THAT(markedRows(list), ElementsAre(2));
    list.Remove(list.SelectedIndex); // a second press of Delete
    EXPECT_THAT(titlesOf(list), ElementsAre("a", "d", "e"));
}

TEST_F(NeighbourTest, atTheEndItIsTheLastOne) {
    list.SelectIndex(5);
    list.Remove(5);
    EXPECT_EQ(list.SelectedIndex, 4);
    while (list.ListCount() > 0) {
        list.Remove(list.SelectedIndex);
    }
    EXPECT_EQ(list.SelectedIndex, 0);
}

TEST_F(NeighbourTest, behindManyItIsWhatFollowsTheSelectedOne) {
    list.SelectIndex(4);
    toggle(list, {1, 2});
    list.MultiIzbris();
    EXPECT_THAT(titlesOf(list), ElementsAre("c", "e"));
    EXPECT_EQ(list.SelectedIndex, 2);
    EXPECT_THAT(markedRows(list), ElementsAre(2));
    EXPECT_FALSE(list.MultiActive());
}

TEST_F(NeighbourTest, aRowThatStaysStaysSelected) {
    list.SelectIndex(4);
    list.Remove(1);
    EXPECT_EQ(list.SelectedIndex, 3);
    EXPECT_THAT(markedRows(list), ElementsAre(3));
    undo.undo();
    EXPECT_EQ(list.text(list.SelectedIndex, RowText::Title), "d");
}

TEST_F(NeighbourTest, withNothingSelectedNothingIs) {
    list.Remove(1);
    EXPECT_EQ(list.SelectedIndex, 0);
}

} // namespace
} // namespace tovik::playlist
