// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog with the names of the presets, as logic. Interface thread.
#pragma once

#include "player/EqualizerStore.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tovik::player {

class frmLoadPreset {
public:
    /// What the buttons `Command1` are for, by index.
    enum class Button : std::uint8_t { load, cancel, apply };

    /// Kept by reference.
    explicit frmLoadPreset(EqualizerStore& store) : store_(store) {}

    /// Fills the list. Raises 94 for settings without presets or with one missing; the names in
    /// front of it are in the list then.
    void Form_Load();

    /// The names, row by row.
    [[nodiscard]] const std::vector<std::string>& List1() const { return names_; }

    /// A button was pressed while that row was selected, counted from 0; -1 is none. Without a row
    /// load and apply do nothing. Returns whether the dialog closes. Raises what applying a preset
    /// raises.
    bool Command1_Click(Button button, std::int32_t row);

private:
    EqualizerStore& store_;
    std::vector<std::string> names_;
};

} // namespace tovik::player
