// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/SkinMenuStyle.h"

#include "menus/MenuMessages.h"
#include "ui/qt/SkinMenu.h"

#include <cmath>
#include <QImage>
#include <QPainter>
#include <QStyleOptionMenuItem>

namespace tovik::ui {

namespace {

constexpr int kBorder = 1;

const SkinMenu* skinMenu(const QWidget* widget) {
    return dynamic_cast<const SkinMenu*>(widget);
}

int devicePixels(int place, double ratio) {
    return static_cast<int>(std::lround(place * ratio));
}

/// Lets the window draw an item, or with id 0 the face. False when it does not.
bool drawByMessage(const SkinMenu& menu, int id, const QStyleOption& option, QPainter& painter) {
    const double ratio = menu.devicePixelRatioF();
    const QRect& rect = option.rect;
    // Neighbours meet at whole pixels of the screen, whatever the ratio is.
    const int left = devicePixels(rect.left(), ratio);
    const int top = devicePixels(rect.top(), ratio);
    const int width = devicePixels(rect.right() + 1, ratio) - left;
    const int height = devicePixels(rect.bottom() + 1, ratio) - top;
    const int border = devicePixels(kBorder, ratio);

    cMemDC surface;
    surface.Init(width, height);
    surface.Engine = &menu.menus().text();
    menus::DrawItem item{.id = id,
                         .scale = ratio,
                         .surface = &surface,
                         .box = {0, 0, width, height},
                         .menuTop = top - border,
                         .menuHeight = devicePixels(menu.height(), ratio) - 2 * border,
                         .selected = option.state.testFlag(QStyle::State_Selected)};
    if (menu.menus().send({messages::kDrawItem, 0, menus::messageParameter(item)}) == 0) {
        return false;
    }
    const PixelImage& drawn = surface.Image();
    QImage image(reinterpret_cast<const uchar*>(drawn.pixels.data()), drawn.width, drawn.height,
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    painter.drawImage(QPointF(left / ratio, top / ratio), image);
    return true;
}

} // namespace

QSize SkinMenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                      const QSize& size, const QWidget* widget) const {
    const SkinMenu* const menu = skinMenu(widget);
    const int id = menu != nullptr && type == CT_MenuItem ? SkinMenu::idOf(option) : 0;
    if (id == 0) {
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }
    const double ratio = menu->devicePixelRatioF();
    menus::MeasureItem item{.id = id, .scale = ratio, .engine = &menu->menus().text()};
    if (menu->menus().send({messages::kMeasureItem, 0, menus::messageParameter(item)}) == 0) {
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }
    return {static_cast<int>(std::ceil(item.width / ratio)),
            static_cast<int>(std::lround(item.height / ratio))};
}

void SkinMenuStyle::drawControl(ControlElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
    const SkinMenu* const menu = skinMenu(widget);
    if (menu == nullptr) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    if (element == CE_MenuEmptyArea) {
        return; // the face lies there already
    }
    const int id = element == CE_MenuItem ? SkinMenu::idOf(option) : 0;
    if (id == 0) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    if (!drawByMessage(*menu, id, *option, *painter)) {
        QStyleOptionMenuItem plain(*qstyleoption_cast<const QStyleOptionMenuItem*>(option));
        plain.text = menu->textOf(id);
        QProxyStyle::drawControl(element, &plain, painter, widget);
    }
}

void SkinMenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    const SkinMenu* const menu = skinMenu(widget);
    if (menu != nullptr && element == PE_FrameMenu) {
        return; // the panel has its own
    }
    if (menu == nullptr || element != PE_PanelMenu) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const Colour edge = cMemDC::TranslateColor(menu->menus().model().BackColor);
    painter->fillRect(option->rect, QColor(edge.red, edge.green, edge.blue));
    QStyleOption inside(*option);
    inside.rect = option->rect.adjusted(kBorder, kBorder, -kBorder, -kBorder);
    drawByMessage(*menu, 0, inside, *painter);
}

int SkinMenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                               const QWidget* widget) const {
    switch (metric) {
    case PM_MenuPanelWidth:
        return kBorder;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return 0;
    case PM_SubMenuOverlap:
        return -kBorder;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int SkinMenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* returnData) const {
    switch (hint) {
    case SH_Menu_KeyboardSearch: // captions without a mnemonic are found by their letters
    case SH_Menu_MouseTracking:
    case SH_Menu_AllowActiveAndDisabled:
        return 1;
    case SH_Menu_FlashTriggeredItem:
    case SH_Menu_FadeOutOnHide:
    case SH_Menu_SupportsSections:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

} // namespace tovik::ui
