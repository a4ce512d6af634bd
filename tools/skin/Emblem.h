// SPDX-License-Identifier: GPL-3.0-or-later
// The program's mark: the letter T, made of bars of sound. Any thread.
#pragma once

#include <QPainterPath>

namespace tovik::skinart {

/// Five bars, in a square of 16.
[[nodiscard]] QPainterPath emblemPath();

} // namespace tovik::skinart
