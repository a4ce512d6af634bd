// SPDX-License-Identifier: GPL-3.0-or-later
// A place on the screen as the desktop tells it. Any thread.
#pragma once

namespace tovik::window {

/// In pixels of the desktop, which are not those of the skin.
struct ScreenPlace {
    int left = 0;
    int top = 0;

    friend bool operator==(const ScreenPlace&, const ScreenPlace&) = default;
};

} // namespace tovik::window
