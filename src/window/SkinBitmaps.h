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

/// A bitmap of the skin's folder, and by what its larger sizes are found; see
/// `skin::picturePrint`.
struct SkinBitmap {
    ui::PixelImage image;
    std::uint64_t print = 0;
};

/// Reads the bitmap of a name. The error of one that is missing or none names the file.
[[nodiscard]] SkinBitmap loadSkinBitmap(const host::Paths& paths, std::string_view name);

} // namespace tovik::window
