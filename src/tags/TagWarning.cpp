// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagWarning.h"

namespace tovik::tags {

void TagWarning::showOnce() {
    if (!TagWarned) {
        dialogs_.showMessage(
            {.text = "Can't modify tags , file is read only", .title = host::kProgramTitle});
        TagWarned = true;
    }
}

void TagWarning::showWhileSaving() {
    if (TagSaving) {
        showOnce();
    }
}

} // namespace tovik::tags
