// SPDX-License-Identifier: GPL-3.0-or-later
// Pixels and pictures; shapes and text are in files of their own.
#include "ui/cMemDC.h"

#include <algorithm>
#include <utility>

namespace tovik::ui {

namespace {

/// `over` on `under`; both have their colours multiplied by alpha.
std::uint32_t blended(std::uint32_t over, std::uint32_t under) {
    const std::uint32_t through = 255 - (over >> 24);
    std::uint32_t result = 0;
    for (const int shift : {0, 8, 16, 24}) {
        const std::uint32_t below = (under >> shift & 0xFF) * through;
        const std::uint32_t sum = (over >> shift & 0xFF) + (below + 127) / 255;
        result |= std::min(sum, 255U) << shift;
    }
    return result;
}

std::uint32_t withAlpha(Colour colour, std::uint32_t alpha) {
    const auto part = [alpha](std::uint8_t value) { return (value * alpha + 127) / 255; };
    return alpha << 24 | part(colour.red) << 16 | part(colour.green) << 8 | part(colour.blue);
}

int positiveRest(std::int64_t value, int divisor) {
    const auto rest = static_cast<int>(value % divisor);
    return rest < 0 ? rest + divisor : rest;
}

} // namespace

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

PixelBox cMemDC::clippedBox(const PixelBox& box) const noexcept {
    const PixelBox room = clip_.value_or(PixelBox{0, 0, image_.width, image_.height});
    return {std::max({box.left, room.left, 0}), std::max({box.top, room.top, 0}),
            std::min({box.right, room.right, image_.width}),
            std::min({box.bottom, room.bottom, image_.height})};
}

void cMemDC::FillRect(int left, int top, int right, int bottom, Colour colour) {
    const PixelBox box = clippedBox({left, top, right, bottom});
    for (int y = box.top; y < box.bottom; ++y) {
        for (int x = box.left; x < box.right; ++x) {
            image_.pixels[pixelPlace(image_, x, y)] = opaquePixel(colour);
        }
    }
}

void cMemDC::eachPixel(
    const CopyBox& part, const PixelImage& source,
    const std::function<void(std::uint32_t& target, std::uint32_t source)>& take) {
    const CopyBox box = clipped(part, {image_.width, image_.height}, {source.width, source.height});
    const PixelBox room = clippedBox({box.x, box.y, box.x + box.width, box.y + box.height});
    for (int y = room.top; y < room.bottom; ++y) {
        for (int x = room.left; x < room.right; ++x) {
            take(image_.pixels[pixelPlace(image_, x, y)],
                 source
                     .pixels[pixelPlace(source, box.sourceX + x - box.x, box.sourceY + y - box.y)]);
        }
    }
}

void cMemDC::BitBlt(int x, int y, int width, int height, const PixelImage& source, int sourceX,
                    int sourceY) {
    eachPixel(
        {.x = x, .y = y, .width = width, .height = height, .sourceX = sourceX, .sourceY = sourceY},
        source, [](std::uint32_t& target, std::uint32_t pixel) { target = pixel; });
}

void cMemDC::TransBlt(int x, int y, int width, int height, const PixelImage& source, int sourceX,
                      int sourceY) {
    eachPixel(
        {.x = x, .y = y, .width = width, .height = height, .sourceX = sourceX, .sourceY = sourceY},
        source,
        [](std::uint32_t& target, std::uint32_t pixel) { target = blended(pixel, target); });
}

void cMemDC::DisabledBlt(int x, int y, int width, int height, const PixelImage& source, int sourceX,
                         int sourceY) {
    for (const auto& [shift, colour] : {std::pair(1, Edges.light), std::pair(0, Edges.shadow)}) {
        eachPixel({.x = x + shift,
                   .y = y + shift,
                   .width = width - shift,
                   .height = height - shift,
                   .sourceX = sourceX,
                   .sourceY = sourceY},
                  source, [colour = colour](std::uint32_t& target, std::uint32_t pixel) {
                      target = blended(withAlpha(colour, pixel >> 24), target);
                  });
    }
}

void cMemDC::TileBlt(const PixelBox& box, const PixelImage& source, int originX, int originY) {
    if (source.width <= 0 || source.height <= 0) {
        return;
    }
    const PixelBox room = clippedBox(box);
    for (int y = room.top; y < room.bottom; ++y) {
        for (int x = room.left; x < room.right; ++x) {
            image_.pixels[pixelPlace(image_, x, y)] = source.pixels[pixelPlace(
                source, positiveRest(std::int64_t{x} - originX, source.width),
                positiveRest(std::int64_t{y} - originY, source.height))];
        }
    }
}

std::optional<Colour> cMemDC::GetPixel(int x, int y) const {
    if (x < 0 || y < 0 || x >= image_.width || y >= image_.height) {
        return std::nullopt;
    }
    return colourOf(image_.pixels[pixelPlace(image_, x, y)]);
}

} // namespace tovik::ui
