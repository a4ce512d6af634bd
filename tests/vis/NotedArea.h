// SPDX-License-Identifier: GPL-3.0-or-later
// A place to draw in that a test looks at. One thread.
#pragma once

#include "vis/VisualArea.h"

#include <vector>

namespace tovik::test {

class NotedArea final : public vis::VisualArea {
public:
    bool seen = true;
    int drawn = 0;
    int cleared = 0;
    ui::PixelImage picture{
        .width = 166, .height = 24, .pixels = std::vector<std::uint32_t>(166 * 24)};

    [[nodiscard]] bool canBeSeen() const override { return seen; }

    [[nodiscard]] const ui::PixelImage* bars() const override { return nullptr; }

    void draw(const std::function<void(ui::PixelImage&)>& paint) override {
        ++drawn;
        paint(picture);
    }

    [[nodiscard]] int width() const override { return picture.width; }

    [[nodiscard]] int height() const override { return picture.height; }

    void clear() override { ++cleared; }
};

} // namespace tovik::test
