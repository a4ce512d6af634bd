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

void connectToSessionBus(QObject& context, std::function<void(QDBusConnection)> connected,
                         std::function<void()> failed) {
    if (!hasAddress()) {
        if (failed) {
            failed();
        }
        return;
    }
    std::thread([guard = QPointer<QObject>(&context), connected = std::move(connected),
                 failed = std::move(failed)] {
        const QDBusConnection bus =
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("tovik"));
        QMetaObject::invokeMethod(qApp, [guard, connected, failed, bus] {
            if (guard.isNull()) {
                return;
            }
            if (bus.isConnected()) {
                connected(bus);
            } else if (failed) {
                failed();
            }
        });
    }).detach();
}

} // namespace tovik::desktop
