// SPDX-License-Identifier: GPL-3.0-or-later
// A place to draw in that a test looks at. One thread.
#pragma once

#include "vis/VisualArea.h"

#include <utility>
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

    int finest = 1; ///< density that can be seen

    void draw(int density, const std::function<void(ui::PixelImage&)>& paint) override {
        ++drawn;
        if (picture.density != density) {
            const int from = std::exchange(picture.density, density);
            picture.width = picture.width / from * density;
            picture.height = picture.height / from * density;
            picture.pixels.assign(static_cast<std::size_t>(picture.width) *
                                      static_cast<std::size_t>(picture.height),
                                  0);
        }
        paint(picture);
    }

    [[nodiscard]] int width() const override { return picture.width / picture.density; }

    [[nodiscard]] int height() const override { return picture.height / picture.density; }

    [[nodiscard]] int density() const override { return finest; }

    void clear() override { ++cleared; }
};

} // namespace tovik::test
