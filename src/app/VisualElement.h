// SPDX-License-Identifier: GPL-3.0-or-later
// The element of a window in which visualisations are drawn. Interface thread.
#pragma once

#include "ui/ElementStore.h"
#include "vis/VisualArea.h"
#include "window/SkinnedWindow.h"

#include <cmath>
#include <string>

namespace tovik::app {

class VisualElement final : public vis::VisualArea {
public:
    /// All of it outlives the element.
    struct Place {
        const window::SkinnedWindow& window;
        ui::ElementStore& elements;
        ui::PictureStore& pictures;
        ui::ElementAddress area;
        const ui::ElementStore& store; ///< of the bars
        ui::ElementAddress bars;
    };

    explicit VisualElement(const Place& place) : p_(place) {}

    [[nodiscard]] bool canBeSeen() const override { return area().visible && p_.window.visible(); }

    [[nodiscard]] const ui::PixelImage* bars() const override {
        return p_.pictures.find(p_.store.at(p_.store.slotOf(p_.bars)).picture);
    }

    void draw(int density, const std::function<void(ui::PixelImage&)>& paint) override {
        const ui::PixelImage* const image = p_.pictures.find(picture_);
        if (image == nullptr || image->density != density) {
            picture_ = picture_ ? p_.pictures.replace(picture_, blank(density))
                                : p_.pictures.add(blank(density));
        }
        picture_ = p_.pictures.draw(picture_, paint);
        ui::Element& element = p_.elements.touchAt(p_.area);
        element.picture = picture_;
        element.smallText.clear();
    }

    [[nodiscard]] int width() const override { return pixels(area().width); }

    [[nodiscard]] int height() const override { return pixels(area().height); }

    [[nodiscard]] int density() const override { return p_.window.density(); }

    void clear() override {
        if (area().picture) {
            p_.elements.touchAt(p_.area).picture = {};
        }
        tell({});
    }

    /// Shows words in the place of a picture, until there is one again.
    void tell(const std::string& words) {
        if (area().smallText != words) {
            p_.elements.touchAt(p_.area).smallText = words;
        }
    }

private:
    [[nodiscard]] static int pixels(double length) { return static_cast<int>(std::lround(length)); }

    [[nodiscard]] ui::PixelImage blank(int density) const {
        ui::PixelImage image{.width = width() * density,
                             .height = height() * density,
                             .pixels = {},
                             .density = density};
        image.pixels.resize(static_cast<std::size_t>(image.width) *
                            static_cast<std::size_t>(image.height));
        return image;
    }

    [[nodiscard]] const ui::Element& area() const {
        return p_.elements.at(p_.elements.slotOf(p_.area));
    }

    Place p_;
    ui::Picture picture_; ///< made at the first drawing
};

} // namespace tovik::app
