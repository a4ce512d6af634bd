// SPDX-License-Identifier: GPL-3.0-or-later
// Who pops up the menus of the program, as those who ask for one know it. Interface thread.
#pragma once

#include "commands/CommandTable.h"
#include "menus/MenuFacility.h"
#include "ui/ListModel.h"
#include "ui/WindowInput.h"

#include <cstddef>
#include <cstdint>
#include <functional>
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

/// Where a row of a list is in the main window.
using RowPlace = std::function<menus::MenuPlace(std::size_t row)>;

class MenuPopper {
public:
    virtual ~MenuPopper() = default;
    MenuPopper(const MenuPopper&) = delete;
    MenuPopper& operator=(const MenuPopper&) = delete;

    /// Shows a menu with what can be done now, below a box of the main window or, without one, at
    /// the pointer. Nothing on a window that has no menus.
    virtual void popUp(MenuRoot root, const std::optional<menus::MenuPlace>& place = {}) = 0;

    /// Shows the menu of a list's rows, at the place likewise; what is chosen acts on that list.
    virtual void popUpFor(MenuList list, const std::optional<menus::MenuPlace>& place = {}) = 0;

    /// Whether an entry of a menu has that key for its accelerator.
    [[nodiscard]] virtual bool hasAccelerator(const ui::KeyEvent& /*key*/) const { return false; }

protected:
    MenuPopper() = default;
};

} // namespace tovik::window
