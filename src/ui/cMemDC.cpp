// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/cMemDC.h"

#include "ui/Clipping.h"

#include <algorithm>
#include <utility>

namespace tovik::ui {

void cMemDC::Init(int width, int height) {
    image_.width = std::max(width, 0);
    image_.height = std::max(height, 0);
    image_.pixels.assign(
        static_cast<std::size_t>(image_.width) * static_cast<std::size_t>(image_.height), 0);
}

PixelImage cMemDC::DetachBitmap() {
    return std::exchange(image_, {});
}

void cMemDC::Cls() {
    std::ranges::fill(image_.pixels, BackColor ? opaquePixel(*BackColor) : 0);
}

void cMemDC::FillRect(int left, int top, int right, int bottom, Colour colour) {
    right = std::min(right, image_.width);
    bottom = std::min(bottom, image_.height);
    for (int y = std::max(top, 0); y < bottom; ++y) {
        for (int x = std::max(left, 0); x < right; ++x) {
            image_.pixels[pixelPlace(image_, x, y)] = opaquePixel(colour);
        }
    }
}

void cMemDC::BitBlt(int x, int y, int width, int height, const PixelImage& source, int sourceX,
                    int sourceY) {
    const CopyBox box = clipped(
        {.x = x, .y = y, .width = width, .height = height, .sourceX = sourceX, .sourceY = sourceY},
        {image_.width, image_.height}, {source.width, source.height});
    for (int row = 0; row < box.height; ++row) {
        const auto from =
            source.pixels.begin() +
            static_cast<std::ptrdiff_t>(pixelPlace(source, box.sourceX, box.sourceY + row));
        const auto to = image_.pixels.begin() +
                        static_cast<std::ptrdiff_t>(pixelPlace(image_, box.x, box.y + row));
        std::copy_n(from, box.width, to);
    }
}

std::optional<Colour> cMemDC::GetPixel(int x, int y) const {
    if (x < 0 || y < 0 || x >= image_.width || y >= image_.height) {
        return std::nullopt;
    }
    return colourOf(image_.pixels[pixelPlace(image_, x, y)]);
}

} // namespace tovik::ui
