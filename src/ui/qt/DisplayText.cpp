// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/DisplayText.h"

#include "base/Windows1252.h"

namespace tovik::ui {

QString displayString(std::string_view bytes) {
    return QString::fromStdString(base::displayText(bytes));
}

QColor qtColour(Colour colour) {
    return {colour.red, colour.green, colour.blue};
}

} // namespace tovik::ui
