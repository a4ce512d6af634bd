// SPDX-License-Identifier: GPL-3.0-or-later
// The symbols that plain buttons bear, drawn as outlines so that no font is asked for them.
// Interface thread.
#pragma once

#include <QColor>
#include <QPainter>
#include <QString>

namespace tovik::ui {

/// Draws the symbol in the middle of the box; false when the text is not one that is known.
[[nodiscard]] bool drawSymbol(QPainter& painter, const QString& text, const QRectF& box,
                              const QColor& colour);

} // namespace tovik::ui
