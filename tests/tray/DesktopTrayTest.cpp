// SPDX-License-Identifier: GPL-3.0-or-later
// The tray where there is none: no bus, a bus that nobody answers on, no tray of the window system.
#include "tray/DesktopTray.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QTest>

namespace tovik::tray {
namespace {

/// Puts an environment variable back as it was.
class Variable {
public:
    Variable(const char* name, const QByteArray& value) : name_(name), before_(qgetenv(name)) {
        value.isEmpty() ? qunsetenv(name) : qputenv(name, value);
    }

    ~Variable() { before_.isEmpty() ? qunsetenv(name_) : qputenv(name_, before_); }

    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    QByteArray before_;
};

class DesktopTrayTest : public testing::Test {
protected:
    QTemporaryDir folder_;
    Variable runtime_{"XDG_RUNTIME_DIR", folder_.path().toUtf8()};
    host::Dispatcher dispatcher_;
};

TEST_F(DesktopTrayTest, withoutABusNothingTakesTheIcon) {
    const Variable address("DBUS_SESSION_BUS_ADDRESS", {});
    SessionBus bus;
    DesktopTray tray(bus, dispatcher_);
    int changes = 0;
    tray.setEvents({.callback = {}, .wheel = {}, .middleClick = {}, .takenChanged = [&changes] {
                        ++changes;
                    }});
    EXPECT_FALSE(tray.taken());
    EXPECT_TRUE(tray.notify(window::NotifyCommand::add, {}));
    QTest::qWait(3 * DesktopTray::kAfterFirstPaintMs);
    EXPECT_FALSE(tray.taken());
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(tray.notify(window::NotifyCommand::modify, {}));
    EXPECT_TRUE(tray.notify(window::NotifyCommand::remove, {}));
    EXPECT_FALSE(tray.notify(window::NotifyCommand::modify, {})) << "there is none to change";
    EXPECT_EQ(tray.takeToken(), "");
}

TEST_F(DesktopTrayTest, aBusThatIsNotThereIsNoBus) {
    const Variable address("DBUS_SESSION_BUS_ADDRESS",
                           "unix:path=" + folder_.filePath(QStringLiteral("none")).toUtf8());
    SessionBus bus;
    bool ready = false;
    bool failed = false;
    bus.onFailed = [&failed] { failed = true; };
    bus.whenReady([&ready](const QDBusConnection&) { ready = true; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return failed; }, 10'000));
    EXPECT_TRUE(bus.failed());
    EXPECT_FALSE(ready);
    bus.whenReady([&ready](const QDBusConnection&) { ready = true; });
    EXPECT_FALSE(ready);
}

} // namespace
} // namespace tovik::tray
