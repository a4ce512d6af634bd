// SPDX-License-Identifier: GPL-3.0-or-later
#include "preferences/ShortcutList.h"

#include "commands/ClsShortcut.h"
#include "ui/Mnemonic.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tovik::preferences {

namespace {

/// The keys of a list that has the keyboard.
constexpr auto kListKeys = std::to_array<std::string_view>({
    "Down",
    "Up",
    "PgDown",
    "PgUp",
    "Home",
    "End",
    "Return",
    "Del",
    "Alt+Up, Alt+Down",
});

/// One row may tell several keys.
bool tells(std::string_view keys, std::string_view accelerator) {
    constexpr std::string_view kBetween = ", ";
    for (std::size_t end = 0; end != std::string_view::npos;) {
        end = keys.find(kBetween);
        if (menus::sameAccelerator(keys.substr(0, end), accelerator)) {
            return true;
        }
        keys.remove_prefix(std::min(keys.size(), end + kBetween.size()));
    }
    return false;
}

} // namespace

void ShortcutList::load() {
    rows_.clear();
    if (menus_.refresh) {
        menus_.refresh();
    }
    for (const auto& fixed : commands::ClsShortcut::map()) {
        if (fixed.command == commands::CommandId::undoList) {
            continue; // languages name as many rows as there are without it
        }
        ShortcutRow& row = rows_.emplace_back();
        row.command = fixed.command;
        row.fixedKey = menus::acceleratorText({.keyCode = fixed.keyCode, .shift = fixed.shift});
        if (menus_.menus != nullptr) {
            row.entry = menus_.entryOf(fixed.command);
            if (row.entry != 0) {
                row.accelerator = menus_.menus->ItemKeyAccel(row.entry);
            }
        }
    }
    for (const std::string_view key : kListKeys) {
        rows_.emplace_back().fixedKey = key;
    }
}

const std::string& ShortcutList::acceleratorOf(int entry) const {
    const auto row = std::ranges::find(rows_, entry, &ShortcutRow::entry);
    return row == rows_.end() ? menus_.menus->ItemKeyAccel(entry) : row->accelerator;
}

std::string ShortcutList::takerOf(std::size_t row) const {
    const int count = menus_.menus != nullptr ? menus_.menus->ItemCount() : 0;
    for (int entry = 1; entry <= count; ++entry) {
        if (entry != rows_.at(row).entry && tells(rows_.at(row).fixedKey, acceleratorOf(entry))) {
            return ui::mnemonicOf(menus_.menus->ItemCaption(entry)).text;
        }
    }
    return {};
}

void ShortcutList::give(std::size_t row, const std::string& accelerator) {
    const int entry = rows_.at(row).entry;
    for (ShortcutRow& same : rows_) {
        if (entry != 0 && same.entry == entry) {
            same.accelerator = accelerator;
        }
    }
}

ShortcutList::Answer ShortcutList::set(std::size_t row, const menus::AcceleratorKey& key) {
    const std::string text = menus::acceleratorText(key);
    if (!changeable(row) || text.empty()) {
        return {};
    }
    for (int entry = 1; entry <= menus_.menus->ItemCount(); ++entry) {
        if (entry != rows_.at(row).entry && menus::sameAccelerator(acceleratorOf(entry), text)) {
            return {.owner = ui::mnemonicOf(menus_.menus->ItemCaption(entry)).text};
        }
    }
    give(row, text);
    Answer answer{.taken = true};
    for (std::size_t other = 0; other < rows_.size(); ++other) {
        if (rows_.at(other).command != rows_.at(row).command &&
            tells(rows_.at(other).fixedKey, text)) {
            answer.hidden = other;
        }
    }
    return answer;
}

void ShortcutList::apply() {
    const auto changed = [&](const ShortcutRow& row) {
        return row.entry != 0 && menus_.menus->ItemKeyAccel(row.entry) != row.accelerator;
    };
    // Two rows may have changed places: each lets go of its keys before any takes new ones.
    for (const ShortcutRow& row : rows_) {
        if (changed(row)) {
            menus_.menus->ItemKeyAccel(row.entry, {});
        }
    }
    for (const ShortcutRow& row : rows_) {
        if (changed(row)) {
            menus_.menus->ItemKeyAccel(row.entry, row.accelerator);
        }
    }
}

} // namespace tovik::preferences
