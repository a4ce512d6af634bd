// SPDX-License-Identifier: GPL-3.0-or-later
// The picture shown at the program's start. Any thread.
#pragma once

#include <QImage>

namespace tovik::skinart {

/// The picture of the start, 300 by 200 times the scale.
[[nodiscard]] QImage splashPicture(int scale);

} // namespace tovik::skinart
