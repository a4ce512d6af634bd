// SPDX-License-Identifier: GPL-3.0-or-later
// How an element looks as long as it has no picture: flat panels, rounded buttons, plain text.
// Interface thread.
#pragma once

#include "ui/Element.h"

#include <QPainter>

namespace tovik::ui {

/// A caption may be taller than its element: a plain element paints into its box and this many
/// skin pixels round it.
inline constexpr double kPlainOverflow = 3;

struct PlainState {
    bool ground = false;  ///< the window itself: no rounded corners
    bool hovered = false; ///< the pointer is over it
};

inline constexpr double kDisabledOpacity = 0.45;

/// Draws the record in skin pixels of the window, whatever its visibility says.
void drawPlain(QPainter& painter, const Element& element, PlainState state);

/// Draws the record's small words, at any scale in the size of the display's glyphs.
void drawSmallText(QPainter& painter, const Element& element);

/// Draws a slider's bar into `bar`, in skin pixels of the window.
void drawPlainSliderBar(QPainter& painter, const Element& element, const Box& bar);

} // namespace tovik::ui
