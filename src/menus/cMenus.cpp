// SPDX-License-Identifier: GPL-3.0-or-later
// The collection; how the tree changes, keys and messages are in files of their own.
#include "menus/cMenus.h"

#include "base/RuntimeError.h"
#include "ui/Mnemonic.h"

#include <algorithm>

namespace tovik::menus {

cMenus::~cMenus() {
    destroyMenus();
}

bool cMenus::isIndex(int index) const noexcept {
    return index >= 1 && index <= ItemCount();
}

const clsStoreMenu& cMenus::at(int index) const {
    if (!isIndex(index)) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    return items_[static_cast<std::size_t>(index) - 1];
}

clsStoreMenu& cMenus::at(int index) {
    if (!isIndex(index)) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    return items_[static_cast<std::size_t>(index) - 1];
}

int cMenus::IndexForID(int id) const noexcept {
    const auto found = std::ranges::find(items_, id, &clsStoreMenu::id);
    return found == items_.end() ? 0 : static_cast<int>(found - items_.begin()) + 1;
}

int cMenus::IndexForKey(std::string_view key) const noexcept {
    const auto found =
        key.empty() ? items_.end() : std::ranges::find(items_, key, &clsStoreMenu::key);
    return found == items_.end() ? 0 : static_cast<int>(found - items_.begin()) + 1;
}

std::vector<int> cMenus::itemsBelow(int index) const {
    const int parentId = index == 0 ? 0 : at(index).id;
    std::vector<int> below;
    for (int i = 1; i <= ItemCount(); ++i) {
        if (at(i).parentId == parentId) {
            below.push_back(i);
        }
    }
    std::ranges::sort(below, {}, [this](int i) { return at(i).position; });
    return below;
}

std::string cMenus::HelpText() const {
    const int current = CurrentMenuIndex();
    return current == 0 ? std::string() : at(current).helpText;
}

std::string cMenus::ItemDescription(int index) const {
    std::string text = ui::mnemonicOf(at(index).caption).text;
    for (int parent = ItemParentIndex(index); parent != 0; parent = ItemParentIndex(parent)) {
        text = ui::mnemonicOf(at(parent).caption).text + " / " + text;
    }
    return text;
}

void cMenus::ItemImage(int index, std::string_view imageKey) {
    at(index).image = ImageList != nullptr ? ImageList->indexOf(imageKey) : -1;
}

} // namespace tovik::menus
