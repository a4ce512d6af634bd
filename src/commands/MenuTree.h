// SPDX-License-Identifier: GPL-3.0-or-later
// All menus of the program as one table: the tree, and which command each entry runs. Any thread.
#pragma once

#include "commands/CommandTable.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tovik::commands {

struct MenuEntry {
    int depth = 0;                       ///< 0: a menu that pops up by itself
    std::string_view name;               ///< by which languages and code know it
    std::optional<int> index{};          ///< of an array; those of one name stand in their order
    CommandId command = CommandId::none; ///< none: a separator, or something to open
    std::string_view caption{};          ///< of what has no command, until a language is read
    bool separator = false;
    std::string_view image{}; ///< its key in the list of images

    /// The key of the entry among the items of all menus.
    [[nodiscard]] std::string key() const;

    /// What it says until a language is read.
    [[nodiscard]] std::string_view words() const;
};

/// In display order, each followed by what stands below it.
[[nodiscard]] std::span<const MenuEntry> menuTree() noexcept;

/// The key of an entry of an array.
[[nodiscard]] std::string menuKey(std::string_view name, int index);

} // namespace tovik::commands
