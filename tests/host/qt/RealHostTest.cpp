// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/qt/RealHost.h"
#include "EventLoop.h"
#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <csignal>
#include <iostream>

namespace tovik::host {
namespace {

TEST(RealHost, theServicesWorkTogether) {
    const test::TemporaryFolder folder;
    RealHost real(folder.path(), "/usr/bin:/bin", folder.path());
    const Host host = real.host();
    int ticks = 0;
    const auto timer = host.timers.makeTimer([&] { ++ticks; });
    timer->setInterval(1);
    timer->setEnabled(true);
    EXPECT_TRUE(test::waitFor([&] { return ticks > 2; }));
    EXPECT_TRUE(host.pump.Step());
    EXPECT_TRUE(host.lock.hold());
    EXPECT_TRUE(std::filesystem::exists(host.paths.of(DataItem::InstanceLock)));
    EXPECT_EQ(host.programs.find("sh.exe"), "/usr/bin/sh");
    EXPECT_GT(host.operatingSystem.major, 0);
}

TEST(RealHost, chanceDiffersFromRunToRun) {
    const test::TemporaryFolder folder;
    RealHost one(folder.path(), "", folder.path());
    const double first = one.host().random.next();
    RealHost other(folder.path(), "", folder.path());
    EXPECT_NE(first, other.host().random.next());
}

TEST(RealHostDeathTest, aSignalLeavesThroughTheClosingOperation) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            const test::TemporaryFolder folder;
            RealHost real(folder.path(), "", folder.path());
            const Host host = real.host();
            host.closing.setLeave([host] {
                std::cerr << "everything is saved\n";
                host.closing.endProcess(7);
            });
            static_cast<void>(std::raise(SIGTERM));
            QApplication::exec();
        },
        testing::ExitedWithCode(7), "everything is saved");
}

TEST(RealHostDeathTest, anErrorWhileLeavingIsReported) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            const test::TemporaryFolder folder;
            RealHost real(folder.path(), "", folder.path());
            const Host host = real.host();
            host.dispatcher.reportTo([host](const base::RuntimeError& error) {
                host.closing.endProcess(error.number());
            });
            host.closing.setLeave([] { throw base::RuntimeError(base::ErrorNumber::DiskFull); });
            host.closing.request();
            QApplication::exec();
        },
        testing::ExitedWithCode(61), "");
}

} // namespace
} // namespace tovik::host
