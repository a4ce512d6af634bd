// SPDX-License-Identifier: GPL-3.0-or-later
// The element of the main window in which visualisations are drawn. Interface thread.
#pragma once

#include "vis/VisualArea.h"
#include "window/MainElements.h"
#include "window/PlayerWindow.h"

#include <cmath>
#include <string>

namespace tovik::app {

class VisualElement final : public vis::VisualArea {
public:
    /// All of them outlive the element.
    VisualElement(const window::PlayerWindow& window, window::MainElements& elements,
                  ui::PictureStore& pictures)
        : window_(window), elements_(elements), pictures_(pictures) {}

    [[nodiscard]] bool canBeSeen() const override {
        return elements_.get(window::MainElement::Picture1).visible && window_.visible();
    }

    [[nodiscard]] const ui::PixelImage* bars() const override {
        return pictures_.find(elements_.get(window::MainElement::Picture2).picture);
    }

    void draw(const std::function<void(ui::PixelImage&)>& paint) override {
        if (!picture_) {
            const auto count =
                static_cast<std::size_t>(width()) * static_cast<std::size_t>(height());
            picture_ = pictures_.add({.width = width(),
                                      .height = height(),
                                      .pixels = std::vector<std::uint32_t>(count)});
        }
        picture_ = pictures_.draw(picture_, paint);
        ui::Element& element = elements_.touch(window::MainElement::Picture1);
        element.picture = picture_;
        element.smallText.clear();
    }

    [[nodiscard]] int width() const override {
        return pixels(elements_.get(window::MainElement::Picture1).width);
    }

    [[nodiscard]] int height() const override {
        return pixels(elements_.get(window::MainElement::Picture1).height);
    }

    void clear() override {
        if (elements_.get(window::MainElement::Picture1).picture) {
            elements_.touch(window::MainElement::Picture1).picture = {};
        }
        tell({});
    }

    /// Shows words in the place of a picture, until there is one again.
    void tell(const std::string& words) {
        if (elements_.get(window::MainElement::Picture1).smallText != words) {
            elements_.touch(window::MainElement::Picture1).smallText = words;
        }
    }

private:
    [[nodiscard]] static int pixels(double length) { return static_cast<int>(std::lround(length)); }

    const window::PlayerWindow& window_;
    window::MainElements& elements_;
    ui::PictureStore& pictures_;
    ui::Picture picture_; ///< made at the first drawing
};

} // namespace tovik::app
