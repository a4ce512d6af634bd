// SPDX-License-Identifier: GPL-3.0-or-later
// A window composed in one image, a whole number of times as large as its skin: pictures grow by
// whole pixels, unless they are made for that size; words and plain faces are drawn in that size.
// Interface thread.
#pragma once

#include "ui/ElementStore.h"
#include "ui/PictureStore.h"

#include <optional>
#include <QImage>
#include <QPainter>
#include <QRegion>
#include <vector>

namespace tovik::ui {

class WindowImage {
public:
    /// Both outlive the object.
    WindowImage(const ElementStore& elements, const PictureStore& pictures)
        : elements_(elements), pictures_(pictures) {}

    /// How many pixels of the image one skin pixel takes along a side. Another one draws all anew.
    void setFactor(int factor);

    [[nodiscard]] int factor() const noexcept { return factor_; }

    /// What is in the box, in skin pixels, looks different.
    void invalidate(const Box& box);

    /// Draws a thin ring round that box, in front of everything; without a box none. Where it was
    /// and where it is must be invalidated.
    void setRing(const std::optional<Box>& box, Colour colour) {
        ring_ = box;
        ringColour_ = colour;
    }

    void invalidateAll() { everything_ = true; }

    /// The image as the records are now. Only what looks different is drawn. `hovered` is the slot
    /// under the pointer. Where no element is, it is transparent.
    [[nodiscard]] const QImage& compose(std::optional<std::size_t> hovered);

    /// These elements alone, as they are now, on nothing: an image of the part of the window in
    /// `box`, whole skin pixels.
    [[nodiscard]] QImage alone(const std::vector<std::size_t>& which, const QRect& box) const;

private:
    void fitToGround();
    void drawRing(QPainter& painter) const;
    void drawElement(QPainter& painter, std::size_t slot, bool hovered) const;
    void drawSliderBar(QPainter& painter, const Element& element) const;
    void drawPicture(QPainter& painter, const PixelImage& image, const Box& box,
                     Shade shade = Shade::None) const;

    const ElementStore& elements_;
    const PictureStore& pictures_;
    int factor_ = 1;
    bool everything_ = true;
    std::optional<Box> ring_;
    Colour ringColour_;
    QRegion stale_; ///< in skin pixels
    QImage image_;
};

/// What an element may paint into: a plain one reaches beyond its box.
[[nodiscard]] Box paintedBox(const Box& box) noexcept;

} // namespace tovik::ui
