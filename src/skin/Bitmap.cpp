// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/Bitmap.h"

#include "base/FileErrors.h"
#include "base/RegularFile.h"
#include "base/RuntimeError.h"
#include "skin/BitmapHeader.h"
#include "skin/LittleEndian.h"
#include "ui/KeyColour.h"
#include "ui/PixelColour.h"

#include <algorithm>

namespace tovik::skin {

namespace {

constexpr std::uint32_t kOpaque = 0xFF000000;

/// A plain picture of the greatest size, and generously what stands in front of it.
constexpr std::int64_t kMostBitmapBytes = kMostBitmapPixels * 4 + 65536;

[[noreturn]] void refuse() {
    throw base::RuntimeError(base::ErrorNumber::InvalidPicture);
}

std::uint32_t plainPixel(const BitmapHeader& header, Bytes row, std::size_t x) {
    if (header.bits <= 8) {
        const std::size_t inByte = 8 / static_cast<std::size_t>(header.bits);
        const std::size_t fromLeft = x % inByte;
        const auto shift =
            static_cast<unsigned>((inByte - 1 - fromLeft) * static_cast<std::size_t>(header.bits));
        const auto byte = static_cast<std::uint32_t>(row[x / inByte]);
        return header.palette[(byte >> shift) & ((1U << header.bits) - 1)];
    }
    std::uint32_t value = 0;
    const std::size_t width = static_cast<std::size_t>(header.bits) / 8;
    for (std::size_t byte = 0; byte < width; ++byte) {
        value |= static_cast<std::uint32_t>(row[x * width + byte]) << (8 * byte);
    }
    if (header.coding == BitmapCoding::Plain && header.bits != 16) {
        return kOpaque | value; // blue is the low byte; a fourth byte has no meaning
    }
    return kOpaque | header.masks[0].valueOf(value) << 16 | header.masks[1].valueOf(value) << 8 |
           header.masks[2].valueOf(value);
}

std::span<std::uint32_t> rowOf(ui::PixelImage& image, const BitmapHeader& header, int row) {
    const auto fromTop = static_cast<std::size_t>(header.fromTop ? row : header.height - 1 - row);
    const auto width = static_cast<std::size_t>(header.width);
    return std::span(image.pixels).subspan(fromTop * width, width);
}

void readPlain(const BitmapHeader& header, ui::PixelImage& image) {
    const auto bits =
        static_cast<std::size_t>(header.width) * static_cast<std::size_t>(header.bits);
    const std::size_t used = (bits + 7) / 8;
    const std::size_t stride = (bits + 31) / 32 * 4; // rows fill whole 32-bit words
    const auto last = static_cast<std::size_t>(header.height - 1);
    if (header.pixels.size() < last * stride + used) {
        refuse();
    }
    for (int y = 0; y < header.height; ++y) {
        const Bytes row = header.pixels.subspan(static_cast<std::size_t>(y) * stride, used);
        std::size_t x = 0;
        for (std::uint32_t& pixel : rowOf(image, header, y)) {
            pixel = plainPixel(header, row, x++);
        }
    }
}

/// Runs of equal pixels (count, value), and behind a count of 0 an order: 0 ends the row, 1 the
/// picture, 2 moves on, more is a number of single pixels. What no run reaches has value 0.
class RunReader {
public:
    RunReader(const BitmapHeader& header, ui::PixelImage& image) : header_(header), image_(image) {
        std::ranges::fill(image.pixels, header.palette[0]);
    }

    void read() {
        while (y_ < header_.height) {
            const std::uint8_t count = next();
            const std::uint8_t value = next();
            if (count > 0) {
                for (std::size_t at = 0; at < count; ++at) {
                    put(half(value, at));
                }
            } else if (!obey(value)) {
                return;
            }
        }
    }

private:
    /// False at the end of the picture.
    bool obey(std::uint8_t order) {
        switch (order) {
        case 0:
            x_ = 0;
            ++y_;
            return true;
        case 1:
            return false;
        case 2:
            x_ = std::min(x_ + next(), header_.width);
            y_ = std::min(y_ + next(), header_.height);
            return true;
        default:
            putSingles(order);
            return true;
        }
    }

    void putSingles(std::size_t count) {
        const std::size_t inByte = header_.coding == BitmapCoding::RunLength8 ? 1 : 2;
        std::uint8_t byte = 0;
        for (std::size_t at = 0; at < count; ++at) {
            if (at % inByte == 0) {
                byte = next();
            }
            put(half(byte, at));
        }
        if ((count + inByte - 1) / inByte % 2 != 0) {
            static_cast<void>(next()); // the row of bytes fills 16-bit words
        }
    }

    /// The pixel value in a byte: all of it, or its high half and its low half in turn.
    [[nodiscard]] std::size_t half(std::uint8_t byte, std::size_t at) const {
        if (header_.coding == BitmapCoding::RunLength8) {
            return byte;
        }
        return at % 2 == 0 ? byte >> 4 : byte & 0x0F;
    }

    void put(std::size_t value) {
        if (x_ < header_.width && y_ < header_.height) {
            rowOf(image_, header_, y_)[static_cast<std::size_t>(x_++)] = header_.palette[value];
        }
    }

    [[nodiscard]] std::uint8_t next() {
        if (at_ >= header_.pixels.size()) {
            refuse();
        }
        return header_.pixels[at_++];
    }

    const BitmapHeader& header_;
    ui::PixelImage& image_;
    std::size_t at_ = 0;
    int x_ = 0;
    int y_ = 0;
};

void cutOut(ui::PixelImage& image, ui::Colour key) {
    std::ranges::replace(image.pixels, ui::opaquePixel(key), 0U);
}

} // namespace

ui::PixelImage readBitmap(std::string_view bytes) {
    const BitmapHeader header = readBitmapHeader(bytesOf(bytes));
    ui::PixelImage image{.width = header.width, .height = header.height, .pixels = {}};
    image.pixels.resize(static_cast<std::size_t>(header.width) *
                        static_cast<std::size_t>(header.height));
    if (header.coding == BitmapCoding::RunLength8 || header.coding == BitmapCoding::RunLength4) {
        RunReader(header, image).read();
    } else {
        readPlain(header, image);
    }
    cutOut(image, ui::keyColour(ui::kWindowDepth));
    return image;
}

std::string bitmapFile(const std::string& path) {
    const base::RegularFile file(path, base::RegularFile::Access::Read);
    base::raiseFailure(file.failure());
    if (file.size() > kMostBitmapBytes) {
        refuse();
    }
    std::string bytes;
    base::raiseFailure(file.readAt(0, static_cast<std::size_t>(file.size()), bytes));
    return bytes;
}

ui::PixelImage loadBitmap(const std::string& path) {
    return readBitmap(bitmapFile(path));
}

} // namespace tovik::skin
