// SPDX-License-Identifier: GPL-3.0-or-later
// One item of a menu, as a record. Interface thread.
#pragma once

#include <cstdint>
#include <string>

namespace tovik::menus {

/// A menu of the window system; 0 is none.
using MenuHandle = std::uint32_t;

/// What stands before a checked item.
enum class CheckedStyle : std::uint8_t {
    Check,
    Radio, ///< one of several that exclude each other
};

struct clsStoreMenu {
    MenuHandle handle = 0;  ///< the menu that the item stands in; 0 until it is built
    MenuHandle subMenu = 0; ///< the one that it opens, likewise
    int position = 0;       ///< among the items of its parent, from 0
    int id = 0;             ///< above 0, its own for as long as it lives
    int parentId = 0;       ///< 0: a menu of the top level

    std::string caption{}; ///< UTF-8; "&" marks its mnemonic
    std::string helpText{};
    std::string key{};         ///< by which the program addresses it; empty: by nothing
    std::string accelerator{}; ///< like "Ctrl+Shift+K"; empty: none
    std::string fixedKey{};    ///< a key that does the same whatever the accelerator is
    int image = -1;            ///< of the image list, from 0; -1: none
    std::string tag{};

    bool ownerDraw = false; ///< drawn by `cMenus`, also where it does not draw all
    int ownerDrawId = 0;
    std::string ownerDrawData{};

    bool separator = false;
    bool columnBreak = false; ///< begins a new column
    bool enabled = true;
    bool checkable = false; ///< shows a state also while it is not checked
    bool checked = false;
    bool visible = true;
    CheckedStyle checkedStyle = CheckedStyle::Check;

    /// The key of the item in the collection.
    [[nodiscard]] std::string collectionKey() const { return "#" + std::to_string(id); }
};

} // namespace tovik::menus
