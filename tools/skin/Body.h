// SPDX-License-Identifier: GPL-3.0-or-later
// The window's body: its outline, its shell and the deck on which the panels lie. Any thread.
#pragma once

#include <QPainter>
#include <QPainterPath>

namespace tovik::skinart {

/// What is inside is window; in skin pixels.
[[nodiscard]] QPainterPath bodyOutline();

/// The whole body, in the window's coordinates, without a hole outside the outline.
void paintBody(QPainter& painter);

/// The edge of a shell of that height.
void paintRim(QPainter& painter, const QPainterPath& outline, double height);

/// The part of what `paint` paints, in a window's coordinates, that lies under a box of it.
void paintPart(QPainter& painter, const QRectF& box, void (*paint)(QPainter&));

/// The part of the body that lies under a box of the window, for a picture of that box.
void paintBodyUnder(QPainter& painter, const QRectF& box);

} // namespace tovik::skinart
