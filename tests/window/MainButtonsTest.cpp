// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainButtons.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace tovik::window {
namespace {

using commands::CommandId;

TEST(MainButtons, lookDisabledWithoutATarget) {
    MainElements elements(mainLayout());
    commands::Commands commands;
    commands.bind(CommandId::play, [] {});
    commands.bind(CommandId::resetEqualizer, [] {});
    commands.bind(CommandId::clearList, {.run = [] {}, .enabled = [] { return false; }});
    enableButtons(elements, commands);
    for (const MainElement name :
         {MainElement::playup, MainElement::playdown, MainElement::resetbt, MainElement::clrIMG}) {
        EXPECT_TRUE(elements.get(name).enabled) << static_cast<int>(name);
    }
    for (const MainElement name :
         {MainElement::stopup, MainElement::filedown, MainElement::addlocIMG, MainElement::eqbt,
          MainElement::prebt, MainElement::Image1}) {
        EXPECT_FALSE(elements.get(name).enabled) << static_cast<int>(name);
    }
    commands.bind(CommandId::preferences, [] {});
    enableButtons(elements, commands);
    EXPECT_TRUE(elements.get(MainElement::prebt).enabled);
    EXPECT_TRUE(elements.get(MainElement::mainIMG).enabled);
}

TEST(MainButtons, noElementStandsTwice) {
    std::set<std::pair<MainElement, std::size_t>> seen;
    for (const PressButton& button : pressButtons()) {
        EXPECT_TRUE(seen.emplace(button.up, 0).second);
        EXPECT_TRUE(seen.emplace(button.down, 0).second);
    }
    for (const ClickButton& button : clickButtons()) {
        EXPECT_TRUE(seen.emplace(button.name, button.index).second);
    }
}

} // namespace
} // namespace tovik::window
