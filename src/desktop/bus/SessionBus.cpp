// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/bus/SessionBus.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>
#include <thread>
#include <utility>

namespace tovik::desktop {

namespace {

/// Without an address the library would start a bus of its own.
bool hasAddress() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

} // namespace

void connectToSessionBus(QObject& context, std::function<void(QDBusConnection)> connected) {
    if (!hasAddress()) {
        return;
    }
    std::thread([guard = QPointer<QObject>(&context), connected = std::move(connected)] {
        const QDBusConnection bus =
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("tovik"));
        if (!bus.isConnected()) {
            return;
        }
        QMetaObject::invokeMethod(qApp, [guard, connected, bus] {
            if (guard) {
                connected(bus);
            }
        });
    }).detach();
}

} // namespace tovik::desktop
