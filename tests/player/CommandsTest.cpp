// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Commands.h"

#include "base/RuntimeError.h"
#include "player/ClsShortcut.h"
#include "player/MainButtons.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

namespace tovik::player {
namespace {

using config::LanguageSection;

TEST(CommandTable, eachNumberHasOneRowWithAName) {
    std::set<CommandId> ids;
    for (const Command& command : commandTable()) {
        EXPECT_TRUE(ids.insert(command.id).second) << command.name;
        EXPECT_FALSE(command.name.empty());
        EXPECT_NE(command.id, CommandId::none);
        EXPECT_EQ(&commandOf(command.id), &command);
    }
    EXPECT_EQ(ids.size(), static_cast<std::size_t>(CommandId::exit));
    EXPECT_THROW(static_cast<void>(commandOf(CommandId::none)), base::RuntimeError);
}

TEST(CommandTable, noTwoCommandsShareAnItemOfALanguage) {
    std::set<LanguageItem> items;
    for (const Command& command : commandTable()) {
        if (command.language) {
            EXPECT_TRUE(items.insert(*command.language).second) << command.name;
            const auto section = static_cast<std::size_t>(command.language->section);
            EXPECT_LT(command.language->number, config::languageSections()[section].items);
        }
    }
    // What languages name of the playback menu.
    for (int item = 21; item <= 36; ++item) {
        EXPECT_TRUE(items.contains({LanguageSection::MainMenu, item})) << item;
    }
}

TEST(CommandTable, namesAndItemsOfThePlaybackMenu) {
    EXPECT_EQ(commandOf(CommandId::previous).name, "Previous");
    EXPECT_EQ(commandOf(CommandId::previous).language,
              (LanguageItem{LanguageSection::MainMenu, 21}));
    EXPECT_EQ(commandOf(CommandId::stopWithFadeout).language,
              (LanguageItem{LanguageSection::MainMenu, 26}));
    EXPECT_EQ(commandOf(CommandId::forwardFiveSeconds).name, "Fwd  5 seconds");
    EXPECT_EQ(commandOf(CommandId::musicSearch).language,
              (LanguageItem{LanguageSection::MainMenu, 36}));
    EXPECT_EQ(commandOf(CommandId::stopAfterCurrent).kind, CommandKind::toggle);
    EXPECT_EQ(commandOf(CommandId::timeElapsed).kind, CommandKind::choice);
}

TEST(Commands, withoutATargetNothingHappens) {
    const Commands commands;
    for (const Command& command : commandTable()) {
        EXPECT_FALSE(commands.enabled(command.id));
        EXPECT_FALSE(commands.checked(command.id));
        EXPECT_FALSE(commands.run(command.id));
    }
    EXPECT_FALSE(commands.run(CommandId::none));
}

TEST(Commands, eachRunsItsOwnTarget) {
    Commands commands;
    std::vector<CommandId> ran;
    for (const Command& command : commandTable()) {
        commands.bind(command.id, [&ran, id = command.id] { ran.push_back(id); });
    }
    for (const Command& command : commandTable()) {
        EXPECT_TRUE(commands.enabled(command.id));
        EXPECT_TRUE(commands.run(command.id));
        EXPECT_EQ(ran.back(), command.id);
    }
    EXPECT_EQ(ran.size(), commandTable().size());
}

TEST(Commands, whatCannotRunNowDoesNot) {
    Commands commands;
    bool possible = false;
    int ran = 0;
    commands.bind(CommandId::editTag, {.run = [&] { ++ran; }, .enabled = [&] { return possible; }});
    EXPECT_FALSE(commands.enabled(CommandId::editTag));
    EXPECT_FALSE(commands.run(CommandId::editTag));
    possible = true;
    EXPECT_TRUE(commands.run(CommandId::editTag));
    EXPECT_EQ(ran, 1);
}

TEST(Commands, aStateIsAskedForWhenItIsNeeded) {
    Commands commands;
    bool on = false;
    commands.bind(CommandId::repeat, {.run = [&] { on = !on; }, .checked = [&] { return on; }});
    EXPECT_FALSE(commands.checked(CommandId::repeat));
    commands.run(CommandId::repeat);
    EXPECT_TRUE(commands.checked(CommandId::repeat));
}

TEST(Commands, theLastTargetCountsAndErrorsGoToTheCaller) {
    Commands commands;
    commands.bind(CommandId::play, [] { FAIL(); });
    commands.bind(CommandId::play, [] { throw std::runtime_error("no"); });
    EXPECT_THROW(commands.run(CommandId::play), std::runtime_error);
    EXPECT_THROW(commands.bind(CommandId::none, [] {}), base::RuntimeError);
}

TEST(MainButtons, lookDisabledWithoutATarget) {
    ui::MainElements elements(ui::mainLayout());
    Commands commands;
    commands.bind(CommandId::play, [] {});
    commands.bind(CommandId::resetEqualizer, [] {});
    commands.bind(CommandId::clearList, {.run = [] {}, .enabled = [] { return false; }});
    enableButtons(elements, commands);
    using N = ui::MainElement;
    for (const N name : {N::playup, N::playdown, N::resetbt, N::clrIMG}) {
        EXPECT_TRUE(elements.get(name).enabled) << static_cast<int>(name);
    }
    for (const N name : {N::stopup, N::filedown, N::addlocIMG, N::eqbt, N::prebt, N::Image1}) {
        EXPECT_FALSE(elements.get(name).enabled) << static_cast<int>(name);
    }
    commands.bind(CommandId::preferences, [] {});
    enableButtons(elements, commands);
    EXPECT_TRUE(elements.get(N::prebt).enabled);
    EXPECT_TRUE(elements.get(N::mainIMG).enabled);
}

TEST(MainButtons, noElementStandsTwice) {
    std::set<std::pair<ui::MainElement, std::size_t>> seen;
    for (const PressButton& button : pressButtons()) {
        EXPECT_TRUE(seen.emplace(button.up, 0).second);
        EXPECT_TRUE(seen.emplace(button.down, 0).second);
    }
    for (const ClickButton& button : clickButtons()) {
        EXPECT_TRUE(seen.emplace(button.name, button.index).second);
    }
}

} // namespace
} // namespace tovik::player
