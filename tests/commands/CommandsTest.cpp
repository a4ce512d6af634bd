// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/Commands.h"

#include "base/RuntimeError.h"
#include "commands/ClsShortcut.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

namespace tovik::commands {
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

} // namespace
} // namespace tovik::commands
