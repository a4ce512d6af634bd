// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/cDIBSection.h"

#include "base/RuntimeError.h"
#include "ui/Clipping.h"
#include "ui/PixelColour.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tovik::ui {

namespace {

/// Where along one side a pixel of another size lies: two neighbours and the share of the second.
struct Between {
    int first = 0;
    int second = 0;
    double share = 0;
};

/// Corner pixels stay corner pixels.
Between between(int place, int count, int sourceCount) {
    const double exact =
        count > 1 ? static_cast<double>(place) * (sourceCount - 1) / (count - 1) : 0;
    const int first = static_cast<int>(exact);
    return {.first = first, .second = std::min(first + 1, sourceCount - 1), .share = exact - first};
}

std::uint8_t mix(std::uint8_t left, std::uint8_t right, double share) {
    return static_cast<std::uint8_t>(std::lround(left + (right - left) * share));
}

Colour mix(Colour left, Colour right, double share) {
    return {mix(left.red, right.red, share), mix(left.green, right.green, share),
            mix(left.blue, right.blue, share)};
}

void write(std::uint8_t* bytes, Colour colour) {
    bytes[0] = colour.blue;
    bytes[1] = colour.green;
    bytes[2] = colour.red;
}

} // namespace

bool cDIBSection::Create(int width, int height) {
    ClearUp();
    return CreateDIB(width, height);
}

bool cDIBSection::CreateDIB(int width, int height) {
    if (width == width_ && height == height_ && width > 0) {
        return true;
    }
    ClearUp();
    if (width <= 0 || height <= 0 || width > kMostSide || height > kMostSide) {
        return false;
    }
    bits_.resize(static_cast<std::size_t>(bytesPerLine(width)) * static_cast<std::size_t>(height));
    width_ = width;
    height_ = height;
    return true;
}

bool cDIBSection::CreateFromPicture(const PixelImage& picture) {
    if (!Create(picture.width, picture.height)) {
        return false;
    }
    LoadPictureBlt(picture);
    return true;
}

void cDIBSection::ClearUp() {
    *this = {};
}

std::size_t cDIBSection::placeOf(int x, int y) const noexcept {
    const int row = height_ - 1 - y;
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(BytesPerScanLine()) +
           static_cast<std::size_t>(x) * 3;
}

Colour cDIBSection::pixel(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    const std::size_t place = placeOf(x, y);
    return {bits_[place + 2], bits_[place + 1], bits_[place]};
}

void cDIBSection::LoadPictureBlt(const PixelImage& picture, int x, int y, PicturePart part) {
    const CopyBox box = clipped({.x = x,
                                 .y = y,
                                 .width = part.width.value_or(picture.width),
                                 .height = part.height.value_or(picture.height),
                                 .sourceX = part.left,
                                 .sourceY = part.top},
                                {width_, height_}, {picture.width, picture.height});
    for (int row = 0; row < box.height; ++row) {
        for (int column = 0; column < box.width; ++column) {
            const std::uint32_t pixel =
                picture.pixels[pixelPlace(picture, box.sourceX + column, box.sourceY + row)];
            write(&bits_[placeOf(box.x + column, box.y + row)],
                  isTransparent(pixel) ? keyColour(kWindowDepth) : colourOf(pixel));
        }
    }
}

void cDIBSection::PaintPicture(PixelImage& target, int x, int y, PicturePart part) const {
    const CopyBox box = clipped({.x = x,
                                 .y = y,
                                 .width = part.width.value_or(width_),
                                 .height = part.height.value_or(height_),
                                 .sourceX = part.left,
                                 .sourceY = part.top},
                                {target.width, target.height}, {width_, height_});
    for (int row = 0; row < box.height; ++row) {
        for (int column = 0; column < box.width; ++column) {
            target.pixels[pixelPlace(target, box.x + column, box.y + row)] =
                opaquePixel(pixel(box.sourceX + column, box.sourceY + row));
        }
    }
}

void cDIBSection::RandomiseBits(host::RandomNumbers& random, bool gray) {
    constexpr double kLevels = 256;
    const auto level = [&] { return static_cast<std::uint8_t>(random.next() * kLevels); };
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            const std::uint8_t first = level();
            const Colour colour =
                gray ? Colour{first, first, first} : Colour{first, level(), level()};
            write(&bits_[placeOf(x, y)], colour);
        }
    }
}

std::optional<cDIBSection> cDIBSection::Resample(int height, int width) const {
    cDIBSection result;
    if (width_ == 0 || !result.Create(width, height)) {
        return std::nullopt;
    }
    for (int y = 0; y < height; ++y) {
        const Between rows = between(y, height, height_);
        for (int x = 0; x < width; ++x) {
            const Between columns = between(x, width, width_);
            const auto inRow = [&](int row) {
                return mix(pixel(columns.first, row), pixel(columns.second, row), columns.share);
            };
            write(&result.bits_[result.placeOf(x, y)],
                  mix(inRow(rows.first), inRow(rows.second), rows.share));
        }
    }
    return result;
}

} // namespace tovik::ui
