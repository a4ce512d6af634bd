// SPDX-License-Identifier: GPL-3.0-or-later
// A strip of glyphs for tests: every pixel says where it stands.
#pragma once

#include "ui/PictureStore.h"

namespace tovik::ui::test {

/// The pixel of the strip at (x, y); `mark` tells strips apart.
constexpr std::uint32_t stripPixel(int x, int y, std::uint32_t mark = 0) {
    return 0xFF000000U | mark << 16 | static_cast<std::uint32_t>(y) << 8 |
           static_cast<std::uint32_t>(x);
}

inline PixelImage strip(std::uint32_t mark = 0) {
    PixelImage image{155, 18, {}};
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            image.pixels.push_back(stripPixel(x, y, mark));
        }
    }
    return image;
}

} // namespace tovik::ui::test
