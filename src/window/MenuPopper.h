// SPDX-License-Identifier: GPL-3.0-or-later
// Who pops up the menus of the program, as those who ask for one know it. Interface thread.
#pragma once

#include "commands/CommandTable.h"
#include "menus/MenuFacility.h"
#include "ui/ListModel.h"

#include <cstdint>
#include <optional>

namespace tovik::window {

/// The menus that pop up by themselves.
enum class MenuRoot : std::uint8_t {
    mnuMain,
    mnuRip,
    mnuPreset,
    vis,
    mnupls,
};

/// A list that was asked for a menu; all it names outlives the popper.
struct MenuList {
    const ui::ListModel* rows = nullptr;
    ui::ListInput* input = nullptr;
    commands::CommandId info = commands::CommandId::editTag; ///< tells of the selected row
};

class MenuPopper {
public:
    virtual ~MenuPopper() = default;
    MenuPopper(const MenuPopper&) = delete;
    MenuPopper& operator=(const MenuPopper&) = delete;

    /// Shows a menu with what can be done now, below a box of the main window or, without one, at
    /// the pointer. Nothing on a window that has no menus.
    virtual void popUp(MenuRoot root, const std::optional<menus::MenuPlace>& place = {}) = 0;

    /// Shows the menu of a list's rows at the pointer; what is chosen acts on that list.
    virtual void popUpFor(MenuList list) = 0;

protected:
    MenuPopper() = default;
};

} // namespace tovik::window
