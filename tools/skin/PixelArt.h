// SPDX-License-Identifier: GPL-3.0-or-later
// Small shapes given pixel by pixel, which stay sharp at any scale. Any thread.
#pragma once

#include <QPainter>
#include <string>
#include <vector>

namespace tovik::skinart {

/// Rows of equal length; "X" is a pixel that is set.
using PixelRows = std::vector<std::string>;

/// Paints the set pixels from a corner that lies on a whole pixel. At an even scale the slopes are
/// drawn finer: a quarter of a pixel takes the value of its two neighbours where a slope runs
/// between them and the pixel's own. Corners and crossings stay as they are.
void paintPixels(QPainter& painter, QPoint corner, const PixelRows& rows, QRgb colour);

} // namespace tovik::skinart
