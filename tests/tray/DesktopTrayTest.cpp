// SPDX-License-Identifier: GPL-3.0-or-later
// The tray where there is none: no bus, a bus that nobody answers on, no tray of the window system.
#include "tray/DesktopTray.h"

#include "BusRig.h"

namespace tovik::tray {
namespace {

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
    EXPECT_TRUE(tray.asking());
    QTest::qWait(3 * DesktopTray::kAfterFirstPaintMs);
    EXPECT_FALSE(tray.asking()) << "it is known that nobody takes it";
    EXPECT_FALSE(tray.taken());
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(tray.notify(window::NotifyCommand::modify, {}));
    EXPECT_TRUE(tray.notify(window::NotifyCommand::remove, {}));
    EXPECT_FALSE(tray.notify(window::NotifyCommand::modify, {})) << "there is none to change";
    EXPECT_EQ(tray.takeToken(), "");
}

TEST_F(DesktopTrayTest, aBusThatIsNotThereIsNoBus) {
    const Variable address("DBUS_SESSION_BUS_ADDRESS", busAddress());
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
