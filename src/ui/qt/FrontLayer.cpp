// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/FrontLayer.h"

#include "ui/qt/Reduction.h"

#include <QPainter>

namespace tovik::ui {

FrontLayer::FrontLayer(QWidget& window, const ElementStore& elements, const WindowImage& image)
    : QWidget(&window), elements_(elements), image_(image) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

bool FrontLayer::liesOverControl(std::size_t slot) const {
    const QRect place = SkinScale().pixels(elements_.at(slot).box());
    for (std::size_t below = 0; below < slot; ++below) {
        const Element& element = elements_.at(below);
        if (element.visible && element.kind == ElementKind::Control &&
            SkinScale().pixels(element.box()).intersects(place)) {
            return true;
        }
    }
    return false;
}

void FrontLayer::refresh(const SkinScale& scale) {
    scale_ = scale;
    slots_.clear();
    box_ = {};
    for (std::size_t slot = 0; slot < elements_.size(); ++slot) {
        const Element& element = elements_.at(slot);
        if (element.visible && !element.takesMouse && liesOverControl(slot)) {
            slots_.push_back(slot);
            box_ |= SkinScale().pixels(paintedBox(element.box()));
        }
    }
    if (slots_.empty()) {
        hide();
        return;
    }
    setGeometry(scale.pixels({.left = static_cast<double>(box_.left()),
                              .top = static_cast<double>(box_.top()),
                              .width = static_cast<double>(box_.width()),
                              .height = static_cast<double>(box_.height())}));
    show();
    raise();
    update();
}

void FrontLayer::paintEvent(QPaintEvent* /*event*/) {
    // In the window's own coordinates, so that the pixels meet those of the window below.
    const double ratio = devicePixelRatioF();
    QPainter painter(this);
    painter.translate(-pos());
    drawReduced(painter,
                {.image = image_.alone(slots_, box_),
                 .origin = box_.topLeft() * image_.factor(),
                 .factor = image_.factor(),
                 .scale = scale_.factor() * ratio,
                 .ratio = ratio},
                geometry());
}

} // namespace tovik::ui
