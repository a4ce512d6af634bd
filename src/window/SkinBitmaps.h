// SPDX-License-Identifier: GPL-3.0-or-later
// The bitmaps of the skin's folder, by name. Interface thread.
#pragma once

#include "host/Paths.h"
#include "ui/PictureStore.h"

#include <string>
#include <string_view>

namespace tovik::window {

/// Where the bitmap of a name lies, which has no ending.
[[nodiscard]] std::string skinBitmapPath(const host::Paths& paths, std::string_view name);

/// Reads a bitmap. The error of one that is missing or none names the file.
[[nodiscard]] ui::PixelImage loadSkinBitmap(const std::string& path);

} // namespace tovik::window
