// SPDX-License-Identifier: GPL-3.0-or-later
// What stands for the program outside its window: its icon and the picture shown at its start. Any
// thread.
#pragma once

#include <QImage>

namespace tovik::skinart {

/// The icon, transparent round its edge, that many pixels wide and high.
[[nodiscard]] QImage programIcon(int size);

/// The picture of the start, 300 by 200 times the scale.
[[nodiscard]] QImage splashPicture(int scale);

} // namespace tovik::skinart
