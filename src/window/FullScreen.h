// SPDX-License-Identifier: GPL-3.0-or-later
// A picture over a whole screen. Interface thread.
#pragma once

#include "ui/PictureStore.h"

#include <functional>

namespace tovik::window {

class FullScreen {
public:
    /// What the user does there.
    struct Input {
        std::function<void()> leave;               ///< Escape, a double click, or it was closed
        std::function<void(int x, int y)> clicked; ///< the left button went down, in its pixels
        std::function<void()> cameInSight;         ///< told rather too often
    };

    /// It goes with the object, also in a call of its own.
    virtual ~FullScreen() = default;

    // In pixels of the pictures to be shown.
    [[nodiscard]] virtual int width() const = 0;
    [[nodiscard]] virtual int height() const = 0;

    /// Whether anyone can see it.
    [[nodiscard]] virtual bool visible() const = 0;

    /// Shows an image of that size, which stays where it is until the next one is shown.
    virtual void show(const ui::PixelImage& image) = 0;
};

} // namespace tovik::window
