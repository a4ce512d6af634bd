// SPDX-License-Identifier: GPL-3.0-or-later
// What the elements of the main window are to the keyboard and to screen readers. Any thread.
#pragma once

#include "ui/AccessList.h"
#include "ui/MainElements.h"

#include <vector>

namespace tovik::window {

/// All that act or tell, in the order of sight: tabs, the window's buttons, the panel (its left
/// column first), the transport.
[[nodiscard]] std::vector<ui::AccessPlace> mainAccess();

} // namespace tovik::window
