// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures that are part of the program: no file of a skin holds them. Interface thread.
#pragma once

#include "ui/PictureStore.h"

#include <QIcon>
#include <string>
#include <string_view>

namespace tovik::app {

/// The bitmap of one of the window's own pictures; empty when there is none of that name.
[[nodiscard]] std::string windowPicture(std::string_view name);

/// A picture for dense screens, for `PictureStore::takeFineFrom`: what is shipped is drawn in two
/// larger sizes.
[[nodiscard]] ui::PixelImage finePicture(std::uint64_t print, int factor);

/// Drawn for each size, the small ones on whole pixels.
[[nodiscard]] QIcon programIcon();

} // namespace tovik::app
