// SPDX-License-Identifier: GPL-3.0-or-later
// Whether the digits tell the time played or the time left. Interface thread.
#pragma once

#include "player/Core.h"

#include <cstdint>

namespace tovik::window {

class TimeDisplay {
public:
    static constexpr std::int16_t kElapsed = 0;
    static constexpr std::int16_t kRemaining = 1;

    /// Kept by reference.
    explicit TimeDisplay(const player::Core& core) : core_(core) {}

    /// Sets the mode. The minus sign stands before the digits unless it is `kElapsed`; the digits
    /// follow at the clock's next tick.
    void choose(std::int16_t mode) {
        core_.state.TimeDisplayMode = mode;
        core_.screen.playing.countsDown = mode != kElapsed;
        core_.screen.showTime();
    }

    /// A double click on the digits: the other of the two modes.
    void flip() { choose(core_.state.TimeDisplayMode == kElapsed ? kRemaining : kElapsed); }

private:
    const player::Core& core_;
};

} // namespace tovik::window
