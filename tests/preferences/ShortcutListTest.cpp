// SPDX-License-Identifier: GPL-3.0-or-later
#include "preferences/ShortcutList.h"

#include "commands/ClsShortcut.h"

#include <gtest/gtest.h>

namespace tovik::preferences {
namespace {

using commands::CommandId;
using menus::AcceleratorKey;

constexpr AcceleratorKey kCtrlK{.keyCode = 'K', .shift = AcceleratorKey::kCtrl};
constexpr AcceleratorKey kCtrlL{.keyCode = 'L', .shift = AcceleratorKey::kCtrl};

class ShortcutListTest : public testing::Test {
protected:
    ShortcutListTest() {
        about_ = menus_.AddItem("&About", "mnuAbout");
        play_ = menus_.AddItem("&Play", "play");
        other_ = menus_.AddItem("Open &all", "other");
        list_.attach(
            {.menus = &menus_, .entryOf = [this](CommandId id) {
                 return id == CommandId::about ? about_ : id == CommandId::play ? play_ : 0;
             }});
        list_.load();
    }

    [[nodiscard]] std::size_t rowOf(CommandId id) const {
        std::size_t row = 0;
        while (list_.rows().at(row).command != id) {
            ++row;
        }
        return row;
    }

    menus::cMenus menus_;
    int about_ = 0;
    int play_ = 0;
    int other_ = 0;
    ShortcutList list_;
};

TEST_F(ShortcutListTest, theFixedMapComesFirstAndThenTheKeysOfTheLists) {
    ASSERT_EQ(list_.rows().size(), kShortcuts);
    ASSERT_EQ(commands::ClsShortcut::map().size(), 28U);
    const auto map = commands::ClsShortcut::map().first(27); // the last has no name in a language
    EXPECT_EQ(commands::ClsShortcut::map().back().command, CommandId::undoList);
    for (std::size_t row = 0; row < map.size(); ++row) {
        EXPECT_EQ(list_.rows()[row].command, map[row].command) << row;
        EXPECT_FALSE(list_.rows()[row].fixedKey.empty()) << row;
    }
    EXPECT_EQ(list_.rows()[0].fixedKey, "J");
    EXPECT_EQ(list_.rows()[15].fixedKey, "Num1");
    EXPECT_EQ(list_.rows()[24].fixedKey, "Alt+X");
    EXPECT_EQ(list_.rows()[27].command, CommandId::none);
    EXPECT_EQ(list_.rows()[34].fixedKey, "Del");
}

TEST_F(ShortcutListTest, onlyRowsWithAnEntryCanBeChanged) {
    EXPECT_TRUE(list_.changeable(rowOf(CommandId::about)));
    EXPECT_FALSE(list_.changeable(rowOf(CommandId::miniMode)));
    EXPECT_FALSE(list_.changeable(34));
    EXPECT_FALSE(list_.set(34, kCtrlK).taken);
    ShortcutList bare;
    bare.load();
    EXPECT_EQ(bare.rows().size(), kShortcuts);
    EXPECT_FALSE(bare.changeable(1));
    bare.apply();
}

TEST_F(ShortcutListTest, newKeysReachTheMenusWhenTheyAreApplied) {
    EXPECT_TRUE(list_.set(rowOf(CommandId::play), kCtrlK).taken);
    EXPECT_EQ(list_.rows()[rowOf(CommandId::play)].accelerator, "Ctrl+K");
    EXPECT_EQ(menus_.ItemKeyAccel(play_), "");
    EXPECT_FALSE(menus_.acceleratorsChanged());
    list_.apply();
    EXPECT_EQ(menus_.ItemKeyAccel(play_), "Ctrl+K");
    EXPECT_TRUE(menus_.acceleratorsChanged());
    list_.clear(rowOf(CommandId::play));
    list_.load(); // dropped
    EXPECT_EQ(list_.rows()[rowOf(CommandId::play)].accelerator, "Ctrl+K");
    list_.clear(rowOf(CommandId::play));
    list_.apply();
    EXPECT_EQ(menus_.ItemKeyAccel(play_), "");
}

TEST_F(ShortcutListTest, aClashIsRefusedWithTheNameOfTheOwner) {
    menus_.ItemKeyAccel(other_, "Ctrl+L");
    list_.set(rowOf(CommandId::about), kCtrlK);
    const auto withRow = list_.set(rowOf(CommandId::play), kCtrlK);
    EXPECT_FALSE(withRow.taken);
    EXPECT_EQ(withRow.owner, "About");
    const auto withOther = list_.set(rowOf(CommandId::play), kCtrlL);
    EXPECT_FALSE(withOther.taken);
    EXPECT_EQ(withOther.owner, "Open all");
    EXPECT_EQ(list_.rows()[rowOf(CommandId::play)].accelerator, "");
    EXPECT_TRUE(list_.set(rowOf(CommandId::about), kCtrlK).taken) << "its own keys";
}

TEST_F(ShortcutListTest, keysThatWereGivenUpAreFree) {
    menus_.ItemKeyAccel(about_, "Ctrl+K");
    menus_.ItemKeyAccel(play_, "Ctrl+L");
    list_.load();
    list_.clear(rowOf(CommandId::about));
    EXPECT_TRUE(list_.set(rowOf(CommandId::play), kCtrlK).taken);
    EXPECT_TRUE(list_.set(rowOf(CommandId::about), kCtrlL).taken);
    list_.apply();
    EXPECT_EQ(menus_.ItemKeyAccel(about_), "Ctrl+L");
    EXPECT_EQ(menus_.ItemKeyAccel(play_), "Ctrl+K");
}

TEST_F(ShortcutListTest, whatAFixedKeyWouldHaveDoneIsTold) {
    const auto answer =
        list_.set(rowOf(CommandId::play), {.keyCode = 'D', .shift = AcceleratorKey::kCtrl});
    EXPECT_TRUE(answer.taken);
    EXPECT_EQ(answer.hidden, rowOf(CommandId::addFolder));
    EXPECT_FALSE(list_.set(rowOf(CommandId::play), {.keyCode = 'X', .shift = 0}).hidden)
        << "its own fixed key";
    EXPECT_EQ(list_.set(rowOf(CommandId::play), {.keyCode = 0x2E, .shift = 0}).hidden, 34U);
    for (const int arrow : {0x26, 0x28}) {
        EXPECT_EQ(
            list_.set(rowOf(CommandId::play), {.keyCode = arrow, .shift = AcceleratorKey::kAlt})
                .hidden,
            35U);
    }
}

TEST_F(ShortcutListTest, aFixedKeyThatIsAnAcceleratorNamesItsTaker) {
    EXPECT_TRUE(list_.kept());
    const std::size_t stop = rowOf(CommandId::stop);
    EXPECT_EQ(list_.takerOf(stop), "");
    list_.set(rowOf(CommandId::play), {.keyCode = 'V', .shift = 0});
    EXPECT_EQ(list_.takerOf(stop), "Play");
    menus_.ItemKeyAccel(other_, "Alt+Down");
    EXPECT_EQ(list_.takerOf(35), "Open all");
    list_.set(rowOf(CommandId::play), {.keyCode = 'X', .shift = 0});
    EXPECT_EQ(list_.takerOf(rowOf(CommandId::play)), "") << "its own";
}

TEST_F(ShortcutListTest, aKeyWithoutANameIsRefused) {
    const auto answer = list_.set(rowOf(CommandId::play), {.keyCode = 0xFF, .shift = 0});
    EXPECT_FALSE(answer.taken);
    EXPECT_EQ(answer.owner, "");
}

} // namespace
} // namespace tovik::preferences
