// SPDX-License-Identifier: GPL-3.0-or-later
// The surfaces that everything is made of. All sizes are skin pixels. Any thread.
#pragma once

#include "Palette.h"

#include <cstdint>
#include <QBrush>
#include <QPainter>
#include <QPainterPath>

namespace tovik::skinart {

/// A brush that runs down the box.
[[nodiscard]] QBrush downwards(const QRectF& box, Shade shade);

[[nodiscard]] QPainterPath rounded(const QRectF& box, double radius);

/// How a button looks.
enum class Look : std::uint8_t {
    Up,
    Over, ///< under the pointer
    Down, ///< pressed
    Off,  ///< a switch that is off
    On,   ///< a switch that is on
};

/// A raised button, with its shadow inside the box.
void paintFace(QPainter& painter, const QRectF& box, Look look, double radius);

/// The colour of a symbol on such a button.
[[nodiscard]] QRgb symbolColour(Look look) noexcept;

/// How far a symbol sinks with its button.
[[nodiscard]] double sunk(Look look) noexcept;

/// A light card; `head` is the height of its title's strip, 0 for none.
void paintCard(QPainter& painter, const QRectF& box, double head);

/// Of the corners of the display.
inline constexpr double kGlassRadius = 7;

/// A sheet of dark glass, sunk into what is around it.
void paintGlass(QPainter& painter, const QRectF& box, double radius);

/// The same in another form; its line lies on the form's edge.
void paintGlass(QPainter& painter, const QPainterPath& shape);

/// A channel cut into a light card.
void paintGroove(QPainter& painter, const QRectF& box, QRgb bottom);

/// What one drags along a groove: bright, with a mark in its middle that lies across or along.
void paintKnob(QPainter& painter, const QRectF& box, const QRectF& mark);

/// A small lamp. One that is lit shines a little beyond its box.
void paintLamp(QPainter& painter, const QRectF& box, QRgb colour, bool lit);

} // namespace tovik::skinart
