// SPDX-License-Identifier: GPL-3.0-or-later
// The families of pictures, one file each. Any thread.
#pragma once

#include "PictureSet.h"

namespace tovik::skinart {

[[nodiscard]] Drawings areaDrawings();       ///< the body and the areas that lie on it
[[nodiscard]] Drawings sourceDrawings();     ///< scroller, spectrum and slider
[[nodiscard]] Drawings glyphDrawings();      ///< the two strips of characters
[[nodiscard]] Drawings digitDrawings();      ///< the digits of the time, minus and colon
[[nodiscard]] Drawings tabDrawings();        ///< the six tabs
[[nodiscard]] Drawings transportDrawings();  ///< buttons of the transport and of the window
[[nodiscard]] Drawings modeDrawings();       ///< the four switches of the modes
[[nodiscard]] Drawings indicatorDrawings();  ///< their indicators in the display
[[nodiscard]] Drawings flatButtonDrawings(); ///< buttons with a single look
[[nodiscard]] Drawings barDrawings();        ///< position, volume and balance
[[nodiscard]] Drawings equalizerDrawings();  ///< ground, slots and scales of the equalizer
[[nodiscard]] Drawings miniDrawings();       ///< the mini window: its body and the transport
[[nodiscard]] Drawings miniDigitDrawings();  ///< its digits
[[nodiscard]] Drawings miniWindowPictures(); ///< what no file of a skin gives it
[[nodiscard]] Drawings miniSignDrawings();   ///< minus and colon, likewise

} // namespace tovik::skinart
