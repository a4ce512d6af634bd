// SPDX-License-Identifier: GPL-3.0-or-later
// Small shapes given pixel by pixel, which stay sharp at any scale. Any thread.
#pragma once

#include <QPainter>
#include <string>
#include <vector>

namespace tovik::skinart {

/// Rows of equal length; "X" is a pixel that is set.
using PixelRows = std::vector<std::string>;

/// Paints the set pixels from a corner that lies on a whole pixel. At twice the size the slopes
/// are drawn finer, by the rule known as Scale2x: a quarter takes the value of its two neighbours
/// where these agree and the other two differ.
void paintPixels(QPainter& painter, QPoint corner, const PixelRows& rows, QRgb colour);

} // namespace tovik::skinart
