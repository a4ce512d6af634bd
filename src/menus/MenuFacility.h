// SPDX-License-Identifier: GPL-3.0-or-later
// The menus of a window system: what `cMenus` asks of it. What they hold they ask of `cMenus`, and
// what happens in them they tell its window as messages. Interface thread.
#pragma once

#include "menus/clsStoreMenu.h"
#include "ui/Element.h"

#include <optional>

namespace tovik::menus {

/// Where a menu appears: below a box of the window that pops it up, in skin pixels.
using MenuPlace = ui::Box;

class MenuFacility {
public:
    virtual ~MenuFacility() = default;
    MenuFacility(const MenuFacility&) = delete;
    MenuFacility& operator=(const MenuFacility&) = delete;

    /// A menu with the items that have that item for a parent. Never 0.
    [[nodiscard]] virtual MenuHandle CreatePopupMenu(int parentId) = 0;

    virtual void DestroyMenu(MenuHandle menu) = 0;

    /// Shows a menu and returns at once; only one is shown at a time. Without a place it appears
    /// at the pointer.
    virtual void TrackPopupMenu(MenuHandle menu, const std::optional<MenuPlace>& place) = 0;

    /// Other items stand in a menu than when it was last shown; one that is shown follows.
    virtual void itemsChanged(MenuHandle /*menu*/) {}

protected:
    MenuFacility() = default;
};

} // namespace tovik::menus
