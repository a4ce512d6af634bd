// SPDX-License-Identifier: GPL-3.0-or-later
// Pixels of a `PixelImage`: 0xAARRGGBB. Any thread.
#pragma once

#include "ui/PictureStore.h"

namespace tovik::ui {

[[nodiscard]] constexpr std::uint32_t opaquePixel(Colour colour) noexcept {
    return 0xFF000000U | std::uint32_t{colour.red} << 16 | std::uint32_t{colour.green} << 8 |
           colour.blue;
}

/// The colour of an opaque pixel.
[[nodiscard]] constexpr Colour colourOf(std::uint32_t pixel) noexcept {
    return {static_cast<std::uint8_t>(pixel >> 16 & 0xFF),
            static_cast<std::uint8_t>(pixel >> 8 & 0xFF), static_cast<std::uint8_t>(pixel & 0xFF)};
}

[[nodiscard]] constexpr bool isTransparent(std::uint32_t pixel) noexcept {
    return pixel >> 24 == 0;
}

/// The index of a pixel that lies inside the image.
[[nodiscard]] inline std::size_t pixelPlace(const PixelImage& image, int x, int y) noexcept {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(image.width) +
           static_cast<std::size_t>(x);
}

} // namespace tovik::ui
