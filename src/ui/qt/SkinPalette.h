// SPDX-License-Identifier: GPL-3.0-or-later
// The colours of dialogs and boxes. Interface thread.
#pragma once

#include <QPalette>

namespace tovik::ui {

/// Those of the light cards of the window, with its ink for words. How a dialog is built and what
/// it does stays the desktop's.
[[nodiscard]] QPalette skinPalette();

} // namespace tovik::ui
