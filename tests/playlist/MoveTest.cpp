// SPDX-License-Identifier: GPL-3.0-or-later
// A row that is taken to another place.
#include "playlist/Lists.h"

#include <gmock/gmock.h>

namespace tovik::playlist {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MoveTest : public testing::Test {
protected:
    MoveTest() {
        fill(list, {"a", "b", "c", "d", "e"});
        static_cast<void>(events.taken());
    }

    stdSS list;
    NotedEvents events{list};
};

TEST_F(MoveTest, upwardsTheRowsBetweenMakeRoom) {
    list.MoveRow(4, 2);
    EXPECT_THAT(titlesOf(list), ElementsAre("a", "d", "b", "c", "e"));
    EXPECT_EQ(list.SelectedIndex, 2);
    EXPECT_THAT(markedRows(list), ElementsAre(2));
}

TEST_F(MoveTest, downwardsItComesInFrontOfTheRowUnderThePointer) {
    list.MoveRow(2, 5);
    EXPECT_THAT(titlesOf(list), ElementsAre("a", "c", "d", "b", "e"));
    EXPECT_EQ(list.SelectedIndex, 4);
    list.MoveRow(1, 6);
    EXPECT_THAT(titlesOf(list), ElementsAre("c", "d", "b", "e", "a"));
}

TEST_F(MoveTest, allFieldsGoWithTheRowAndTheNumbersStay) {
    list.Clear();
    list.AddItem("data", "/file", "title", "00:07", 7);
    fill(list, {"x", "y"});
    const std::int32_t total = list.TotalSeconds();
    list.MoveRow(1, 4);
    list.GetData(3);
    EXPECT_EQ(list.OutItemData, "data");
    EXPECT_EQ(list.OutFileName, "/file");
    EXPECT_EQ(list.OutTitle, "title");
    EXPECT_EQ(list.OutTimeText, "00:07");
    EXPECT_EQ(list.OutSeconds, 7);
    EXPECT_EQ(list.numberText(3), "3. ");
    EXPECT_EQ(list.TotalSeconds(), total);
}

TEST_F(MoveTest, ontoItselfOrInFrontOfTheNextNothingHappens) {
    list.SelectIndex(1);
    list.Play(3);
    static_cast<void>(events.taken());
    for (const Row before : {3, 4}) {
        list.MoveRow(3, before);
    }
    EXPECT_THAT(titlesOf(list), ElementsAre("a", "b", "c", "d", "e"));
    EXPECT_EQ(list.SelectedIndex, 1);
    EXPECT_THAT(events.taken(), IsEmpty());
}

TEST_F(MoveTest, thePlayedRowTakesItsLookAlongAndIsNotStartedAnew) {
    list.Play(4);
    static_cast<void>(events.taken());
    list.MoveRow(4, 1);
    EXPECT_EQ(playedRow(list), 1);
    list.MoveRow(1, 6);
    EXPECT_EQ(playedRow(list), 5);
    EXPECT_THAT(events.taken(), IsEmpty());
    EXPECT_FALSE(list.SilentMove);
    list.Play(5);
    EXPECT_THAT(events.taken(), ElementsAre("PlayedAgain")) << "it is the row that was started";
}

TEST_F(MoveTest, thePlayedRowJustAboveOneThatGoesUpKeepsItsLook) {
    list.Play(3);
    list.MoveRow(4, 1);
    EXPECT_EQ(playedRow(list), 4);
    EXPECT_EQ(list.text(4, RowText::Title), "c");
}

TEST_F(MoveTest, theLookStaysAtItsNumberWhenOtherRowsMakeRoom) {
    list.Play(2);
    list.MoveRow(4, 1);
    EXPECT_EQ(playedRow(list), 2);
    EXPECT_EQ(list.text(2, RowText::Title), "a");
    list.Play(4);
    list.MoveRow(3, 6);
    EXPECT_EQ(playedRow(list), 4);
    list.MoveRow(1, 3);
    EXPECT_EQ(playedRow(list), 4) << "outside of what moved";
}

TEST_F(MoveTest, theLookOfTheRowThatSoundsGoesByTheSameRules) {
    list.Play(1);
    list.showSounding(3);
    list.MoveRow(3, 6);
    EXPECT_EQ(playedRow(list), 5);
    list.MoveRow(5, 2);
    EXPECT_EQ(playedRow(list), 2);
    list.MoveRow(3, 1);
    EXPECT_EQ(playedRow(list), 3);
    list.MoveRow(1, 6);
    EXPECT_EQ(playedRow(list), 3);
}

TEST_F(MoveTest, aMultipleSelectionCollapsesToTheMovedRow) {
    list.SelectIndex(2);
    toggle(list, {4, 5});
    list.MoveRow(2, 5);
    EXPECT_THAT(markedRows(list), ElementsAre(4));
    EXPECT_FALSE(list.MultiActive());
    EXPECT_EQ(list.SelectedIndex, 4);
    list.MoveRow(4, 1);
    EXPECT_THAT(markedRows(list), ElementsAre(1));
}

TEST_F(MoveTest, marksThatTheSelectionDoesNotTakeAwayStayAtTheirPlaces) {
    toggle(list, {2, 5});
    list.SelectedIndex = 3; // moved unseen: selecting row 3 changes nothing
    list.MoveRow(1, 4);
    EXPECT_THAT(titlesOf(list), ElementsAre("b", "c", "a", "d", "e"));
    EXPECT_THAT(markedRows(list), ElementsAre(2, 5));
}

TEST_F(MoveTest, aClickThatAsksAboutTheListIsToldToItsOwner) {
    class Asked final : public ListEvents {
    public:
        int times = 0;

        void ContextClick() override { ++times; }
    } asked;

    stdSS other;
    other.ContextClick();
    other.setEvents(&asked);
    other.ContextClick();
    EXPECT_EQ(asked.times, 1);
}

TEST_F(MoveTest, withItsSwitchThePlayedLookGoesWithEveryEntry) {
    base::Comfort comfort{.keepsLookOnEntry = true};
    list.obey(comfort);
    for (Row sounding = 1; sounding <= 5; ++sounding) {
        for (Row from = 1; from <= 5; ++from) {
            for (Row before = 1; before <= 6; ++before) {
                list.showSounding(sounding);
                const std::string title(list.text(sounding, RowText::Title));
                list.MoveRow(from, before);
                EXPECT_EQ(list.text(list.SoundingRow(), RowText::Title), title)
                    << sounding << " " << from << " " << before;
            }
        }
    }
}

} // namespace
} // namespace tovik::playlist
