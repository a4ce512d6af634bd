// SPDX-License-Identifier: GPL-3.0-or-later
// The program's mark: the letter T as bars of sound that hang from a beam. Any thread.
#pragma once

#include <QPainterPath>

namespace tovik::skinart {

/// The beam and the bars, in a square of 16.
[[nodiscard]] QPainterPath emblemPath();

} // namespace tovik::skinart
