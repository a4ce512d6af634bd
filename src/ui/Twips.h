// SPDX-License-Identifier: GPL-3.0-or-later
// The unit in which places of windows are stored. Any thread.
#pragma once

namespace tovik::ui {

/// Fixed, whatever the screen's density is.
inline constexpr int kTwipsPerPixel = 15;

/// What bars add to the place of the pointer: 16 twips, in pixels.
inline constexpr double kPointerWidth = 16.0 / kTwipsPerPixel;

} // namespace tovik::ui
