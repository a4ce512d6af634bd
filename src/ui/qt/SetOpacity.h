// SPDX-License-Identifier: GPL-3.0-or-later
// Windows that let shine through what lies behind them. Interface thread.
#pragma once

#include <optional>
#include <QWidget>

namespace tovik::ui {

/// How opaque such a window is, from 0 to 255, for 0 to 99 percent (halves go to the even number).
/// Nothing for any other value: that window is a plain one.
[[nodiscard]] std::optional<int> layerAlpha(int percent);

/// Makes a window that opaque, or a plain one. At 0 it is there all the same, and takes the mouse.
/// Not every window system can do it; without, the window stays opaque.
void SetOpacity(QWidget& window, int percent);

} // namespace tovik::ui
