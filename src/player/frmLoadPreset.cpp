// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/frmLoadPreset.h"

namespace tovik::player {

void frmLoadPreset::Form_Load() {
    names_.clear();
    store_.presetNames(names_);
}

bool frmLoadPreset::Command1_Click(Button button, std::int32_t row) {
    if (button == Button::cancel) {
        return true;
    }
    if (row < 0) {
        return false;
    }
    store_.loadPreset(row + 1);
    return button == Button::load;
}

} // namespace tovik::player
