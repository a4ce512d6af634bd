// SPDX-License-Identifier: GPL-3.0-or-later
// The program's icon, and its icons in the tray. Any thread.
#pragma once

#include <cstdint>
#include <QImage>
#include <QPainter>
#include <QRectF>
#include <string>

namespace tovik::skinart {

/// The badge: the mark on glass, in a frame of the window's metal.
void paintBadge(QPainter& painter, const QRectF& box);

/// The icon at a size in pixels, transparent round the badge. Small ones are drawn on whole pixels,
/// without a frame.
[[nodiscard]] QImage programIcon(int size);

/// The same as a document in SVG.
[[nodiscard]] std::string programIconSvg();

inline constexpr int kTrayStyles = 4;

/// An icon of the tray, style 1 to `kTrayStyles`: the badge, the mark in colour, the mark for dark
/// trays, the mark for light ones.
[[nodiscard]] QImage trayIcon(int style, int size);

} // namespace tovik::skinart
