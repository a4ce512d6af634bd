// SPDX-License-Identifier: GPL-3.0-or-later
// Bitmap files put together by hand.
#pragma once

#include "skin/LittleEndian.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tovik::skin {

struct BitmapParts {
    std::int32_t width = 1;
    std::int32_t height = 1;
    std::uint16_t bits = 24;
    std::uint32_t coding = 0;
    std::uint32_t coloursTold = 0;
    std::vector<std::uint32_t> extra{}; ///< masks or palette, as they follow the header
    std::string pixels{};
    std::uint32_t infoSize = 40; ///< the header is filled up with zeros to it

    [[nodiscard]] std::string bytes() const {
        std::string head;
        appendLittleEndian(head, infoSize);
        appendLittleEndian(head, width);
        appendLittleEndian(head, height);
        appendLittleEndian(head, std::uint16_t{1}); // planes
        appendLittleEndian(head, bits);
        appendLittleEndian(head, coding);
        head.append(12, '\0');
        appendLittleEndian(head, coloursTold);
        head.append(4, '\0');
        for (const std::uint32_t word : extra) {
            appendLittleEndian(head, word);
        }
        if (head.size() < infoSize) {
            head.resize(infoSize, '\0');
        }
        std::string file = "BM";
        appendLittleEndian(file, static_cast<std::uint32_t>(14 + head.size() + pixels.size()));
        file.append(4, '\0');
        appendLittleEndian(file, static_cast<std::uint32_t>(14 + head.size()));
        return file + head + pixels;
    }
};

/// A bitmap of one colour (0xRRGGBB), one bit a pixel.
inline std::string plainBitmap(std::int32_t width, std::int32_t height, std::uint32_t colour) {
    const std::size_t stride = (static_cast<std::size_t>(width) + 31) / 32 * 4;
    return BitmapParts{.width = width,
                       .height = height,
                       .bits = 1,
                       .extra = {colour, 0},
                       .pixels = std::string(stride * static_cast<std::size_t>(height), '\0')}
        .bytes();
}

} // namespace tovik::skin
