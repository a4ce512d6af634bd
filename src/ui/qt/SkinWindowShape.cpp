// SPDX-License-Identifier: GPL-3.0-or-later
// The window's outline and its size, on screens of any density.
#include "ui/qt/NativeShape.h"
#include "ui/qt/Outline.h"
#include "ui/qt/Reduction.h"
#include "ui/qt/SkinWindow.h"

#include <QResizeEvent>
#include <QScreen>
#include <QWindow>

namespace tovik::ui {

void SkinWindow::setRegion(const Region* region) {
    region_ = region != nullptr ? std::optional(*region) : std::nullopt;
    applyRegion();
    update();
}

void SkinWindow::applyRegion() {
    shaped_.reset();
    if (!region_) {
        clearMask();
        return;
    }
    QRegion mask;
    for (const RegionRectangle& one : region_->rectangles()) {
        mask += scale_.pixels({.left = static_cast<double>(one.left),
                               .top = static_cast<double>(one.top),
                               .width = static_cast<double>(one.right) - one.left,
                               .height = static_cast<double>(one.bottom) - one.top});
    }
    setMask(mask);
}

void SkinWindow::followScreen(bool allIsPainted) {
    const QWindow* const native = windowHandle();
    if (!region_ || native == nullptr || !hasNativeShape()) {
        return;
    }
    Shaped shape{.window = native->winId(), .scale = scale_.factor() * devicePixelRatioF()};
    const bool known = shaped_ && shaped_->window == shape.window && shaped_->scale == shape.scale;
    // A compositing manager that comes or goes has every window painted anew.
    if (known && !allIsPainted) {
        return;
    }
    shape.blended = windowsAreBlended();
    if (known && shaped_->blended == shape.blended) {
        return;
    }
    shaped_ = shape;
    const QImage ground = image_.alone({0}, SkinScale().pixels(elements_.at(0).box()));
    const QSize size = (QSizeF(minimumSize()) * devicePixelRatioF()).toSize();
    const QImage shown = reduced(ground, {}, image_.factor() / shape.scale, {{}, size});
    setNativeShape(*native, seenPixels(shown, shape.blended ? 1 : kHardEdge)
                                .intersected(roomOf(*region_, shape.scale)));
}

void SkinWindow::resizeEvent(QResizeEvent* /*event*/) {
    keepSize();
}

void SkinWindow::keepSize() {
    const QWindow* const native = windowHandle();
    const QSize wanted = minimumSize();
    // Asked for once at each density: a window manager that sizes windows itself has the last word.
    if (native == nullptr || sizedFor_ == devicePixelRatioF() || size() == wanted) {
        return;
    }
    // It belongs to the screen that its middle is on. Made smaller it must not go back to the one
    // that it comes from: there it would grow and come here again, for ever.
    const bool grows = wanted.width() > width() || wanted.height() > height();
    if (grows || native->screen()->geometry().contains(QRect(pos(), wanted).center())) {
        sizedFor_ = devicePixelRatioF();
        resize(wanted);
    }
}

} // namespace tovik::ui
