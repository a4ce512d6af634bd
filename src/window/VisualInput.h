// SPDX-License-Identifier: GPL-3.0-or-later
// What the mouse does on the area of the visualisation; who shows one implements it. Interface
// thread.
#pragma once

namespace tovik::window {

class VisualInput {
public:
    virtual ~VisualInput() = default;

    /// The left button went down there, from the area's upper left corner, in skin pixels.
    virtual void clickVisual(int x, int y) = 0;

    /// It went down twice.
    virtual void doubleClickVisual() = 0;
};

} // namespace tovik::window
