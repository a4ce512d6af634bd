// SPDX-License-Identifier: GPL-3.0-or-later
// The two layouts of the quick list on the main panel. Interface thread.
#pragma once

#include "ui/MainElements.h"

namespace tovik::player {

/// Places the quick list and what it covers: over the whole column when open, below the track's
/// fields when not.
void ApplyQuickList(ui::MainElements& elements, bool open);

} // namespace tovik::player
