// SPDX-License-Identifier: GPL-3.0-or-later
// The colours of the desktop by the published numbers of system colours. Interface thread.
#pragma once

#include "ui/Element.h"

#include <optional>

namespace tovik::ui {

/// From the desktop's palette; nothing for a number that it has no colour for.
[[nodiscard]] std::optional<Colour> systemColour(int number);

} // namespace tovik::ui
