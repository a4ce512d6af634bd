// SPDX-License-Identifier: GPL-3.0-or-later
// The way to the message bus of the session. Interface thread.
#pragma once

#include <functional>
#include <QDBusConnection>
#include <QObject>

namespace tovik::desktop {

/// Connects on a thread of its own, since a bus may be slow to answer, then calls `connected` on
/// that of `context`, if that is still there; all who ask share one connection. Where the session
/// has no bus, or it refuses, `failed` is called, where there is one, perhaps at once. A bus is
/// never started for this.
void connectToSessionBus(QObject& context, std::function<void(QDBusConnection)> connected,
                         std::function<void()> failed = {});

} // namespace tovik::desktop
