// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/OnAScreen.h"

#include <algorithm>
#include <QGuiApplication>
#include <QRect>
#include <QScreen>

namespace tovik::ui {

namespace {

QRect roomOf(QPoint place) {
    const QScreen* screen = QGuiApplication::screenAt(place);
    return (screen != nullptr ? screen : QGuiApplication::primaryScreen())->availableGeometry();
}

} // namespace

QPoint onAScreen(QPoint wanted, QSize size) {
    const QRect room = roomOf(wanted);
    const auto within = [](int value, int first, int last) {
        return std::clamp(value, first, std::max(first, last));
    };
    return {within(wanted.x(), room.left(), room.right() - size.width()),
            within(wanted.y(), room.top(), room.bottom() - size.height())};
}

QSize roomAt(QPoint place) {
    return roomOf(place).size();
}

} // namespace tovik::ui
