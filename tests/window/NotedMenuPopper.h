// SPDX-License-Identifier: GPL-3.0-or-later
// Notes which menus were asked for.
#pragma once

#include "window/MenuPopper.h"

#include <set>
#include <utility>
#include <vector>

namespace tovik::test {

class NotedMenuPopper final : public window::MenuPopper {
public:
    void popUp(window::MenuRoot root, const std::optional<menus::MenuPlace>& place) override {
        popped.emplace_back(root, place);
    }

    void popUpFor(window::MenuList list, const std::optional<menus::MenuPlace>& place) override {
        lists.push_back(std::move(list));
        places.push_back(place);
    }

    [[nodiscard]] bool hasAccelerator(const ui::KeyEvent& key) const override {
        return accelerators.contains(key.code);
    }

    std::set<int> accelerators; ///< by their keys, without a shift state

    std::vector<std::pair<window::MenuRoot, std::optional<menus::MenuPlace>>> popped;
    std::vector<window::MenuList> lists;
    std::vector<std::optional<menus::MenuPlace>> places; ///< of the lists' menus
};

} // namespace tovik::test
