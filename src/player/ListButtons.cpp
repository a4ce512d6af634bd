// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/ListButtons.h"

namespace tovik::player {

void ListButtons::clrIMG_Click() {
    if (!core_.state.DirAddIdle) {
        openDirectory_.cancel();
    }
    files_.stopAutoload();
    core_.lists.stdSS.Clear();
}

void ListButtons::delIMG_Click() {
    core_.lists.stdSS.Remove(core_.lists.stdSS.SelectedIndex);
}

} // namespace tovik::player
