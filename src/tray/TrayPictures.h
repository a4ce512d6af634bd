// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the icon in the tray, which are part of the program. Interface thread.
#pragma once

#include <QImage>
#include <vector>

namespace tovik::tray {

/// A style from 1, in the sizes that panels ask for, the smallest first; empty for no style.
[[nodiscard]] std::vector<QImage> trayPictures(int style);

} // namespace tovik::tray
