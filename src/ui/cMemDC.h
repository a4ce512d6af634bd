// SPDX-License-Identifier: GPL-3.0-or-later
// A surface off the screen with the drawing calls that skin and menus need; the pixels become a
// picture of an element or a part of a widget. What would name a handle of a window system (device
// contexts, brushes, pens, icons, bitmaps of its own) is not here: colours are given with each
// call, pictures are plain pixels. Coordinates are pixels, right and bottom edges lie outside, and
// what is outside the surface or its clip is cut off. Interface thread.
#pragma once

#include "ui/PixelColour.h"
#include "ui/TextEngine.h"

#include <functional>
#include <optional>
#include <string_view>
#include <utility>

namespace tovik::ui {

class cMemDC {
public:
    // The bits of an edge and its sides, as the published drawing calls have them.
    static constexpr unsigned kRaisedOuter = 1;
    static constexpr unsigned kSunkenOuter = 2;
    static constexpr unsigned kRaisedInner = 4;
    static constexpr unsigned kSunkenInner = 8;
    static constexpr unsigned kEdgeLeft = 1;
    static constexpr unsigned kEdgeTop = 2;
    static constexpr unsigned kEdgeRight = 4;
    static constexpr unsigned kEdgeBottom = 8;
    static constexpr unsigned kWholeEdge = 15;

    // The bits of `DrawText`.
    static constexpr unsigned kTextCentre = 0x1;
    static constexpr unsigned kTextRight = 0x2;
    static constexpr unsigned kTextMiddle = 0x4; ///< half way down; counts on a single line
    static constexpr unsigned kTextBottom = 0x8; ///< likewise
    static constexpr unsigned kTextSingleLine = 0x20;
    static constexpr unsigned kTextNoClip = 0x100;   ///< also outside the box
    static constexpr unsigned kTextNoPrefix = 0x800; ///< "&" is a letter like others
    static constexpr unsigned kTextRightToLeft = 0x20000;

    /// The two colours of an edge, and of what shows through a disabled picture.
    struct EdgeColours {
        Colour light{255, 255, 255};
        Colour shadow{128, 128, 128};
    };

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

    Colour ForeColor;       ///< of text
    FontDescription Font;   ///< of text
    bool BackStyle = false; ///< text stands on `BackColor` instead of on what is there
    EdgeColours Edges;      ///< of `DrawEdge` and `DisabledBlt`
    /// Draws and measures text; without one there is none. Outlives the surface.
    const TextEngine* Engine = nullptr;

    void Cls();

    /// Nothing outside that box is drawn by any call but `Cls`; none: everywhere.
    void SetClipRect(std::optional<PixelBox> clip) { clip_ = clip; }

    void FillRect(int left, int top, int right, int bottom, Colour colour);

    /// From one colour at the left or upper edge to the other at the opposite one.
    void FillGradient(const PixelBox& box, Colour from, Colour to, bool downwards = true);

    /// The lines around a box, one pixel wide, just inside it.
    void FrameRect(const PixelBox& box, Colour colour);

    /// A filled box with lines around it.
    void Rectangle(const PixelBox& box, Colour fill, Colour line);

    /// From the first point up to and not including the last, one pixel wide.
    void DrawLine(int x, int y, int endX, int endY, Colour colour);

    /// The outer edge lies at the border of the box, the inner one a pixel further in. `edge` is
    /// made of the bits of the four kinds, `sides` of those of the sides.
    void DrawEdge(const PixelBox& box, unsigned edge, unsigned sides = kWholeEdge);

    /// A filled ellipse that touches the box's sides.
    void DrawEllipse(const PixelBox& box, Colour fill);

    /// Copies a part of a picture as it is, transparent pixels too (the raster operation SRCCOPY).
    /// What lies outside either picture is cut off.
    void BitBlt(int x, int y, int width, int height, const PixelImage& source, int sourceX = 0,
                int sourceY = 0);

    /// Lays a part of a picture over what is there, by its alpha.
    void TransBlt(int x, int y, int width, int height, const PixelImage& source, int sourceX = 0,
                  int sourceY = 0);

    /// The shape of the part in the edges' shadow, with their light a pixel to the lower right.
    void DisabledBlt(int x, int y, int width, int height, const PixelImage& source, int sourceX = 0,
                     int sourceY = 0);

    /// Fills a box with copies of a picture; one of them begins at (originX, originY).
    void TileBlt(const PixelBox& box, const PixelImage& source, int originX = 0, int originY = 0);

    /// Of the font. 0 without an engine.
    [[nodiscard]] int FontHeight() const { return TextHeight("Ag"); }

    [[nodiscard]] int TextWidth(std::string_view text) const;
    [[nodiscard]] int TextHeight(std::string_view text) const;

    /// Text in a box, its lines told apart by LF unless it is a single one. "&" underlines the
    /// letter behind it, "&&" is the sign itself. Returns the height of all lines.
    int DrawText(std::string_view text, const PixelBox& box, unsigned flags);

    /// The colour that a number stands for: red in the lowest byte, then green, then blue; a
    /// negative one is a system colour, its number in the lowest byte. Black for an unknown one.
    [[nodiscard]] static Colour
    TranslateColor(std::int32_t number,
                   const std::function<std::optional<Colour>(int)>& systemColour = nullptr);

    /// The box with its smaller numbers first.
    [[nodiscard]] static PixelBox NormalizeRect(const PixelBox& box) noexcept;

    /// Nothing outside the surface.
    [[nodiscard]] std::optional<Colour> GetPixel(int x, int y) const;

    void SetPixel(int x, int y, Colour colour) { FillRect(x, y, x + 1, y + 1, colour); }

private:
    /// The part of a box that may be drawn on.
    [[nodiscard]] PixelBox clippedBox(const PixelBox& box) const noexcept;

    /// Each pixel of a part of a picture that lands on the surface: its place here, its value.
    void eachPixel(const CopyBox& part, const PixelImage& source,
                   const std::function<void(std::uint32_t& target, std::uint32_t source)>& take);
    void drawLineOfText(std::string_view text, const PixelBox& box, int top, unsigned flags);

    PixelImage image_;
    std::optional<PixelBox> clip_;
};

} // namespace tovik::ui
