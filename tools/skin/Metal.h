// SPDX-License-Identifier: GPL-3.0-or-later
// The brushed metal that the bodies of both windows are made of, and what is worked into it. All
// sizes are skin pixels. Any thread.
#pragma once

#include <QPainter>

namespace tovik::skinart {

/// A window's whole shell, and a little more round it, as its edge is cut without smoothing. Light
/// lies on its first `sheen` pixels.
void paintMetal(QPainter& painter, const QRectF& window, double sheen);

/// The head of a screw.
void paintScrew(QPainter& painter, QPointF middle, double radius);

/// A shallow bed for a row of buttons.
void paintBed(QPainter& painter, const QRectF& box, double radius);

} // namespace tovik::skinart
