// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/BitmapHeader.h"

#include "base/RuntimeError.h"
#include "skin/Bitmap.h"
#include "skin/LittleEndian.h"

#include <algorithm>
#include <bit>

namespace tovik::skin {

namespace {

constexpr std::uint16_t kMagic = 0x4D42; // "BM"
constexpr std::size_t kPixelsAt = 10;
constexpr std::size_t kInfoAt = 14;
constexpr std::size_t kMasksAt = 54; ///< inside a long header, or right behind a short one
constexpr std::uint32_t kCoreSize = 12;
constexpr std::uint32_t kInfoSize = 40;
constexpr std::uint32_t kLongestSize = 124;
constexpr std::uint32_t kCodingMasksWithAlpha = 6;
constexpr std::uint32_t kOpaque = 0xFF000000;

[[noreturn]] void refuse() {
    throw base::RuntimeError(base::ErrorNumber::InvalidPicture);
}

void demand(bool holds) {
    if (!holds) {
        refuse();
    }
}

void readSize(BitmapHeader& header, std::int64_t width, std::int64_t height) {
    header.fromTop = height < 0;
    height = header.fromTop ? -height : height;
    demand(width > 0 && width <= kMostBitmapSide);
    demand(height > 0 && height <= kMostBitmapSide);
    demand(width * height <= kMostBitmapPixels);
    header.width = static_cast<int>(width);
    header.height = static_cast<int>(height);
}

BitmapCoding codingOf(std::uint32_t number) {
    if (number == kCodingMasksWithAlpha) {
        return BitmapCoding::Masks;
    }
    demand(number <= static_cast<std::uint32_t>(BitmapCoding::Masks));
    return static_cast<BitmapCoding>(number);
}

bool fits(BitmapCoding coding, int bits, bool fromTop) {
    switch (coding) {
    case BitmapCoding::Plain:
        return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
    case BitmapCoding::RunLength8:
        return bits == 8 && !fromTop;
    case BitmapCoding::RunLength4:
        return bits == 4 && !fromTop;
    case BitmapCoding::Masks:
        return bits == 16 || bits == 32;
    }
    return false;
}

std::array<ColourMask, 3> masksOf(Bytes file, const BitmapHeader& header) {
    if (header.coding == BitmapCoding::Masks) {
        return {ColourMask{littleEndian<std::uint32_t>(file, kMasksAt)},
                ColourMask{littleEndian<std::uint32_t>(file, kMasksAt + 4)},
                ColourMask{littleEndian<std::uint32_t>(file, kMasksAt + 8)}};
    }
    if (header.bits == 16) {
        return {ColourMask{0x7C00}, ColourMask{0x03E0}, ColourMask{0x001F}};
    }
    return {ColourMask{0xFF0000}, ColourMask{0x00FF00}, ColourMask{0x0000FF}};
}

/// Values that the file has no colour for are black.
std::vector<std::uint32_t> readPalette(Bytes file, std::size_t at, std::size_t entryBytes,
                                       std::size_t told, int bits) {
    const std::size_t values = std::size_t{1} << bits;
    const std::size_t inFile = at < file.size() ? (file.size() - at) / entryBytes : 0;
    const std::size_t count = std::min({told == 0 ? values : told, values, inFile});
    std::vector<std::uint32_t> palette(values, kOpaque);
    for (std::size_t entry = 0; entry < count; ++entry) {
        const Bytes colour = file.subspan(at + entry * entryBytes, 3); // blue first
        palette[entry] = kOpaque | static_cast<std::uint32_t>(colour[2]) << 16 |
                         static_cast<std::uint32_t>(colour[1]) << 8 | colour[0];
    }
    return palette;
}

BitmapHeader read(Bytes file) {
    BitmapHeader header;
    demand(littleEndian<std::uint16_t>(file, 0) == kMagic);
    const auto pixelsAt = littleEndian<std::uint32_t>(file, kPixelsAt);
    const auto infoSize = littleEndian<std::uint32_t>(file, kInfoAt);
    std::size_t told = 0; ///< colours of the palette
    if (infoSize == kCoreSize) {
        readSize(header, littleEndian<std::uint16_t>(file, kInfoAt + 4),
                 littleEndian<std::uint16_t>(file, kInfoAt + 6));
        header.bits = littleEndian<std::uint16_t>(file, kInfoAt + 10);
    } else {
        demand(infoSize >= kInfoSize && infoSize <= kLongestSize);
        readSize(header, littleEndian<std::int32_t>(file, kInfoAt + 4),
                 littleEndian<std::int32_t>(file, kInfoAt + 8));
        header.bits = littleEndian<std::uint16_t>(file, kInfoAt + 14);
        header.coding = codingOf(littleEndian<std::uint32_t>(file, kInfoAt + 16));
        told = littleEndian<std::uint32_t>(file, kInfoAt + 32);
    }
    demand(fits(header.coding, header.bits, header.fromTop));
    header.masks = masksOf(file, header);
    if (header.bits <= 8) {
        header.palette =
            readPalette(file, kInfoAt + infoSize, infoSize == kCoreSize ? 3 : 4, told, header.bits);
    }
    demand(pixelsAt <= file.size());
    header.pixels = file.subspan(pixelsAt);
    return header;
}

} // namespace

std::uint32_t ColourMask::valueOf(std::uint32_t pixel) const noexcept {
    if (bits == 0) {
        return 0;
    }
    const int shift = std::countr_zero(bits);
    const std::uint64_t most = bits >> shift;
    const std::uint64_t value = (pixel & bits) >> shift;
    return static_cast<std::uint32_t>((value * 255 + most / 2) / most);
}

BitmapHeader readBitmapHeader(Bytes file) {
    try {
        return read(file);
    } catch (const base::RuntimeError&) {
        refuse(); // a header that ends early, too, is no picture
    }
}

} // namespace tovik::skin
