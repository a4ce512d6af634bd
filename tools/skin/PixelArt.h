// SPDX-License-Identifier: GPL-3.0-or-later
// Small shapes given pixel by pixel for a plain screen, and as outlines for a finer one. Any
// thread.
#pragma once

#include "Icons.h"

#include <QPainter>
#include <string>
#include <vector>

namespace tovik::skinart {

/// Rows of equal length; "X" is a pixel that is set.
using PixelRows = std::vector<std::string>;

/// Paints the set pixels from a corner that lies on a whole pixel. At a scale above 1 they become
/// strokes of a pixel's width: straight ones keep their edges, and pixels that touch with a corner
/// only, or stand in a stair, are joined by a slope.
void paintPixels(QPainter& painter, QPoint corner, const PixelRows& rows, QRgb colour);

/// The same for pixels that stand for a symbol: at a scale above 1 that symbol takes their place,
/// as wide and as high.
void paintSign(QPainter& painter, QPoint corner, const PixelRows& rows, Icon icon, QRgb colour);

} // namespace tovik::skinart
