// SPDX-License-Identifier: GPL-3.0-or-later
#include "BitmapFile.h"

#include <cstdint>

namespace tovik::skinart {

namespace {

constexpr std::uint32_t kFileHeader = 14;
constexpr std::uint32_t kInfoHeader = 40;
constexpr std::uint32_t kPixelsPerMetre = 2835; // 72 an inch
constexpr int kBitsPerPixel = 24;
constexpr int kRowUnit = 4;

void put(std::string& bytes, std::uint32_t value, int size) {
    for (int byte = 0; byte < size; ++byte) {
        bytes += static_cast<char>(value >> (8 * byte) & 0xFF);
    }
}

} // namespace

std::string bitmapBytes(const QImage& image) {
    const int rowBytes = (image.width() * kBitsPerPixel / 8 + kRowUnit - 1) / kRowUnit * kRowUnit;
    const auto pixelBytes = static_cast<std::uint32_t>(rowBytes * image.height());
    std::string bytes = "BM";
    put(bytes, kFileHeader + kInfoHeader + pixelBytes, 4);
    put(bytes, 0, 4);
    put(bytes, kFileHeader + kInfoHeader, 4);
    put(bytes, kInfoHeader, 4);
    put(bytes, static_cast<std::uint32_t>(image.width()), 4);
    put(bytes, static_cast<std::uint32_t>(image.height()), 4);
    put(bytes, 1, 2);
    put(bytes, kBitsPerPixel, 2);
    put(bytes, 0, 4);
    put(bytes, pixelBytes, 4);
    put(bytes, kPixelsPerMetre, 4);
    put(bytes, kPixelsPerMetre, 4);
    put(bytes, 0, 4);
    put(bytes, 0, 4);
    for (int y = image.height() - 1; y >= 0; --y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            put(bytes, static_cast<std::uint32_t>(qBlue(pixel)), 1);
            put(bytes, static_cast<std::uint32_t>(qGreen(pixel)), 1);
            put(bytes, static_cast<std::uint32_t>(qRed(pixel)), 1);
        }
        bytes.append(static_cast<std::size_t>(rowBytes - image.width() * kBitsPerPixel / 8), '\0');
    }
    return bytes;
}

} // namespace tovik::skinart
