// SPDX-License-Identifier: GPL-3.0-or-later
// A surface off the screen with the drawing calls that the skin needs; the pixels become a picture
// of an element. Interface thread.
#pragma once

#include "ui/PixelColour.h"

#include <optional>

namespace tovik::ui {

class cMemDC {
public:
    cMemDC() = default;

    /// Takes over a picture to draw on.
    explicit cMemDC(PixelImage image) : image_(std::move(image)) {}

    /// A transparent surface of that size; what was there is dropped. Sizes below 0 count as 0.
    void Init(int width, int height);

    void Destroy() { image_ = {}; }

    [[nodiscard]] bool IsCreated() const noexcept { return !image_.pixels.empty(); }

    [[nodiscard]] int Width() const noexcept { return image_.width; }

    [[nodiscard]] int Height() const noexcept { return image_.height; }

    [[nodiscard]] const PixelImage& Image() const noexcept { return image_; }

    /// Gives the picture away; the surface is destroyed.
    [[nodiscard]] PixelImage DetachBitmap();

    /// What `Cls` fills with; none, as at first: transparent.
    std::optional<Colour> BackColor;

    void Cls();

    /// Right and bottom edges lie outside; what is outside the surface is cut off.
    void FillRect(int left, int top, int right, int bottom, Colour colour);

    /// Copies a part of a picture as it is, transparent pixels too (the raster operation SRCCOPY).
    /// What lies outside either picture is cut off.
    void BitBlt(int x, int y, int width, int height, const PixelImage& source, int sourceX = 0,
                int sourceY = 0);

    /// Nothing outside the surface.
    [[nodiscard]] std::optional<Colour> GetPixel(int x, int y) const;

    void SetPixel(int x, int y, Colour colour) { FillRect(x, y, x + 1, y + 1, colour); }

private:
    PixelImage image_;
};

} // namespace tovik::ui
