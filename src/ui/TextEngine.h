// SPDX-License-Identifier: GPL-3.0-or-later
// Measures and draws a line of text in pixels; whoever shows windows has one. Interface thread.
#pragma once

#include "ui/Clipping.h"
#include "ui/PictureStore.h"

#include <optional>
#include <string>
#include <string_view>

namespace tovik::ui {

/// A font by what one asks of it.
struct FontDescription {
    std::string family;  ///< empty: the desktop's
    int pixelHeight = 0; ///< of its letters, with what hangs below the line; 0: the desktop's
    bool bold = false;

    friend bool operator==(const FontDescription&, const FontDescription&) = default;
};

/// Right and bottom lie outside.
struct PixelBox {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    [[nodiscard]] constexpr int width() const noexcept { return right - left; }

    [[nodiscard]] constexpr int height() const noexcept { return bottom - top; }

    friend constexpr bool operator==(const PixelBox&, const PixelBox&) = default;
};

class TextEngine {
public:
    struct Line {
        std::string_view text; ///< bytes; what is not valid UTF-8 is taken for Windows-1252
        Colour colour{};
        std::optional<std::size_t> underlined{}; ///< the byte at which a letter to underline begins
        bool rightToLeft = false;
    };

    virtual ~TextEngine() = default;
    TextEngine(const TextEngine&) = delete;
    TextEngine& operator=(const TextEngine&) = delete;

    /// The pixel height of the desktop's font at a scale of 1.
    [[nodiscard]] virtual int standardHeight() const = 0;

    [[nodiscard]] virtual PictureSize measure(const FontDescription& font,
                                              std::string_view text) const = 0;

    /// Draws over the picture, from (left, top) of the line, and nothing outside `clip`, which
    /// lies inside the picture.
    virtual void draw(PixelImage& target, const PixelBox& clip, int left, int top,
                      const FontDescription& font, const Line& line) const = 0;

protected:
    TextEngine() = default;
};

} // namespace tovik::ui
