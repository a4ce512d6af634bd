// SPDX-License-Identifier: GPL-3.0-or-later
// Writes Windows bitmaps, as the published description of the BITMAPFILEHEADER and
// BITMAPINFOHEADER structures has them. Any thread.
#pragma once

#include <QImage>
#include <string>

namespace tovik::skinart {

/// 24 bits a pixel, rows from the bottom upward, each filled up to four bytes.
[[nodiscard]] std::string bitmapBytes(const QImage& image);

} // namespace tovik::skinart
