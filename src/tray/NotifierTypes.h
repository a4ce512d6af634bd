// SPDX-License-Identifier: GPL-3.0-or-later
// The records of a StatusNotifierItem as its published interface has them. Any thread.
#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QImage>
#include <QList>
#include <QMetaType>
#include <QString>

namespace tovik::tray {

/// Pixels row by row, each four bytes: alpha, red, green, blue.
struct NotifierPixmap {
    int width = 0;
    int height = 0;
    QByteArray pixels;
};

using NotifierPixmaps = QList<NotifierPixmap>;

struct NotifierToolTip {
    QString iconName;
    NotifierPixmaps icon;
    QString title;
    QString text;
};

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& tip);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& tip);

[[nodiscard]] NotifierPixmap notifierPixmap(const QImage& image);

/// Makes them known to the bus; more than once does no harm.
void registerNotifierTypes();

} // namespace tovik::tray

Q_DECLARE_METATYPE(tovik::tray::NotifierPixmap)
Q_DECLARE_METATYPE(tovik::tray::NotifierToolTip)
