// SPDX-License-Identifier: GPL-3.0-or-later
// The symbols that show a thing: lists, discs, files, sound. For `Icons.cpp`. Any thread.
#pragma once

#include "Icons.h"

namespace tovik::skinart {

/// Empty for a symbol of another kind.
[[nodiscard]] QPainterPath thingPath(Icon icon);

} // namespace tovik::skinart
