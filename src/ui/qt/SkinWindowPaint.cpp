// SPDX-License-Identifier: GPL-3.0-or-later
// What of the window is on the screen: its picture in the screen's density.
#include "ui/qt/Reduction.h"
#include "ui/qt/SkinWindow.h"

#include <QPainter>
#include <QPaintEvent>

namespace tovik::ui {

int SkinWindow::density() const {
    return wholeFactor(scale_.factor() * devicePixelRatioF());
}

void SkinWindow::paintEvent(QPaintEvent* event) {
    // Asked each time: the window may have come to another screen.
    const double ratio = devicePixelRatioF();
    image_.setFactor(density());
    const QImage& image = image_.compose(router_.hovered());
    followScreen(event->rect().contains(rect()));
    QPainter painter(this);
    // The window's old pixels must go, where the new ones are transparent.
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect& place : event->region()) {
        drawReduced(painter,
                    {.image = image,
                     .origin = {},
                     .factor = image_.factor(),
                     .scale = scale_.factor() * ratio,
                     .ratio = ratio,
                     .hardEdged = shaped_ && !shaped_->blended},
                    place);
    }
}

void SkinWindow::redraw(const Box& box) {
    const Box painted = paintedBox(box);
    image_.invalidate(painted);
    update(scale_.pixels(painted));
}

} // namespace tovik::ui
