// SPDX-License-Identifier: GPL-3.0-or-later
// What a desktop tells of the mouse on an icon, whichever way it shows it. Interface thread.
#pragma once

#include <functional>
#include <string>

namespace tovik::tray {

struct TrayClicks {
    std::function<void()> left;
    std::function<void()> leftTwice;
    std::function<void()> right;
    std::function<void()> middle;
    std::function<void(double notches)> wheel; ///< positive away from the user
};

/// What an icon shows.
struct TrayLook {
    int style = 1;       ///< of the pictures
    std::string tooltip; ///< bytes: valid UTF-8, or else Windows-1252
};

} // namespace tovik::tray
