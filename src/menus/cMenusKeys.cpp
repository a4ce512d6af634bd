// SPDX-License-Identifier: GPL-3.0-or-later
// Accelerators, their file, and mnemonics.
#include "base/AtomicFile.h"
#include "base/FileErrors.h"
#include "base/RegularFile.h"
#include "base/Text.h"
#include "menus/Accelerator.h"
#include "menus/cMenus.h"
#include "menus/ShortcutFile.h"
#include "ui/Mnemonic.h"

#include <charconv>

namespace tovik::menus {

namespace {

/// More than any such file has; another file is not read whole to find that out.
constexpr std::int64_t kMostBytes = 1 << 20;

/// 0 for what is no number.
int numberOf(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? number : 0;
}

} // namespace

int cMenus::IndexForKeyAccel(std::string_view accelerator) const {
    for (int index = 1; index <= ItemCount(); ++index) {
        if (sameAccelerator(at(index).accelerator, accelerator)) {
            return index;
        }
    }
    return 0;
}

bool cMenus::ItemKeyAccel(int index, std::string_view accelerator) {
    if (!isIndex(index) || at(index).separator ||
        accelerator.find('\0') != std::string_view::npos) {
        return false;
    }
    if (at(index).accelerator == accelerator) {
        return true;
    }
    const int owner = IndexForKeyAccel(accelerator);
    if (owner != 0 && owner != index) {
        return false;
    }
    at(index).accelerator = accelerator;
    acceleratorsChanged_ = true;
    return true;
}

std::string cMenus::shortcutBytes() const {
    ShortcutWriter writer;
    for (int index = 1; index <= ItemCount(); ++index) {
        const clsStoreMenu& item = at(index);
        if (item.key.empty()) {
            writer.add(index, item.accelerator);
        } else {
            writer.add(item.key, item.accelerator);
        }
    }
    return writer.bytes();
}

bool cMenus::applyShortcuts(std::string_view bytes) {
    return readShortcuts(bytes, [this](const ShortcutRecord& record) {
        ItemKeyAccel(record.byKey ? IndexForKey(record.item) : numberOf(record.item),
                     record.accelerator);
    });
}

bool cMenus::SaveShortcuts(const std::string& fileName) {
    base::raiseFailure(base::replaceFile(fileName, shortcutBytes(), base::Flush::Yes));
    acceleratorsChanged_ = false;
    return true;
}

bool cMenus::LoadShortcuts(const std::string& fileName) {
    std::string bytes;
    const std::error_code failure = base::readWholeFile(fileName, bytes, kMostBytes);
    if (failure == std::errc::no_such_file_or_directory) {
        return false;
    }
    base::raiseFailure(failure);
    const bool understood = applyShortcuts(bytes);
    acceleratorsChanged_ = false;
    return understood;
}

void cMenus::hWndKeyOwner(ui::MessageWindow* window) {
    keySuperClass_.UnSubclass();
    keyOwner_ = window;
    if (window != nullptr) {
        keySuperClass_.AddMsg(ui::messages::kKeyDown);
        keySuperClass_.SubClass(*window, *this, false);
    }
}

bool cMenus::KeyAccelPressed(int keyCode, int shift) {
    const int index = IndexForKeyAccel(acceleratorText({.keyCode = keyCode, .shift = shift}));
    if (index == 0) {
        return false;
    }
    const int id = at(index).id;
    // The item's state is set just before it counts.
    if (window_ != nullptr) {
        window_->send({ui::messages::kInitMenuPopup, at(index).parentId});
    }
    const int now = IndexForID(id);
    if (now == 0 || !at(now).visible) {
        return false;
    }
    if (window_ != nullptr && at(now).enabled) {
        window_->send({ui::messages::kCommand, id});
    }
    return true;
}

int cMenus::AccelPressed(char letter, int parentIndex) const {
    for (const int index : itemsBelow(parentIndex)) {
        const clsStoreMenu& item = at(index);
        const ui::Mnemonic mnemonic = ui::mnemonicOf(item.caption);
        if (item.visible && item.enabled && !item.separator && mnemonic.letter &&
            base::equalsIgnoringCase(mnemonic.text.substr(*mnemonic.letter, 1),
                                     std::string_view(&letter, 1))) {
            return index;
        }
    }
    return 0;
}

} // namespace tovik::menus
