// SPDX-License-Identifier: GPL-3.0-or-later
// The window as it will look, composed from the drawings. Needs a QGuiApplication for its words.
#pragma once

#include <QImage>

namespace tovik::skinart {

/// The panel from 1 (main) to 5 (radio); 6 is the main panel with the quick list open.
[[nodiscard]] QImage previewOf(int panel, int scale);

} // namespace tovik::skinart
