// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ComfortTable.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace tovik::base {
namespace {

constexpr Comfort allOn() {
    Comfort comfort;
    for (const ComfortRow& row : kComfortRows) {
        comfort.*row.member = true;
    }
    return comfort;
}

TEST(ComfortTable, keysAreNumberedAndSaySomethingOfTheirOwn) {
    std::set<std::string_view> words;
    for (std::size_t number = 1; number <= kComfortSwitches.size(); ++number) {
        const std::string digits = std::to_string(number);
        EXPECT_EQ(kComfortSwitches.at(number - 1).key,
                  "CMF" + std::string(2 - digits.size(), '0') + digits);
        words.insert(kComfortSwitches.at(number - 1).words);
    }
    EXPECT_EQ(words.size(), 22U);
    EXPECT_FALSE(words.contains(""));
}

TEST(ComfortTable, withoutAChoiceNothingIsOn) {
    EXPECT_EQ(ComfortChoices().record(), Comfort());
    EXPECT_NE(Comfort(), allOn());
}

TEST(ComfortTable, theMasterTurnsAll) {
    EXPECT_EQ(ComfortChoices{.master = true}.record(), allOn());
}

TEST(ComfortTable, aSwitchTurnsItsMembersAndNoOther) {
    for (std::size_t number = 1; number <= kComfortSwitches.size(); ++number) {
        ComfortChoices choices;
        choices.own.at(number - 1) = true;
        const Comfort comfort = choices.record();
        choices.master = true;
        choices.own.at(number - 1) = false;
        const Comfort others = choices.record();
        for (const ComfortRow& row : kComfortRows) {
            EXPECT_EQ(comfort.*row.member, row.number == number);
            EXPECT_EQ(others.*row.member, row.number != number);
        }
    }
}

TEST(ComfortTable, whatIsTurnedAsTheMasterIsGoesWithItAgain) {
    ComfortChoices choices;
    choices.turn(3, true);
    EXPECT_EQ(choices.own.at(2), true);
    choices.master = true;
    choices.master = false;
    EXPECT_TRUE(choices.on(3));
    choices.turn(3, false);
    EXPECT_FALSE(choices.own.at(2).has_value());
    choices.master = true;
    EXPECT_TRUE(choices.on(3));
}

} // namespace
} // namespace tovik::base
