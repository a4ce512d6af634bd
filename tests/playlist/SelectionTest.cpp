// SPDX-License-Identifier: GPL-3.0-or-later
// Selected, marked and played rows.
#include "playlist/Lists.h"

#include <gmock/gmock.h>

namespace tovik::playlist {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SelectionTest : public testing::Test {
protected:
    SelectionTest() {
        list.AddItem("data a", "/a", "a", "", 0);
        list.AddItem("data b", "/b", "b", "", 0);
        fill(list, {"c", "d", "e"});
        static_cast<void>(events.taken());
    }

    void shift(Row row) {
        list.ModifierMask = stdSS::kShiftMask;
        list.MS(row);
        list.ModifierMask = 0;
    }

    stdSS list;
    NotedEvents events{list};
};

TEST_F(SelectionTest, oneRowIsSelected) {
    list.SelectIndex(2);
    EXPECT_EQ(list.SelectedIndex, 2);
    EXPECT_THAT(markedRows(list), ElementsAre(2));
    list.SelectIndex(4);
    EXPECT_EQ(list.SelectedIndex, 4);
    EXPECT_THAT(markedRows(list), ElementsAre(4));
    EXPECT_THAT(events.taken(), IsEmpty());
}

TEST_F(SelectionTest, rowZeroSelectsNone) {
    list.SelectIndex(2);
    list.SelectIndex(0);
    EXPECT_EQ(list.SelectedIndex, 0);
    EXPECT_THAT(markedRows(list), IsEmpty());
}

TEST_F(SelectionTest, aRowPastTheEndIsTakenButMarksNothing) {
    list.SelectIndex(2);
    list.SelectIndex(9);
    EXPECT_EQ(list.SelectedIndex, 9);
    EXPECT_THAT(markedRows(list), IsEmpty());
}

TEST_F(SelectionTest, thePositionMovesByHandWithoutMarks) {
    list.SelectIndex(2);
    list.SelectedIndex = 4;
    EXPECT_THAT(markedRows(list), ElementsAre(2));
    list.SelectIndex(4); // selected already: nothing at all happens
    EXPECT_THAT(markedRows(list), ElementsAre(2));
    list.SelectIndex(5);
    EXPECT_THAT(markedRows(list), ElementsAre(5));
}

TEST_F(SelectionTest, togglingMarksOneRow) {
    list.SelectIndex(2);
    toggle(list, {4});
    EXPECT_TRUE(list.MultiActive());
    EXPECT_THAT(markedRows(list), ElementsAre(2, 4));
    toggle(list, {4, 2});
    EXPECT_THAT(markedRows(list), IsEmpty());
    EXPECT_EQ(list.SelectedIndex, 2);
}

TEST_F(SelectionTest, shiftMarksARangeEitherWayAndNothingElse) {
    list.SelectIndex(3);
    shift(5);
    EXPECT_THAT(markedRows(list), ElementsAre(3, 4, 5));
    shift(1);
    EXPECT_THAT(markedRows(list), ElementsAre(1, 2, 3));
    EXPECT_TRUE(list.MultiActive());
    EXPECT_EQ(list.SelectedIndex, 3);
}

TEST_F(SelectionTest, shiftWithoutASelectionBeginsAtTheTop) {
    shift(2);
    EXPECT_THAT(markedRows(list), ElementsAre(1, 2));
}

TEST_F(SelectionTest, shiftStartsFromTheLastSelectedRowNotFromThePosition) {
    list.SelectIndex(4);
    list.SelectedIndex = 1;
    shift(5);
    EXPECT_THAT(markedRows(list), ElementsAre(4, 5));
}

TEST_F(SelectionTest, anotherMaskThanShiftToggles) {
    list.SelectIndex(1);
    list.ModifierMask = 3; // Shift and Ctrl
    list.MS(4);
    EXPECT_THAT(markedRows(list), ElementsAre(1, 4));
}

TEST_F(SelectionTest, endingAMultipleSelectionKeepsTheSelectedRow) {
    list.SelectIndex(2);
    toggle(list, {1, 4, 5});
    list.NoMS();
    EXPECT_FALSE(list.MultiActive());
    EXPECT_THAT(markedRows(list), ElementsAre(2));
    toggle(list, {2, 3}); // the selected row itself is no longer marked
    list.NoMS();
    EXPECT_THAT(markedRows(list), IsEmpty());
}

TEST_F(SelectionTest, onlyAnotherRowEndsAMultipleSelection) {
    list.SelectIndex(2);
    toggle(list, {1, 4});
    list.SelectIndex(2);
    EXPECT_TRUE(list.MultiActive());
    EXPECT_THAT(markedRows(list), ElementsAre(1, 2, 4));
    list.SelectIndex(4);
    EXPECT_FALSE(list.MultiActive());
    EXPECT_THAT(markedRows(list), ElementsAre(4));
}

TEST_F(SelectionTest, markingARowThatIsNotThereMarksNothing) {
    toggle(list, {0, -3, 9});
    EXPECT_TRUE(list.MultiActive());
    EXPECT_THAT(markedRows(list), IsEmpty());
}

TEST_F(SelectionTest, playingMarksTheRowAndTellsTheOwner) {
    list.Play(2);
    EXPECT_EQ(playedRow(list), 2);
    EXPECT_THAT(events.taken(), ElementsAre("Play data b"));
    EXPECT_EQ(list.SelectedIndex, 0);
}

TEST_F(SelectionTest, playingThePlayedRowTellsSo) {
    list.Play(2);
    static_cast<void>(events.taken());
    list.Play(2);
    EXPECT_THAT(events.taken(), ElementsAre("PlayedAgain"));
}

TEST_F(SelectionTest, aSilentMoveRaisesNothing) {
    list.SilentMove = true;
    list.Play(2);
    EXPECT_EQ(playedRow(list), 2);
    list.Play(2);
    EXPECT_TRUE(list.SilentMove);
    EXPECT_THAT(events.taken(), IsEmpty());
}

TEST_F(SelectionTest, theLookIsOfTheRowThatSoundsAndNoDoubleClickIsLost) {
    list.StartRow(2);
    list.showSounding(4); // the next tracks came by themselves
    EXPECT_EQ(playedRow(list), 4);
    static_cast<void>(events.taken());
    list.StartRow(4);
    EXPECT_THAT(events.taken(), ElementsAre("Play ")) << "not taken for a row played again";
    EXPECT_EQ(playedRow(list), 4);
    list.StartRow(1);
    EXPECT_EQ(playedRow(list), 4) << "until it is told that it sounds";
    list.showSounding(0);
    EXPECT_EQ(playedRow(list), 0);
}

TEST_F(SelectionTest, theLookGoesWithTheEntryThatSounds) {
    list.StartRow(1);
    list.showSounding(4);
    list.Remove(2);
    EXPECT_EQ(playedRow(list), 3);
    list.SilentMove = true;
    list.Play(4); // the entry compared with moved, another one sounds
    list.SilentMove = false;
    EXPECT_EQ(playedRow(list), 3);
    list.Remove(3);
    EXPECT_EQ(playedRow(list), 0);
    list.showSounding(1);
    list.Clear();
    fill(list, {"a", "b"});
    EXPECT_EQ(playedRow(list), 0);
}

TEST_F(SelectionTest, anEntryThatSoundsIsMovedWithItsLook) {
    list.StartRow(2);
    list.showSounding(2);
    list.SilentMove = true;
    list.Play(5);
    EXPECT_EQ(playedRow(list), 5);
}

TEST_F(SelectionTest, aRowThatSoundsIsToldToObservers) {
    struct Looks final : ListObserver {
        std::vector<Row> rows;

        void looksChanged(Row first, Row last) override {
            for (; first <= last; ++first) {
                rows.push_back(first);
            }
        }
    } looks;

    list.addObserver(looks);
    list.showSounding(2);
    list.showSounding(4);
    list.showSounding(4);
    list.removeObserver(looks);
    EXPECT_THAT(looks.rows, ElementsAre(2, 2, 4));
}

TEST_F(SelectionTest, noRowIsNotPlayed) {
    list.Play(2);
    static_cast<void>(events.taken());
    list.Play(0);
    list.Play(-1);
    list.Play(9);
    EXPECT_THAT(events.taken(), IsEmpty());
}

TEST_F(SelectionTest, onlyTheFirstRestartReachesThePlayer) {
    list.StartRow(1);
    EXPECT_THAT(events.taken(), ElementsAre("Play data a"));
    list.StartRow(1);
    EXPECT_THAT(events.taken(), ElementsAre("Play data a"));
    list.StartRow(1);
    EXPECT_THAT(events.taken(), ElementsAre("PlayedAgain"));
    list.StartRow(2);
    list.StartRow(2);
    EXPECT_THAT(events.taken(), ElementsAre("Play data b", "PlayedAgain"));
    list.Clear();
    list.AddItem("new", "", "", "", 0);
    static_cast<void>(events.taken());
    list.StartRow(1);
    list.StartRow(1);
    EXPECT_THAT(events.taken(), ElementsAre("Play new", "PlayedAgain"));
}

TEST_F(SelectionTest, anOwnerMayChangeTheListWhenItIsToldToPlay) {
    struct Clearing final : ListEvents {
        stdSS* list = nullptr;
        std::string heard;

        void Play(const std::string& ItemData) override {
            list->Clear();
            heard = ItemData;
        }
    } owner;

    owner.list = &list;
    list.setEvents(&owner);
    list.Play(1);
    list.setEvents(nullptr);
    EXPECT_EQ(owner.heard, "data a");
    EXPECT_EQ(list.ListCount(), 0);
}

TEST_F(SelectionTest, withoutAnOwnerNothingBreaks) {
    list.setEvents(nullptr);
    list.Play(1);
    list.Play(1);
    list.StartRow(1);
    list.Remove(1);
    list.Clear();
    EXPECT_EQ(list.ListCount(), 0);
}

TEST_F(SelectionTest, withItsSwitchEachDoubleClickStartsTheRow) {
    base::Comfort comfort;
    list.obey(comfort);
    list.StartRow(2);
    list.StartRow(2);
    static_cast<void>(events.taken());
    list.StartRow(2);
    EXPECT_THAT(events.taken(), ElementsAre("PlayedAgain"));
    stdSS kind;
    NotedEvents heard{kind};
    fill(kind, {"a", "b"});
    static_cast<void>(heard.taken());
    comfort.restartsEachTime = true;
    kind.obey(comfort);
    for (int click = 0; click < 4; ++click) {
        kind.StartRow(2);
        EXPECT_THAT(heard.taken(), testing::SizeIs(1));
        EXPECT_THAT(heard.taken(), IsEmpty());
    }
}

} // namespace
} // namespace tovik::playlist
