// SPDX-License-Identifier: GPL-3.0-or-later
// The program's mark: the letter T, made of bars of sound. Any thread.
#pragma once

#include <array>
#include <QPainterPath>
#include <QRectF>

namespace tovik::skinart {

/// Five bars with round ends, in a square of 16.
[[nodiscard]] std::array<QRectF, 5> emblemBars();

/// Their outline.
[[nodiscard]] QPainterPath emblemPath();

} // namespace tovik::skinart
