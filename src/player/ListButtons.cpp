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

/// A deliberate oddity: marked rows stay, unless `Comfort::deletesMarkedRows` takes them, too.
void ListButtons::delIMG_Click() {
    if (core_.state.comfort.deletesMarkedRows) {
        core_.lists.stdSS.MultiIzbris();
    } else {
        core_.lists.stdSS.Remove(core_.lists.stdSS.SelectedIndex);
    }
}

} // namespace tovik::player
