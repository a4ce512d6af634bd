// SPDX-License-Identifier: GPL-3.0-or-later
// Between skin pixels and the widget's own: the one place that knows the window's scale. Any
// thread.
#pragma once

#include "ui/Element.h"

#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSize>

namespace tovik::ui {

class SkinScale {
public:
    explicit SkinScale(double factor = 1) noexcept : factor_(factor) {}

    [[nodiscard]] double factor() const noexcept { return factor_; }

    [[nodiscard]] QPointF toSkin(QPointF widget) const noexcept { return widget / factor_; }

    [[nodiscard]] QRectF toWidget(const Box& box) const noexcept {
        return {box.left * factor_, box.top * factor_, box.width * factor_, box.height * factor_};
    }

    /// The whole pixels that a box touches.
    [[nodiscard]] QRect pixels(const Box& box) const noexcept {
        return toWidget(box).toAlignedRect();
    }

private:
    double factor_;
};

} // namespace tovik::ui
