// SPDX-License-Identifier: GPL-3.0-or-later
// The unit in which places of windows are stored. Any thread.
#pragma once

namespace tovik::ui {

/// Fixed, whatever the screen's density is.
inline constexpr int kTwipsPerPixel = 15;

} // namespace tovik::ui
