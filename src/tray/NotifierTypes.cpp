// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/NotifierTypes.h"

#include <QDBusMetaType>

namespace tovik::tray {

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPixmap& pixmap) {
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.pixels;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPixmap& pixmap) {
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.pixels;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& tip) {
    argument.beginStructure();
    argument << tip.iconName << tip.icon << tip.title << tip.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& tip) {
    argument.beginStructure();
    argument >> tip.iconName >> tip.icon >> tip.title >> tip.text;
    argument.endStructure();
    return argument;
}

NotifierPixmap notifierPixmap(const QImage& image) {
    const QImage plain = image.convertToFormat(QImage::Format_ARGB32);
    NotifierPixmap pixmap{.width = plain.width(), .height = plain.height(), .pixels = {}};
    pixmap.pixels.reserve(static_cast<qsizetype>(plain.width()) * plain.height() * 4);
    for (int y = 0; y < plain.height(); ++y) {
        for (int x = 0; x < plain.width(); ++x) {
            const QRgb pixel = plain.pixel(x, y);
            for (const int part : {qAlpha(pixel), qRed(pixel), qGreen(pixel), qBlue(pixel)}) {
                pixmap.pixels.append(static_cast<char>(part));
            }
        }
    }
    return pixmap;
}

void registerNotifierTypes() {
    qDBusRegisterMetaType<NotifierPixmap>();
    qDBusRegisterMetaType<NotifierPixmaps>();
    qDBusRegisterMetaType<NotifierToolTip>();
}

} // namespace tovik::tray
