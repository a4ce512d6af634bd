// SPDX-License-Identifier: GPL-3.0-or-later
// The body of the mini window, and the boxes of its elements. Any thread.
#pragma once

#include "window/MiniElements.h"

#include <cstddef>
#include <QPainter>
#include <QPainterPath>

namespace tovik::skinart {

/// Where the layout of the mini window places an element, cut to whole pixels. Raises 9 for an
/// index that it lacks.
[[nodiscard]] QRectF miniRectOf(window::MiniElement name, std::size_t index = 0);

/// What is inside is window; in skin pixels.
[[nodiscard]] QPainterPath miniOutline();

/// The whole body, in the window's coordinates, without a hole outside the outline.
void paintMiniBody(QPainter& painter);

/// The part of the body that lies under a box of the window, for a picture of that box.
void paintMiniBodyUnder(QPainter& painter, const QRectF& box);

} // namespace tovik::skinart
