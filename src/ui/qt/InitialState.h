// SPDX-License-Identifier: GPL-3.0-or-later
// How a window begins when it is shown the next time. Interface thread.
#pragma once

#include <QWindow>

namespace tovik::ui {

/// As a window, although it was minimised before it was hidden: under X11 the hint by which it went
/// to the task bar stays behind otherwise, and it would come there again. Nothing elsewhere.
void beginAsWindow(const QWindow& window);

} // namespace tovik::ui
