// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/SessionBus.h"

#include "desktop/bus/SessionBus.h"

#include <utility>

namespace tovik::tray {

void SessionBus::whenReady(Ready ready) {
    if (failed_) {
        return;
    }
    if (connection_) {
        ready(*connection_);
        return;
    }
    waiting_.push_back(std::move(ready));
    begin();
}

void SessionBus::begin() {
    if (!std::exchange(begun_, true)) {
        desktop::connectToSessionBus(
            *this, [this](const QDBusConnection& bus) { joined(bus); }, [this] { fail(); });
    }
}

void SessionBus::joined(const QDBusConnection& bus) {
    connection_ = bus;
    for (const Ready& ready : std::exchange(waiting_, {})) {
        ready(bus);
    }
}

void SessionBus::fail() {
    failed_ = true;
    waiting_.clear();
    if (onFailed) {
        onFailed();
    }
}

} // namespace tovik::tray
