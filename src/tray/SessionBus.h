// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop's bus as the tray and the popup use it: joined when it is first wanted, and known to
// be missing where it is. Interface thread.
#pragma once

#include <functional>
#include <optional>
#include <QDBusConnection>
#include <QObject>
#include <vector>

namespace tovik::tray {

class SessionBus final : public QObject {
public:
    using Ready = std::function<void(const QDBusConnection&)>;

    /// Calls back when there is a connection, at once if there is one already, and never where
    /// there is no bus. The first call begins to join. Who is called outlives the bus.
    void whenReady(Ready ready);

    /// Nobody will be called: there is no bus, or it refused.
    [[nodiscard]] bool failed() const { return failed_; }

    /// Called once when it failed.
    std::function<void()> onFailed;

private:
    void begin();
    void joined(const QDBusConnection& bus);
    void fail();

    bool begun_ = false;
    bool failed_ = false;
    std::optional<QDBusConnection> connection_;
    std::vector<Ready> waiting_;
};

} // namespace tovik::tray
