// SPDX-License-Identifier: GPL-3.0-or-later
// Text as the desktop draws it, for surfaces of `cMemDC`. Interface thread.
#pragma once

#include "ui/TextEngine.h"

namespace tovik::ui {

class QtText final : public TextEngine {
public:
    [[nodiscard]] int standardHeight() const override;
    [[nodiscard]] PictureSize measure(const FontDescription& font,
                                      std::string_view text) const override;

    void draw(PixelImage& target, const PixelBox& clip, int left, int top,
              const FontDescription& font, const Line& line) const override;
};

} // namespace tovik::ui
