// SPDX-License-Identifier: GPL-3.0-or-later
// A whole screen as a place to draw in. Interface thread.
#pragma once

#include "vis/VisualArea.h"
#include "window/FullScreen.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace tovik::app {

class FullScreenArea final : public vis::VisualArea {
public:
    explicit FullScreenArea(std::unique_ptr<window::FullScreen> screen)
        : screen_(std::move(screen)) {
        picture_.width = screen_->width();
        picture_.height = screen_->height();
        picture_.pixels.assign(static_cast<std::size_t>(picture_.width) *
                                   static_cast<std::size_t>(picture_.height),
                               0);
    }

    [[nodiscard]] bool canBeSeen() const override { return screen_->visible(); }

    [[nodiscard]] const ui::PixelImage* bars() const override { return nullptr; }

    void draw(int /*density*/, const std::function<void(ui::PixelImage&)>& paint) override {
        paint(picture_);
        screen_->show(picture_);
    }

    [[nodiscard]] int width() const override { return picture_.width; }

    [[nodiscard]] int height() const override { return picture_.height; }

    void clear() override {
        std::ranges::fill(picture_.pixels, 0);
        screen_->show(picture_);
    }

private:
    ui::PixelImage picture_; // before the screen, which shows it
    std::unique_ptr<window::FullScreen> screen_;
};

} // namespace tovik::app
