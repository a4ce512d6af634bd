// SPDX-License-Identifier: GPL-3.0-or-later
// The colour that stands for "no window here" in the pictures of a skin. Any thread.
#pragma once

#include "ui/Element.h"

namespace tovik::ui {

/// The key colour on a screen of that many bits a pixel: the yellow as such a screen renders it.
/// Black for a depth that has none of its own.
[[nodiscard]] constexpr Colour keyColour(int depth) noexcept {
    switch (depth) {
    case 16:
    case 24:
        return {239, 222, 8};
    case 32:
        return {235, 222, 14};
    default:
        return {};
    }
}

/// The depth that the player's windows have, whatever the screen.
inline constexpr int kWindowDepth = 32;

} // namespace tovik::ui
