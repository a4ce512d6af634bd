// SPDX-License-Identifier: GPL-3.0-or-later
// Notes which menus were asked for.
#pragma once

#include "window/MenuPopper.h"

#include <utility>
#include <vector>

namespace tovik::test {

class NotedMenuPopper final : public window::MenuPopper {
public:
    void popUp(window::MenuRoot root, const std::optional<menus::MenuPlace>& place) override {
        popped.emplace_back(root, place);
    }

    void popUpFor(window::MenuList list) override { lists.push_back(std::move(list)); }

    std::vector<std::pair<window::MenuRoot, std::optional<menus::MenuPlace>>> popped;
    std::vector<window::MenuList> lists;
};

} // namespace tovik::test
