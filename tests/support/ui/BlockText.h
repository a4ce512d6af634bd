// SPDX-License-Identifier: GPL-3.0-or-later
// A font for tests: every byte is a block, 6 pixels wide and 10 high, at a pixel height of 10.
#pragma once

#include "ui/PixelColour.h"
#include "ui/TextEngine.h"

#include <algorithm>
#include <vector>

namespace tovik::ui {

class BlockText final : public TextEngine {
public:
    static constexpr int kWidth = 6;
    static constexpr int kHeight = 10;

    [[nodiscard]] int standardHeight() const override { return kHeight; }

    [[nodiscard]] PictureSize measure(const FontDescription& font,
                                      std::string_view text) const override {
        const int height = font.pixelHeight > 0 ? font.pixelHeight : kHeight;
        return {static_cast<int>(text.size()) * kWidth * height / kHeight, height};
    }

    void draw(PixelImage& target, const PixelBox& clip, int left, int top,
              const FontDescription& font, const Line& line) const override {
        const PictureSize size = measure(font, line.text);
        for (int y = std::max(top, clip.top); y < std::min(top + size.height, clip.bottom); ++y) {
            for (int x = std::max(left, clip.left); x < std::min(left + size.width, clip.right);
                 ++x) {
                target.pixels[pixelPlace(target, x, y)] = opaquePixel(line.colour);
            }
        }
        lines.push_back({std::string(line.text), left, top, line.rightToLeft, line.underlined});
    }

    struct Drawn {
        std::string text;
        int left = 0;
        int top = 0;
        bool rightToLeft = false;
        std::optional<std::size_t> underlined{};
    };

    mutable std::vector<Drawn> lines;
};

} // namespace tovik::ui
