// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of a skin: Windows bitmaps, as the published description of the BITMAPFILEHEADER,
// BITMAPCOREHEADER and BITMAPINFOHEADER structures and their later forms has them. Interface
// thread.
#pragma once

#include "ui/PictureStore.h"

#include <string>
#include <string_view>

namespace tovik::skin {

/// The largest picture that is read: pixels along one side, and in all (64 MiB of them).
inline constexpr int kMostBitmapSide = 16384;
inline constexpr std::int64_t kMostBitmapPixels = std::int64_t{1} << 24;

/// A bitmap from its bytes: 1, 4, 8, 16, 24 or 32 bits a pixel, plain, with masks or run-length
/// coded, in either order of rows. Pixels of the window's key colour become transparent, all
/// others are opaque. Raises 481 for anything else and for a file that ends early.
[[nodiscard]] ui::PixelImage readBitmap(std::string_view bytes);

/// The bytes of a bitmap's file. Raises 53 when there is none, 481 for a file that is too large,
/// and otherwise the failure of reading.
[[nodiscard]] std::string bitmapFile(const std::string& path);

/// A bitmap from a file. Raises what the two others raise.
[[nodiscard]] ui::PixelImage loadBitmap(const std::string& path);

} // namespace tovik::skin
