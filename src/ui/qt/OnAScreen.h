// SPDX-License-Identifier: GPL-3.0-or-later
// Places of windows from an earlier session, on the screens of this one. Interface thread.
#pragma once

#include <QPoint>
#include <QSize>

namespace tovik::ui {

/// Where a window of that size, left and top at `wanted`, is as a whole on a screen that exists:
/// that with its corner, or else the first one.
[[nodiscard]] QPoint onAScreen(QPoint wanted, QSize size);

/// How much room for windows the screen with that place has, or else the first one.
[[nodiscard]] QSize roomAt(QPoint place);

} // namespace tovik::ui
