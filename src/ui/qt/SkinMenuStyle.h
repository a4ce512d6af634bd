// SPDX-License-Identifier: GPL-3.0-or-later
// How a `SkinMenu` is measured and painted: by messages to the window of its model. Everything that
// is not an item looks as on the desktop. Interface thread.
#pragma once

#include <QProxyStyle>

namespace tovik::ui {

class SkinMenuStyle final : public QProxyStyle {
public:
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option,
                                         const QSize& size, const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* returnData) const override;
};

} // namespace tovik::ui
