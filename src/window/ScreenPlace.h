// SPDX-License-Identifier: GPL-3.0-or-later
// A place on the screen, and a size, as the desktop tells them. Any thread.
#pragma once

namespace tovik::window {

/// In pixels of the desktop, which are not those of the skin.
struct ScreenPlace {
    int left = 0;
    int top = 0;

    friend bool operator==(const ScreenPlace&, const ScreenPlace&) = default;
};

/// In the same pixels.
struct ScreenSize {
    int width = 0;
    int height = 0;

    friend bool operator==(const ScreenSize&, const ScreenSize&) = default;
};

} // namespace tovik::window
