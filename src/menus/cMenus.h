// SPDX-License-Identifier: GPL-3.0-or-later
// The menus of a window as a model: items in a tree with captions, states, images and accelerators
// that the user can change. It draws them itself and hears of keys and choices as messages. Items
// are named by their index, from 1, in the order of the collection; 0 is none. An index that is not
// valid raises 9 where nothing else is said. Interface thread.
#pragma once

#include "menus/clsStoreMenu.h"
#include "menus/MenuFacility.h"
#include "menus/MenuLook.h"
#include "ui/cSuperClass.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::menus {

/// An entry of a menu as a form tells it, in display order.
struct FormMenu {
    int depth = 0; ///< 0: a menu of the top level
    std::string key{};
    std::string caption{};
    bool separator = false;
    bool visible = true;
};

class cMenus final : public ui::ISuperClass, public MenuLook {
public:
    cMenus() = default;
    ~cMenus() override;
    cMenus(const cMenus&) = delete;
    cMenus& operator=(const cMenus&) = delete;

    // Building ------------------------------------------------------------------------------------

    /// No items, for a window that gets the messages of the menus. It outlives the menus.
    void CreateFromNothing(ui::MessageWindow& window);

    /// The same with the entries of a form. Raises 5 when a depth grows by more than one.
    void CreateFromForm(ui::MessageWindow& window, std::span<const FormMenu> form);

    /// Adds an item at the end of its parent's items, or in front of one of them; its place in the
    /// collection is the last. Returns its index. The key "-" as a caption makes a separator.
    int AddItem(const std::string& caption, const std::string& key = {}, int parentIndex = 0,
                int beforeIndex = 0);

    /// Takes an item and all below it out; what follows in the collection moves up.
    void RemoveItem(int index);

    /// Another item in an item's place: only index, id and parent stay, and what is below it.
    void ReplaceItem(int index, const std::string& caption, const std::string& key = {});

    /// Makes the menus of the window system for all items that have some below them and none yet.
    /// The facility outlives the menus, or the next call brings another.
    void BuildOn(MenuFacility& facility);

    /// The menus of the window system go; the next `BuildOn` makes them anew.
    void destroyMenus();

    /// The menu of the window system that an item opens; 0 while there is none.
    [[nodiscard]] MenuHandle handle(int index) const { return at(index).subMenu; }

    /// Shows what is below an item. Returns whether a menu was shown: not before `BuildOn`, nor
    /// for an item with nothing below it.
    bool PopUpMenu(int index, const std::optional<MenuPlace>& place);

    // The collection ------------------------------------------------------------------------------

    [[nodiscard]] int ItemCount() const noexcept { return static_cast<int>(items_.size()); }

    /// All that is kept of an item.
    [[nodiscard]] const clsStoreMenu& item(int index) const { return at(index); }

    // 0 where there is none such; empty keys and accelerators are never found.
    [[nodiscard]] int IndexForID(int id) const noexcept;
    [[nodiscard]] int IndexForKey(std::string_view key) const noexcept;
    [[nodiscard]] int IndexForKeyAccel(std::string_view accelerator) const;

    /// The items that stand below one, or at the top level, in display order.
    [[nodiscard]] std::vector<int> itemsBelow(int index) const;

    /// The item that was chosen or selected last; 0 when none is.
    [[nodiscard]] int CurrentMenuIndex() const noexcept { return IndexForID(currentId_); }

    /// The help text of that item.
    [[nodiscard]] std::string HelpText() const;

    // Properties of an item -----------------------------------------------------------------------

    [[nodiscard]] int ItemID(int index) const { return at(index).id; }

    [[nodiscard]] int ItemParentID(int index) const { return at(index).parentId; }

    [[nodiscard]] int ItemParentIndex(int index) const { return IndexForID(at(index).parentId); }

    [[nodiscard]] bool ItemTopMenu(int index) const { return at(index).parentId == 0; }

    [[nodiscard]] const std::string& ItemKey(int index) const { return at(index).key; }

    [[nodiscard]] const std::string& ItemCaption(int index) const { return at(index).caption; }

    void ItemCaption(int index, const std::string& text) { at(index).caption = text; }

    /// The captions from the top down to the item, without marks of mnemonics.
    [[nodiscard]] std::string ItemDescription(int index) const;

    [[nodiscard]] const std::string& ItemHelpText(int index) const { return at(index).helpText; }

    void ItemHelpText(int index, const std::string& text) { at(index).helpText = text; }

    [[nodiscard]] int ItemImage(int index) const { return at(index).image; }

    void ItemImage(int index, int image) { at(index).image = image; }

    /// By the key of the image list.
    void ItemImage(int index, std::string_view imageKey);

    [[nodiscard]] bool ItemBreak(int index) const { return at(index).columnBreak; }

    void ItemBreak(int index, bool breaks) { at(index).columnBreak = breaks; }

    [[nodiscard]] bool ItemSeparator(int index) const { return at(index).separator; }

    void ItemSeparator(int index, bool separator) { at(index).separator = separator; }

    [[nodiscard]] bool ItemEnabled(int index) const { return at(index).enabled; }

    void ItemEnabled(int index, bool enabled) { at(index).enabled = enabled; }

    [[nodiscard]] bool ItemChecked(int index) const { return at(index).checked; }

    void ItemChecked(int index, bool checked) { at(index).checked = checked; }

    /// Whether the item is one that can be checked: screen readers tell it.
    void ItemCheckable(int index, bool checkable) { at(index).checkable = checkable; }

    [[nodiscard]] bool ItemVisible(int index) const { return at(index).visible; }

    void ItemVisible(int index, bool visible) { at(index).visible = visible; }

    [[nodiscard]] CheckedStyle ItemCheckedStyle(int index) const { return at(index).checkedStyle; }

    void ItemCheckedStyle(int index, CheckedStyle style) { at(index).checkedStyle = style; }

    [[nodiscard]] const std::string& ItemTag(int index) const { return at(index).tag; }

    void ItemTag(int index, const std::string& tag) { at(index).tag = tag; }

    [[nodiscard]] bool ItemOwnerDraw(int index) const {
        return ItemOwnerDrawAll || at(index).ownerDraw;
    }

    void ItemOwnerDraw(int index, bool draws) { at(index).ownerDraw = draws; }

    [[nodiscard]] int ItemOwnerDrawID(int index) const { return at(index).ownerDrawId; }

    void ItemOwnerDrawID(int index, int id) { at(index).ownerDrawId = id; }

    [[nodiscard]] const std::string& ItemOwnerDrawData(int index) const {
        return at(index).ownerDrawData;
    }

    void ItemOwnerDrawData(int index, const std::string& data) { at(index).ownerDrawData = data; }

    /// A key that has the item's effect anyway; shown while the item has no accelerator.
    void ItemFixedKey(int index, const std::string& text) { at(index).fixedKey = text; }

    // Accelerators --------------------------------------------------------------------------------

    [[nodiscard]] const std::string& ItemKeyAccel(int index) const { return at(index).accelerator; }

    /// Returns whether the item has that accelerator now. Refused, with nothing changed: for a
    /// separator, for an index that is not valid, for a text with a NUL and for an accelerator that
    /// another item has. Empty takes it away.
    bool ItemKeyAccel(int index, std::string_view accelerator);

    /// Whether an accelerator was changed since the last `LoadShortcuts` or `SaveShortcuts`.
    [[nodiscard]] bool acceleratorsChanged() const noexcept { return acceleratorsChanged_; }

    /// Replaces the file as a whole. Returns true; raises the error of a failure to write.
    bool SaveShortcuts(const std::string& fileName);

    /// Returns whether the file was there and all of it was understood. What comes before
    /// something unknown applies. Raises the error of a failure to read.
    bool LoadShortcuts(const std::string& fileName);

    /// What stands in such a file.
    [[nodiscard]] std::string shortcutBytes() const;
    bool applyShortcuts(std::string_view bytes);

    /// The window whose keys are looked at for accelerators (`ui::messages::kKeyDown`: key code in
    /// `wParam`, shift state as `AcceleratorKey` has it in `lParam`); null: none. It need not
    /// outlive the menus.
    void hWndKeyOwner(ui::MessageWindow* window);

    [[nodiscard]] ui::MessageWindow* hWndKeyOwner() const noexcept { return keyOwner_; }

    /// A key went down. Chooses the visible item whose accelerator it is, if it is enabled.
    /// Returns whether there is such an item.
    bool KeyAccelPressed(int keyCode, int shift);

    /// The visible, enabled item below one whose mnemonic is that letter of ASCII; 0: none.
    [[nodiscard]] int AccelPressed(char letter, int parentIndex) const;

    // Messages ------------------------------------------------------------------------------------

    /// Who hears that an item was chosen.
    void onClick(std::function<void(int index)> click) { click_ = std::move(click); }

    void After(ui::MessageResult& result, ui::MessageWindow& window,
               const ui::WindowMessage& message) override {
        ISuperClass_After(result, window, message);
    }

    void Before(bool& handled, ui::MessageResult& result, ui::MessageWindow& window,
                const ui::WindowMessage& message) override {
        ISuperClass_Before(handled, result, window, message);
    }

    void ISuperClass_After(ui::MessageResult& result, ui::MessageWindow& window,
                           const ui::WindowMessage& message);
    void ISuperClass_Before(bool& handled, ui::MessageResult& result, ui::MessageWindow& window,
                            const ui::WindowMessage& message);

private:
    [[nodiscard]] const clsStoreMenu& at(int index) const;
    [[nodiscard]] clsStoreMenu& at(int index);
    [[nodiscard]] bool isIndex(int index) const noexcept;
    void numberItemsBelow(int parentId);
    bool measure(const ui::WindowMessage& message) const;
    bool draw(const ui::WindowMessage& message) const;

    std::vector<clsStoreMenu> items_;
    ui::MessageWindow* window_ = nullptr;
    ui::MessageWindow* keyOwner_ = nullptr;
    MenuFacility* facility_ = nullptr;
    std::function<void(int)> click_;
    int lastId_ = 0;
    int currentId_ = 0;
    bool acceleratorsChanged_ = false;
    ui::cSuperClass superClass_;
    ui::cSuperClass keySuperClass_;
};

} // namespace tovik::menus
