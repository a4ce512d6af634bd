// SPDX-License-Identifier: GPL-3.0-or-later
// The nine lamps, their words, and what reaches the channels.
#include "window/BalanceBar.h"

#include "window/ViewRig.h"

namespace tovik::test {
namespace {

using player::ChannelSlot;
using testing::ElementsAre;
using testing::IsEmpty;
using window::MainElement;

class Balance : public ViewRig {
protected:
    Balance() {
        state_.PrimaryChannel = 11;
        state_.SecondaryChannel = 12;
        elements_.touch(MainElement::baron).picture = {1, 1};
        elements_.touch(MainElement::baroff).picture = {2, 1};
        elements_.touch(MainElement::balcnt).picture = {3, 1};
    }

    /// The lamps from left to right: "X" lit, "." dark, "c" the centre's own picture. A lamp whose
    /// picture and state differ is "?".
    [[nodiscard]] std::string lamps() const {
        std::string row;
        for (std::size_t i = 0; i < 9; ++i) {
            const ui::Element& lamp = elements_.get(MainElement::balbar, i);
            switch (lamp.picture.number) {
            case 1:
                row += lamp.checked ? 'X' : '?';
                break;
            case 2:
                row += lamp.checked ? '?' : '.';
                break;
            case 3:
                row += lamp.checked ? 'c' : '?';
                break;
            default:
                row += '?';
            }
        }
        return row;
    }

    [[nodiscard]] std::vector<std::string> boxes() const {
        std::vector<std::string> titles;
        for (const auto& box : host_.dialogs.boxes) {
            titles.push_back(box.title);
        }
        return titles;
    }
};

TEST_F(Balance, theActiveChannelIsPanned) {
    state_.ActiveChannel = ChannelSlot::primary;
    balance_.ApplyBalance(-100);
    state_.ActiveChannel = ChannelSlot::secondary;
    balance_.ApplyBalance(75);
    EXPECT_THAT(sound_.calls, ElementsAre("BASS_ChannelSetAttributes(11, -1, -1, -100)",
                                          "BASS_ChannelSetAttributes(12, -1, -1, 75)"));
}

TEST_F(Balance, withoutAChannelOnlyTheLampsFollow) {
    balance_.ApplyBalance(25);
    EXPECT_THAT(sound_.calls, IsEmpty());
    EXPECT_EQ(lamps(), "....cX...");
}

TEST_F(Balance, lampsOfEachStep) {
    const std::vector<std::pair<std::int16_t, std::string>> steps = {
        {-100, "XXXXc...."}, {-75, ".XXXc...."}, {-50, "..XXc...."},
        {-25, "...Xc...."},  {0, "....c...."},   {25, "....cX..."},
        {50, "....cXX.."},   {75, "....cXXX."},  {100, "....cXXXX"},
    };
    for (const auto& [value, row] : steps) {
        balance_.ApplyBalance(value);
        EXPECT_EQ(lamps(), row) << value;
    }
}

TEST_F(Balance, aValueBetweenTheStepsLightsTheLeftSideAndKeepsItsPan) {
    state_.ActiveChannel = ChannelSlot::primary;
    balance_.ApplyBalance(30);
    EXPECT_EQ(lamps(), "XXXXc....");
    EXPECT_THAT(sound_.calls, ElementsAre("BASS_ChannelSetAttributes(11, -1, -1, 30)"));
}

TEST_F(Balance, aClickSetsBothChannels) {
    balanceBar_.click(7);
    EXPECT_EQ(state_.BalanceValue, 75);
    EXPECT_EQ(lamps(), "....cXXX.");
    EXPECT_THAT(sound_.calls, ElementsAre("BASS_ChannelSetAttributes(12, -1, -1, 75)",
                                          "BASS_ChannelSetAttributes(11, -1, -1, 75)"));
}

TEST_F(Balance, wordsOfEachLamp) {
    elements_.touch(MainElement::Label4, 0).caption = "[x] percent left";
    elements_.touch(MainElement::Label4, 1).caption = "[x] percent right";
    elements_.touch(MainElement::Label4, 2).caption = "both [x]";
    const std::vector<std::string> words = {
        "100 percent left", "75 percent left",  "50 percent left",  "25 percent left",  "both [x]",
        "25 percent right", "50 percent right", "75 percent right", "100 percent right"};
    for (std::size_t i = 0; i < words.size(); ++i) {
        balanceBar_.click(i);
        EXPECT_EQ(playing_.balanceText, words[i]);
        EXPECT_EQ(view_.last.balanceText, words[i]);
    }
}

TEST_F(Balance, theWordsOfTheStartSayOneHundredWhateverTheStep) {
    for (const auto& [value, words] : {std::pair<std::int16_t, std::string>{-25, "Left 100%"},
                                       {50, "Right 100%"},
                                       {0, "Centre"},
                                       {30, "Left 100%"}}) {
        state_.BalanceValue = value;
        balanceBar_.showStartText();
        EXPECT_EQ(playing_.balanceText, words) << value;
    }
    balanceBar_.click(6);
    EXPECT_EQ(playing_.balanceText, "Right 50%");
}

TEST_F(Balance, theLampUnderThePointerIsToldUntilItLeaves) {
    balanceBar_.click(4);
    balanceBar_.hover(1);
    EXPECT_TRUE(playing_.balanceHover);
    EXPECT_EQ(view_.last.hoverText, "Left 75%");
    EXPECT_EQ(state_.BalanceValue, 0);
    view_.told.clear();
    balanceBar_.endHover();
    balanceBar_.endHover();
    EXPECT_FALSE(playing_.balanceHover);
    EXPECT_EQ(view_.last.balanceText, "Centre");
    EXPECT_THAT(view_.told, ElementsAre("balance"));
}

TEST_F(Balance, aClickThatFailsIsLoggedAndTold) {
    balanceBar_.click(9);
    EXPECT_THAT(logged(), ElementsAre("Subscript out of range,9,Player,balbar"));
    EXPECT_THAT(boxes(), ElementsAre(" in sub Balbar_Click"));
    EXPECT_EQ(state_.BalanceValue, -25);
}

TEST_F(Balance, withItsSwitchTheStartTellsTheStep) {
    elements_.touch(MainElement::Label4, 1).caption = "Right [x]%";
    state_.BalanceValue = 25;
    for (const bool kind : {false, true}) {
        state_.comfort.tellsBalanceOfStart = kind;
        balanceBar_.showStartText();
        EXPECT_EQ(screen_.playing.balanceText, kind ? "Right 25%" : "Right 100%");
    }
}

} // namespace
} // namespace tovik::test
