// SPDX-License-Identifier: GPL-3.0-or-later
// What playing asks of the main window: its number, which the sound device is opened for. Interface
// thread.
#pragma once

#include <cstdint>

namespace tovik::player {

/// As made it is a player without a window.
class PlayerHandle {
public:
    virtual ~PlayerHandle() = default;

    /// The window's number in the window system; 0 without one.
    [[nodiscard]] virtual std::uintptr_t handle() const { return 0; }
};

} // namespace tovik::player
