// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes and colours of records as Qt has them. Interface thread.
#pragma once

#include "ui/Element.h"

#include <QColor>
#include <QString>
#include <string_view>

namespace tovik::ui {

/// Any bytes as people see them: valid UTF-8 is itself, anything else Windows-1252.
[[nodiscard]] QString displayString(std::string_view bytes);

[[nodiscard]] QColor qtColour(Colour colour);

} // namespace tovik::ui
