// SPDX-License-Identifier: GPL-3.0-or-later
#include "preferences/frmRipDir.h"

namespace tovik::preferences {

bool frmRipDir::Command1_Click(Button button, const std::string& folder) {
    if (button == Button::ok) {
        if (!mayTake(folder)) {
            return false;
        }
        chosen_ = folder;
    }
    return true;
}

} // namespace tovik::preferences
