// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/frmJump2File.h"
#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

using player::frmJump2File;
using testing::ElementsAre;
using testing::IsEmpty;
using Check = frmJump2File::Check;
using Move = frmJump2File::Move;

class Jump2File : public PlayerRig, protected player::Jump2FileView {
protected:
    Jump2File() {
        set("ASOT", "0");
        set("EM", "0");
        set("MC", "0");
    }

    void open() { dialog_.Form_Load(*this); }

    /// Rows with these titles; row n is the file "n".
    void addTitles(const std::vector<std::string>& titles) {
        for (const std::string& title : titles) {
            const std::string name = std::to_string(list_.ListCount() + 1);
            list_.AddItem("", track(name, {.seconds = 65}), title, "00:00", 0);
        }
    }

    [[nodiscard]] std::vector<std::string> hits() const {
        std::vector<std::string> titles;
        for (std::size_t hit = 0; hit < dialog_.List1().size(); ++hit) {
            titles.emplace_back(dialog_.title(hit));
        }
        return titles;
    }

    void showText(const std::string& text) override {
        told_.push_back("text " + text);
        dialog_.SearchString_Change(text);
    }

    void showHits() override { told_.emplace_back("hits"); }

    void showSelected() override { told_.emplace_back("selected"); }

    void showCount() override { told_.emplace_back("count"); }

    void hide() override { told_.emplace_back("hide"); }

    void unload() override {
        told_.emplace_back("unload");
        dialog_.Form_Unload();
    }

    [[nodiscard]] bool wasTold(const std::string& what) const {
        return std::ranges::find(told_, what) != told_.end();
    }

    frmJump2File dialog_{core_, transport_, crossfade_};
    std::vector<std::string> told_;
};

TEST_F(Jump2File, opensWithEveryTitle) {
    addTitles({"one", "two"});
    open();
    EXPECT_THAT(hits(), ElementsAre("one", "two"));
    EXPECT_EQ(dialog_.ListIndex(), 0);
    EXPECT_FALSE(dialog_.staysOnTop());
    EXPECT_EQ(dialog_.Label1("Titles found: [x]"), "Titles found: 2");
}

TEST_F(Jump2File, aTextThatWasTypedElsewhereIsLookedFor) {
    addTitles({"one", "two"});
    dialog_.SearchString("tw");
    EXPECT_THAT(told_, IsEmpty());
    open();
    dialog_.SearchString("tw");
    EXPECT_THAT(hits(), ElementsAre("two"));
}

TEST_F(Jump2File, eachChangeOfTheTextSelectsTheFirstHit) {
    addTitles({"one", "two", "Two more"});
    open();
    dialog_.SearchString_Change("tw");
    EXPECT_THAT(hits(), ElementsAre("two", "Two more"));
    EXPECT_EQ(dialog_.ListIndex(), 0);
    dialog_.SearchString_KeyDown(Move::down);
    dialog_.SearchString_Change("two");
    EXPECT_EQ(dialog_.ListIndex(), 0);
    dialog_.SearchString_Change("none");
    EXPECT_THAT(hits(), IsEmpty());
    EXPECT_EQ(dialog_.ListIndex(), frmJump2File::kNone);
}

TEST_F(Jump2File, forExactMatchesTheCaseBoxMeansTheOpposite) {
    addTitles({"Song", "song", "a Song", "a song"});
    open();
    dialog_.SearchString_Change("Song");
    EXPECT_THAT(hits(), ElementsAre("Song", "song", "a Song", "a song"));
    dialog_.Check1_Click(Check::matchCase, true);
    EXPECT_THAT(hits(), ElementsAre("Song", "a Song"));
    dialog_.Check1_Click(Check::exactMatch, true);
    EXPECT_THAT(hits(), ElementsAre("Song", "song"));
    dialog_.Check1_Click(Check::matchCase, false);
    EXPECT_THAT(hits(), ElementsAre("Song"));
}

TEST_F(Jump2File, theBoxesAreRememberedWhenItCloses) {
    set("EM", "1");
    set("ASOT", "2");
    open();
    EXPECT_TRUE(dialog_.Check1(Check::exactMatch));
    EXPECT_FALSE(dialog_.Check1(Check::matchCase));
    EXPECT_TRUE(dialog_.staysOnTop());
    dialog_.Check1_Click(Check::exactMatch, false);
    dialog_.Check1_Click(Check::matchCase, true);
    EXPECT_EQ(settings_.getSetting("MC"), "0");
    dialog_.Form_Unload();
    EXPECT_EQ(settings_.getSetting("EM"), "0");
    EXPECT_EQ(settings_.getSetting("MC"), "1");
    EXPECT_FALSE(dialog_.isOpen());
}

class Moves : public Jump2File {
protected:
    void startWith(int rows) {
        addTitles(std::vector<std::string>(static_cast<std::size_t>(rows), "t"));
        open();
    }

    [[nodiscard]] std::int32_t after(Move move) {
        dialog_.SearchString_KeyDown(move);
        return dialog_.ListIndex();
    }
};

TEST_F(Moves, downGoesOnAndFromTheLastToTheFirst) {
    startWith(3);
    EXPECT_EQ(after(Move::down), 1);
    EXPECT_EQ(after(Move::down), 2);
    told_.clear();
    EXPECT_EQ(after(Move::down), 0);
    EXPECT_THAT(told_, ElementsAre("selected"));
}

TEST_F(Moves, upGoesBackAndFromTheFirstToTheLast) {
    startWith(3);
    EXPECT_EQ(after(Move::up), 2);
    EXPECT_EQ(after(Move::up), 1);
}

TEST_F(Moves, aPageIsSeventeenAndStopsAtTheEnds) {
    startWith(40);
    EXPECT_EQ(after(Move::pageDown), 17);
    EXPECT_EQ(after(Move::pageDown), 34);
    EXPECT_EQ(after(Move::pageDown), 39);
    EXPECT_EQ(after(Move::pageDown), 39);
    EXPECT_EQ(after(Move::pageUp), 22);
    EXPECT_EQ(after(Move::pageUp), 5);
    EXPECT_EQ(after(Move::pageUp), 0);
    EXPECT_EQ(after(Move::pageUp), 0);
}

TEST_F(Moves, withoutAHitThereIsNoneToMoveTo) {
    startWith(0);
    for (const Move move : {Move::down, Move::up, Move::pageDown, Move::pageUp}) {
        EXPECT_EQ(after(move), frmJump2File::kNone);
    }
}

TEST_F(Jump2File, enterPlaysTheHitAndMakesItsRowTheCurrentOne) {
    addTitles({"one", "two", "three"});
    open();
    dialog_.SearchString_Change("two");
    told_.clear();
    dialog_.SearchString_Enter();
    EXPECT_EQ(offered(), "2");
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_EQ(list_.SelectedIndex, 2);
    EXPECT_EQ(playing_.caption, "two");
    EXPECT_EQ(playing_.scrollerText, "two");
    EXPECT_EQ(view_.last.caption, "two");
    EXPECT_FALSE(crossfade_.runs());
    EXPECT_THAT(told_, ElementsAre("hide"));
}

TEST_F(Jump2File, itClosesATenthOfASecondLater) {
    addTitles({"one"});
    open();
    dialog_.SearchString_Enter();
    advance(90);
    EXPECT_FALSE(wasTold("unload"));
    advance(10);
    EXPECT_TRUE(wasTold("unload"));
    told_.clear();
    advance(1000);
    EXPECT_THAT(told_, IsEmpty());
}

TEST_F(Jump2File, unlessItIsOpenedAgainBefore) {
    addTitles({"one"});
    open();
    dialog_.SearchString_Enter();
    advance(50);
    open();
    advance(500);
    EXPECT_FALSE(wasTold("unload"));
    EXPECT_TRUE(dialog_.isOpen());
}

TEST_F(Jump2File, enterWithCrossfadeLetsTheOldTrackFade) {
    addTitles({"one", "two"});
    set("CFDT", "3");
    open();
    dialog_.SearchString_Change("one");
    dialog_.SearchString_Enter();
    state_.CrossfadeOn = true;
    open();
    dialog_.SearchString_Change("two");
    dialog_.SearchString_Enter();
    EXPECT_TRUE(crossfade_.runs());
    EXPECT_EQ(CrossFade_->interval(), 3000);
    EXPECT_EQ(offered(), "2");
}

TEST_F(Jump2File, enterWithoutAHitDoesNothing) {
    addTitles({"one"});
    open();
    dialog_.SearchString_Change("none");
    told_.clear();
    dialog_.SearchString_Enter();
    advance(200);
    EXPECT_FALSE(wasTold("hide"));
    EXPECT_FALSE(state_.IsPlaying);
}

TEST_F(Jump2File, ofRowsWithTheSameFileTheFirstBecomesTheCurrentOne) {
    addTitles({"one", "two", "three"});
    list_.AddFileName2(3, list_.text(1, playlist::RowText::FileName));
    open();
    dialog_.SearchString_Change("three");
    dialog_.SearchString_Enter();
    EXPECT_EQ(offered(), "1");
    EXPECT_EQ(list_.SelectedIndex, 1);
    EXPECT_EQ(playing_.caption, "one");
}

TEST_F(Jump2File, theMouseChoosesAHit) {
    addTitles({"one", "two"});
    open();
    dialog_.ListIndex(1);
    EXPECT_EQ(dialog_.ListIndex(), 1);
    dialog_.ListIndex(2);
    dialog_.ListIndex(-1);
    EXPECT_EQ(dialog_.ListIndex(), 1);
    dialog_.SearchString_Enter();
    EXPECT_EQ(offered(), "2");
}

TEST_F(Jump2File, theHitsFollowTheListFourTimesASecond) {
    addTitles({"one", "two"});
    open();
    dialog_.SearchString_Change("o");
    dialog_.SearchString_KeyDown(Move::down);
    list_.AddItem("", "/more", "more", "", 0);
    list_.Remove(1);
    told_.clear();
    advance(250);
    EXPECT_THAT(hits(), ElementsAre("two", "more"));
    EXPECT_EQ(dialog_.ListIndex(), 0); // it stays on "two"
    EXPECT_THAT(told_, ElementsAre("hits", "count"));
    told_.clear();
    advance(250);
    EXPECT_THAT(told_, ElementsAre("count"));
}

TEST_F(Jump2File, whatWasChosenIsPlayedAlsoWhenItsRowMovedOrWent) {
    addTitles({"one", "two", "three"});
    open();
    dialog_.SearchString_KeyDown(Move::down);
    list_.Remove(1);
    dialog_.SearchString_Enter();
    EXPECT_EQ(offered(), "2");
    EXPECT_EQ(list_.SelectedIndex, 1);
    open();
    dialog_.SearchString_Change("three");
    list_.Clear();
    dialog_.SearchString_Enter();
    EXPECT_EQ(offered(), "3");
    EXPECT_EQ(list_.SelectedIndex, 0);
}

TEST_F(Jump2File, withItsSwitchTheCaseMeansTheSameInBothModes) {
    state_.comfort.keepsMeaningOfCase = true;
    addTitles({"Song", "song", "a song"});
    open();
    dialog_.SearchString_Change("song");
    dialog_.Check1_Click(Check::exactMatch, true);
    EXPECT_THAT(hits(), ElementsAre("Song", "song"));
    dialog_.Check1_Click(Check::matchCase, true);
    EXPECT_THAT(hits(), ElementsAre("song"));
}

TEST_F(Jump2File, withItsSwitchWordsComeInAnyOrder) {
    state_.comfort.findsWordsInAnyOrder = true;
    addTitles({"Help - The Beatles", "Caf\u00E9"});
    open();
    dialog_.SearchString_Change("beatles help");
    EXPECT_THAT(hits(), ElementsAre("Help - The Beatles"));
    dialog_.SearchString_Change("cafe");
    EXPECT_THAT(hits(), ElementsAre("Caf\u00E9"));
}

TEST_F(Jump2File, withItsSwitchTheChosenRowOfAFileIsPlayed) {
    const std::string file = track("same", {.seconds = 65});
    for (int row = 0; row < 3; ++row) {
        list_.AddItem("", file, "same", "00:00", 0);
    }
    for (const bool kind : {false, true}) {
        state_.comfort.keepsRowOfHit = kind;
        open();
        dialog_.SearchString_KeyDown(Move::down);
        dialog_.SearchString_KeyDown(Move::down);
        dialog_.SearchString_Enter();
        EXPECT_EQ(list_.SelectedIndex, kind ? 3 : 1);
        dialog_.Form_Unload();
    }
}

} // namespace
} // namespace tovik::test
