// SPDX-License-Identifier: GPL-3.0-or-later
// What X11 knows of the outline of windows, and Qt has no words for. Interface thread.
#pragma once

#include <QRegion>
#include <QWindow>

namespace tovik::ui {

/// Whether windows can be given an outline in pixels of the screen: those of X11 can.
[[nodiscard]] bool hasNativeShape();

/// Whether windows are blended with what is behind them: under X11 a compositing manager does it,
/// and there need not be one. Waits for the X server's answer; elsewhere always.
[[nodiscard]] bool windowsAreBlended();

/// Shows only these pixels of a window, in pixels of the screen, and takes the mouse only there, in
/// the place of any mask. Only where `hasNativeShape`.
void setNativeShape(const QWindow& window, const QRegion& pixels);

} // namespace tovik::ui
