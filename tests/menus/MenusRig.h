// SPDX-License-Identifier: GPL-3.0-or-later
// A small menu for tests: File (Open, a separator, Save), Tools (More (Deep)).
#pragma once

#include "menus/cMenus.h"

#include <vector>

namespace tovik::menus {

/// The menus of a window system that shows none.
class NotedMenus final : public MenuFacility {
public:
    [[nodiscard]] MenuHandle CreatePopupMenu(int parentId) override {
        parents.push_back(parentId);
        return static_cast<MenuHandle>(parents.size());
    }

    void DestroyMenu(MenuHandle menu) override { destroyed.push_back(menu); }

    void TrackPopupMenu(MenuHandle menu, const std::optional<MenuPlace>& place) override {
        shown.emplace_back(menu, place);
    }

    std::vector<int> parents; ///< of the menus in the order of their handles, from 1
    std::vector<MenuHandle> destroyed;
    std::vector<std::pair<MenuHandle, std::optional<MenuPlace>>> shown;
};

struct MenusRig {
    MenusRig() {
        const std::vector<FormMenu> form = {
            {0, "file", "&File"},   {1, "open", "&Open"}, {1, "bar", "", true}, {1, "save", "Save"},
            {0, "tools", "&Tools"}, {1, "more", "More"},  {2, "deep", "&Deep"}, {1, "", "Nameless"},
        };
        menus.CreateFromForm(window, form);
        menus.onClick([this](int index) { clicked.push_back(menus.ItemKey(index)); });
    }

    [[nodiscard]] int at(std::string_view key) const { return menus.IndexForKey(key); }

    NotedMenus facility; ///< outlives the menus
    std::vector<std::uint32_t> reached;
    ui::MessageWindow window{[this](const ui::WindowMessage& message) {
        reached.push_back(message.number);
        return ui::MessageResult{0};
    }};
    cMenus menus;
    std::vector<std::string> clicked;
};

} // namespace tovik::menus
