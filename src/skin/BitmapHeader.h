// SPDX-License-Identifier: GPL-3.0-or-later
// What stands in front of a bitmap's pixels. Any thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tovik::skin {

using Bytes = std::span<const std::uint8_t>;

enum class BitmapCoding : std::uint32_t {
    Plain = 0,
    RunLength8 = 1,
    RunLength4 = 2,
    Masks = 3,
};

/// Which bits of a pixel tell a colour, and how.
struct ColourMask {
    std::uint32_t bits = 0;

    /// From 0 to 255.
    [[nodiscard]] std::uint32_t valueOf(std::uint32_t pixel) const noexcept;
};

struct BitmapHeader {
    int width = 0; ///< within the limits of `Bitmap.h`, and so is the height
    int height = 0;
    bool fromTop = false; ///< else the first row is the lowest one
    int bits = 0;         ///< a pixel: 1, 4, 8, 16, 24 or 32
    BitmapCoding coding = BitmapCoding::Plain;
    std::array<ColourMask, 3> masks;    ///< red, green, blue; for 16 and 32 bits
    std::vector<std::uint32_t> palette; ///< 0xFFRRGGBB for up to 8 bits: one for each value
    Bytes pixels;                       ///< to the end of the file
};

/// Raises 481 for what is no bitmap that can be read.
[[nodiscard]] BitmapHeader readBitmapHeader(Bytes file);

} // namespace tovik::skin
