// SPDX-License-Identifier: GPL-3.0-or-later
// How items come and go, and the menus of the window system with them.
#include "base/RuntimeError.h"
#include "menus/cMenus.h"

#include <algorithm>
#include <utility>

namespace tovik::menus {

namespace {

constexpr std::string_view kSeparatorCaption = "-";

} // namespace

void cMenus::CreateFromNothing(ui::MessageWindow& window) {
    destroyMenus();
    items_.clear();
    currentId_ = 0;
    acceleratorsChanged_ = false;
    window_ = &window;
    superClass_.UnSubclass();
    for (const std::uint32_t message : {ui::messages::kMeasureItem, ui::messages::kDrawItem,
                                        ui::messages::kCommand, ui::messages::kMenuSelect}) {
        superClass_.AddMsg(message);
    }
    superClass_.SubClass(window, *this, false);
}

void cMenus::CreateFromForm(ui::MessageWindow& window, std::span<const FormMenu> form) {
    CreateFromNothing(window);
    std::vector<int> parents; // the last item of each depth
    for (const FormMenu& entry : form) {
        const auto depth = static_cast<std::size_t>(entry.depth);
        if (entry.depth < 0 || depth > parents.size()) {
            throw base::RuntimeError(base::ErrorNumber::InvalidProcedureCall);
        }
        parents.resize(depth);
        const int index = AddItem(entry.caption, entry.key, depth == 0 ? 0 : parents.back());
        at(index).separator = entry.separator;
        at(index).visible = entry.visible;
        parents.push_back(index);
    }
}

int cMenus::AddItem(const std::string& caption, const std::string& key, int parentIndex,
                    int beforeIndex) {
    const std::vector<int> siblings = itemsBelow(parentIndex);
    clsStoreMenu item{.caption = caption, .key = key};
    item.id = ++lastId_;
    item.parentId = parentIndex == 0 ? 0 : at(parentIndex).id;
    item.handle = parentIndex == 0 ? 0 : at(parentIndex).subMenu;
    item.separator = caption == kSeparatorCaption;
    item.position = static_cast<int>(siblings.size());
    if (beforeIndex != 0) {
        if (at(beforeIndex).parentId != item.parentId) {
            throw base::RuntimeError(base::ErrorNumber::InvalidProcedureCall);
        }
        item.position = at(beforeIndex).position;
        for (const int sibling : siblings) {
            at(sibling).position += at(sibling).position >= item.position ? 1 : 0;
        }
    }
    items_.push_back(std::move(item));
    return ItemCount();
}

void cMenus::RemoveItem(int index) {
    const int id = at(index).id;
    const int parentId = at(index).parentId;
    for (std::vector<int> below = itemsBelow(index); !below.empty(); below = itemsBelow(index)) {
        RemoveItem(below.back());
        index = IndexForID(id);
    }
    if (facility_ != nullptr && at(index).subMenu != 0) {
        facility_->DestroyMenu(at(index).subMenu);
    }
    items_.erase(items_.begin() + (index - 1));
    numberItemsBelow(parentId);
}

void cMenus::numberItemsBelow(int parentId) {
    int position = 0;
    for (const int index : itemsBelow(IndexForID(parentId))) {
        at(index).position = position++;
    }
}

void cMenus::ReplaceItem(int index, const std::string& caption, const std::string& key) {
    clsStoreMenu& item = at(index);
    item = {.handle = item.handle,
            .subMenu = item.subMenu,
            .position = item.position,
            .id = item.id,
            .parentId = item.parentId,
            .caption = caption,
            .key = key,
            .separator = caption == kSeparatorCaption};
}

void cMenus::BuildOn(MenuFacility& facility) {
    if (facility_ != &facility) {
        destroyMenus();
        facility_ = &facility;
    }
    for (clsStoreMenu& item : items_) {
        const int parent = IndexForID(item.parentId);
        if (parent == 0) {
            continue;
        }
        if (at(parent).subMenu == 0) {
            at(parent).subMenu = facility.CreatePopupMenu(item.parentId);
        }
        item.handle = at(parent).subMenu;
    }
}

void cMenus::destroyMenus() {
    for (clsStoreMenu& item : items_) {
        if (facility_ != nullptr && item.subMenu != 0) {
            facility_->DestroyMenu(item.subMenu);
        }
        item.subMenu = 0;
        item.handle = 0;
    }
    facility_ = nullptr;
}

bool cMenus::PopUpMenu(int index, const std::optional<MenuPlace>& place) {
    const MenuHandle menu = handle(index);
    if (facility_ == nullptr || menu == 0) {
        return false;
    }
    facility_->TrackPopupMenu(menu, place);
    return true;
}

} // namespace tovik::menus
