// SPDX-License-Identifier: GPL-3.0-or-later
// What the screens can show, as the window system tells it. Interface thread.
#pragma once

#include <vector>

namespace tovik::host {

/// A size and a rate that a screen can have.
struct DisplayMode {
    int width = 0; ///< this and the height in pixels of the screen
    int height = 0;
    int bitsPerPixel = 0;
    int hertz = 0; ///< pictures a second; 0 or 1 where the screen decides

    friend bool operator==(const DisplayMode&, const DisplayMode&) = default;
};

class DisplayModes {
public:
    virtual ~DisplayModes() = default;

    /// All modes, in the order of the window system; empty without a screen.
    [[nodiscard]] virtual std::vector<DisplayMode> all() const = 0;

    /// The mode in force; all 0 without a screen.
    [[nodiscard]] virtual DisplayMode current() const = 0;
};

} // namespace tovik::host
