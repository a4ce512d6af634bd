// SPDX-License-Identifier: GPL-3.0-or-later
// The page of comfort as logic: what its ticks show, keep and do.
#include "preferences/frmPreferences.h"

#include "player/ComfortSettings.h"
#include "preferences/PreferencesRig.h"

namespace tovik::test {
namespace {

using preferences::comfortControl;

class ComfortPage : public PreferencesRig {
protected:
    ComfortPage() {
        preferences_.hooks.comfort = [this] { ++changes_; };
    }

    void again() { preferences_.Form_Load(); }

    void tick(std::size_t number, bool on) {
        values().setNumber(comfortControl(number), on ? 1 : 0);
    }

    [[nodiscard]] bool ticked(std::size_t number) {
        return values().ticked(comfortControl(number));
    }

    int changes_ = 0;
};

TEST_F(ComfortPage, eachTickShowsWhetherItsSwitchIsOn) {
    store("CMF", "1");
    store("CMF07", "0");
    again();
    for (std::size_t number = 0; number <= base::kComfortSwitches.size(); ++number) {
        EXPECT_EQ(ticked(number), number != 7) << number;
    }
}

TEST_F(ComfortPage, theMasterTakesAlongWhatIsNotSetOtherwise) {
    again();
    tick(3, true);
    tick(0, true);
    tick(5, false);
    for (std::size_t number = 0; number <= base::kComfortSwitches.size(); ++number) {
        EXPECT_EQ(ticked(number), number != 5) << number;
    }
    tick(0, false);
    for (std::size_t number = 0; number <= base::kComfortSwitches.size(); ++number) {
        EXPECT_EQ(ticked(number), number == 3) << number;
    }
}

TEST_F(ComfortPage, eachSwitchActsAtOnceAndIsKeptUnderItsKey) {
    for (std::size_t number = 1; number <= base::kComfortSwitches.size(); ++number) {
        const auto key = std::string(base::kComfortSwitches.at(number - 1).key);
        again();
        tick(number, true);
        EXPECT_EQ(state_.comfort, base::Comfort()) << "before OK";
        ASSERT_TRUE(preferences_.save_settings());
        EXPECT_EQ(stored(key), "1");
        EXPECT_EQ(stored("CMF"), "0");
        base::ComfortChoices expected;
        expected.own.at(number - 1) = true;
        EXPECT_EQ(state_.comfort, expected.record());
        again();
        EXPECT_TRUE(ticked(number));
        tick(number, false);
        ASSERT_TRUE(preferences_.save_settings());
        EXPECT_EQ(state_.comfort, base::Comfort());
        EXPECT_EQ(host_.folder.read(kSettings).find("<" + key + ">"), std::string::npos);
    }
}

TEST_F(ComfortPage, whatFollowsIsToldOfAChangeOnceAndOfNoOther) {
    again();
    ASSERT_TRUE(preferences_.save_settings());
    EXPECT_EQ(changes_, 0);
    tick(0, true);
    ASSERT_TRUE(preferences_.save_settings());
    EXPECT_EQ(changes_, 1);
    EXPECT_EQ(state_.comfort, base::ComfortChoices{.master = true}.record());
    ASSERT_TRUE(preferences_.save_settings());
    EXPECT_EQ(changes_, 1);
}

TEST_F(ComfortPage, whileTheCommandLineDecidesAChangeIsKeptAlone) {
    state_.ComfortOfRun = false;
    again();
    EXPECT_TRUE(preferences_.comfortIsOfRun());
    tick(0, true);
    ASSERT_TRUE(preferences_.save_settings());
    EXPECT_EQ(stored("CMF"), "1");
    EXPECT_EQ(state_.comfort, base::Comfort());
    EXPECT_EQ(changes_, 0);
}

} // namespace
} // namespace tovik::test
