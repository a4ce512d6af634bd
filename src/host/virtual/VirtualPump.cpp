// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/virtual/VirtualPump.h"

#include "host/Counted.h"

namespace tovik::host {

bool VirtualPump::Step() {
    if (closing_.leaveIfAsked()) {
        return false;
    }
    const Counted step(depth_);
    clock_.fireDue();
    return !closing_.ending();
}

} // namespace tovik::host
