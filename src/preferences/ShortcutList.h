// SPDX-License-Identifier: GPL-3.0-or-later
// The page of shortcuts: the fixed keys of the player and of its lists, and the accelerators of the
// menus, which can be changed. Interface thread.
#pragma once

#include "commands/CommandTable.h"
#include "menus/Accelerator.h"
#include "menus/cMenus.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tovik::preferences {

/// As many as a language has names for.
inline constexpr std::size_t kShortcuts = 36;

/// The menus whose accelerators can be changed.
struct AcceleratorMenus {
    menus::cMenus* menus = nullptr; ///< outlives who changes them; null: there are none

    /// The index of a command's entry; 0 for a command without one.
    std::function<int(commands::CommandId)> entryOf{};

    /// Brings the captions up to date; empty: they are.
    std::function<void()> refresh{};

    /// Whether changes will be found again at the next start; empty: they will.
    std::function<bool()> kept{};
};

struct ShortcutRow {
    commands::CommandId command{}; ///< none: a key of the lists
    std::string fixedKey{};        ///< has its effect whatever the accelerator is
    int entry = 0;                 ///< of the menus; 0: it cannot be changed
    std::string accelerator{};     ///< as it is to be; empty: none
};

/// What is changed here reaches the menus with `apply`.
class ShortcutList {
public:
    /// Before the first `load`.
    void attach(AcceleratorMenus menus) { menus_ = std::move(menus); }

    /// Takes the rows from the menus as they are, and drops what was changed.
    void load();

    [[nodiscard]] const std::vector<ShortcutRow>& rows() const { return rows_; }

    /// Whether what is changed will be found again at the next start.
    [[nodiscard]] bool kept() const { return !menus_.kept || menus_.kept(); }

    /// The entry that has the fixed key of a row for its accelerator, as its menu calls it; empty
    /// when none has.
    [[nodiscard]] std::string takerOf(std::size_t row) const;

    [[nodiscard]] bool changeable(std::size_t row) const { return rows_.at(row).entry != 0; }

    /// What became of new keys.
    struct Answer {
        bool taken = false;
        std::string owner{}; ///< of the keys, as its menu calls it: they were refused

        /// The row that has them as its fixed key, though the accelerator comes first.
        std::optional<std::size_t> hidden{};
    };

    /// Gives a row other keys. Refused for a row that cannot be changed, for keys without a name
    /// and for those of another entry.
    Answer set(std::size_t row, const menus::AcceleratorKey& key);

    /// Takes the accelerator of a row away.
    void clear(std::size_t row) { give(row, {}); }

    /// The accelerators go to the menus.
    void apply();

private:
    [[nodiscard]] const std::string& acceleratorOf(int entry) const;
    void give(std::size_t row, const std::string& accelerator);

    AcceleratorMenus menus_;
    std::vector<ShortcutRow> rows_;
};

} // namespace tovik::preferences
