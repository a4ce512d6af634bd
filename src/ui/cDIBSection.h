// SPDX-License-Identifier: GPL-3.0-or-later
// A bitmap of 24 bits a pixel with direct access to its bytes: blue, green, red; rows from the
// bottom of the picture upwards, each padded to a multiple of four bytes, as the published
// description of device-independent bitmaps has it. Interface thread.
#pragma once

#include "host/RandomNumbers.h"
#include "ui/KeyColour.h"
#include "ui/PictureStore.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace tovik::ui {

/// The part of a picture that an operation takes; what lies outside the picture is not taken.
struct PicturePart {
    int left = 0;
    int top = 0;
    std::optional<int> width{};  ///< none: up to the right edge
    std::optional<int> height{}; ///< none: up to the bottom edge
};

class cDIBSection {
public:
    /// The longest side of a bitmap.
    static constexpr int kMostSide = 16384;

    /// A black bitmap of that size in the place of what was there. False, and nothing there, for a
    /// size that no bitmap has.
    bool Create(int width, int height);

    /// As `Create`, but a bitmap that has the size already keeps its pixels.
    bool CreateDIB(int width, int height);

    /// A copy of a picture. Its transparent pixels get the key colour of the player's windows,
    /// from which they came.
    bool CreateFromPicture(const PixelImage& picture);

    /// Drops the bitmap.
    void ClearUp();

    [[nodiscard]] int Width() const noexcept { return width_; }

    [[nodiscard]] int Height() const noexcept { return height_; }

    /// From one row to the next; 0 without a bitmap.
    [[nodiscard]] int BytesPerScanLine() const noexcept { return bytesPerLine(width_); }

    /// All rows, the lowest of the picture first. Stays valid until the size changes.
    [[nodiscard]] std::span<std::uint8_t> DIBSectionBitsPtr() noexcept { return bits_; }

    [[nodiscard]] std::span<const std::uint8_t> DIBSectionBitsPtr() const noexcept { return bits_; }

    /// Reads a pixel; y counts from the top of the picture. Raises 9 outside.
    [[nodiscard]] Colour pixel(int x, int y) const;

    /// Copies a part of a picture so that it begins at (x, y) from the top left corner.
    void LoadPictureBlt(const PixelImage& picture, int x = 0, int y = 0, PicturePart part = {});

    /// Draws a part of the bitmap, opaque, on a picture at (x, y).
    void PaintPicture(PixelImage& target, int x = 0, int y = 0, PicturePart part = {}) const;

    /// Gives each pixel a colour by chance, or a grey.
    void RandomiseBits(host::RandomNumbers& random, bool gray = false);

    /// The picture in another size, each pixel mixed from the four next to its place. Nothing
    /// without a bitmap and for a size that no bitmap has.
    [[nodiscard]] std::optional<cDIBSection> Resample(int height, int width) const;

private:
    [[nodiscard]] static constexpr int bytesPerLine(int width) noexcept {
        return (width * 3 + 3) / 4 * 4;
    }

    [[nodiscard]] std::size_t placeOf(int x, int y) const noexcept;

    int width_ = 0;
    int height_ = 0;
    std::vector<std::uint8_t> bits_;
};

} // namespace tovik::ui
