// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/WindowImage.h"

#include "ui/qt/DisplayText.h"
#include "ui/qt/PictureShade.h"
#include "ui/qt/PlainFace.h"
#include "ui/qt/SkinScale.h"

#include <algorithm>

namespace tovik::ui {

namespace {

constexpr double kRingWidth = 2; ///< outside the box, in skin pixels; within `kPlainOverflow`
const QColor kRingEdge(20, 22, 44, 200);

static_assert(kRingWidth <= kPlainOverflow);

} // namespace

Box paintedBox(const Box& box) noexcept {
    return {box.left - kPlainOverflow, box.top - kPlainOverflow, box.width + 2 * kPlainOverflow,
            box.height + 2 * kPlainOverflow};
}

void WindowImage::setFactor(int factor) {
    if (factor != factor_) {
        factor_ = factor;
        everything_ = true;
    }
}

void WindowImage::invalidate(const Box& box) {
    stale_ += SkinScale().pixels(box);
}

void WindowImage::fitToGround() {
    const Box ground = elements_.size() > 0 ? elements_.at(0).box() : Box{};
    const QRect whole = SkinScale(factor_).pixels(ground);
    const QSize size(whole.right() + 1, whole.bottom() + 1);
    if (image_.size() != size) {
        image_ = QImage(size, QImage::Format_ARGB32_Premultiplied);
        everything_ = true;
    }
}

const QImage& WindowImage::compose(std::optional<std::size_t> hovered) {
    fitToGround();
    if (image_.isNull()) {
        return image_;
    }
    if (everything_) {
        stale_ = QRect({0, 0}, image_.size() / factor_ + QSize(1, 1));
        everything_ = false;
    }
    if (stale_.isEmpty()) {
        return image_;
    }
    QPainter painter(&image_);
    painter.scale(factor_, factor_);
    painter.setClipRegion(stale_);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(stale_.boundingRect(), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setRenderHint(QPainter::Antialiasing);
    for (std::size_t slot = 0; slot < elements_.size(); ++slot) {
        const Element& element = elements_.at(slot);
        if (element.visible && stale_.intersects(SkinScale().pixels(paintedBox(element.box())))) {
            drawElement(painter, slot, hovered == slot);
        }
    }
    drawRing(painter);
    stale_ = {};
    return image_;
}

QImage WindowImage::alone(const std::vector<std::size_t>& which, const QRect& box) const {
    QImage image(box.size() * factor_, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.translate(-box.topLeft() * factor_);
    painter.scale(factor_, factor_);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const std::size_t slot : which) {
        drawElement(painter, slot, false);
    }
    return image;
}

void WindowImage::drawRing(QPainter& painter) const {
    if (!ring_) {
        return;
    }
    // Two lines: the dark one outside keeps the other in sight on light ground.
    painter.setRenderHint(QPainter::Antialiasing, false);
    const auto line = [&](double outside, const QColor& colour) {
        QRectF frame(ring_->left, ring_->top, ring_->width, ring_->height);
        frame.adjust(-outside, -outside, outside, outside);
        for (const QRectF& side : {QRectF(frame.left(), frame.top(), frame.width(), 1),
                                   QRectF(frame.left(), frame.bottom() - 1, frame.width(), 1),
                                   QRectF(frame.left(), frame.top(), 1, frame.height()),
                                   QRectF(frame.right() - 1, frame.top(), 1, frame.height())}) {
            painter.fillRect(side, colour);
        }
    };
    line(kRingWidth, kRingEdge);
    line(kRingWidth - 1, qtColour(ringColour_));
}

void WindowImage::drawElement(QPainter& painter, std::size_t slot, bool hovered) const {
    const Element& element = elements_.at(slot);
    if (!element.smallText.empty()) {
        drawSmallText(painter, element);
    } else if (const PixelImage* const image = pictures_.find(element.picture, factor_);
               image != nullptr) {
        painter.save();
        painter.setOpacity(element.enabled ? 1 : kDisabledOpacity);
        drawPicture(painter, *image, element.box(), element.shade);
        painter.restore();
    } else {
        drawPlain(painter, element, {.ground = slot == 0, .hovered = hovered});
    }
    if (element.kind == ElementKind::Slider) {
        drawSliderBar(painter, element);
    }
}

void WindowImage::drawSliderBar(QPainter& painter, const Element& element) const {
    Box box{element.left, element.top + element.bar.top, element.width, element.bar.height};
    if (const PixelImage* const bar = pictures_.find(element.bar.picture, factor_);
        bar != nullptr) {
        // One that is narrower than its groove stands in the middle.
        const int width = bar->width / bar->density;
        box.left += std::max((element.width - width) / 2, 0.0);
        drawPicture(painter, *bar, box);
    } else {
        drawPlainSliderBar(painter, element, box);
    }
}

void WindowImage::drawPicture(QPainter& painter, const PixelImage& image, const Box& box,
                              Shade shade) const {
    if (image.pixels.empty()) {
        return;
    }
    const QImage shown(reinterpret_cast<const uchar*>(image.pixels.data()), image.width,
                       image.height, QImage::Format_ARGB32_Premultiplied);
    // A picture larger than its place shows the upper left part of it. Pixels of the picture stay
    // whole, wherever the element stands.
    const QSize part(std::min(image.width, qRound(box.width * image.density)),
                     std::min(image.height, qRound(box.height * image.density)));
    const QPoint place(qRound(box.left * factor_), qRound(box.top * factor_));
    painter.save();
    const QTransform whole = painter.worldTransform();
    painter.setWorldTransform(QTransform::fromTranslate(whole.dx(), whole.dy()));
    painter.drawImage(QRect(place, part * factor_ / image.density),
                      shade == Shade::None ? shown : shaded(shown, shade), QRect({0, 0}, part));
    painter.restore();
}

} // namespace tovik::ui
