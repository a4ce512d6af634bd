// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SessionEnd.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>

namespace tovik::app {
namespace {

using testing::ElementsAre;

TEST(RestartCommand, isThePlayerWithoutFiles) {
    EXPECT_THAT(restartCommand("/usr/bin/tovik", "", "", "a_b"),
                ElementsAre("/usr/bin/tovik", "-session", "a_b"));
    EXPECT_THAT(
        restartCommand("/usr/bin/tovik", "/d", "silent", "a_b"),
        ElementsAre("/usr/bin/tovik", "--data", "/d", "--device", "silent", "-session", "a_b"));
}

TEST(SessionEnd, leavingIsAskedOfThePlayerAndNotOfItsWindows) {
    int status = -1;
    host::Closing closing([&status](int given) { status = given; });
    const host::Dispatcher dispatcher;
    int saves = 0;
    const SessionEnd end(
        {.closing = closing, .dispatcher = dispatcher, .save = [&saves] { ++saves; }, .again = {}});
    end.save();
    EXPECT_EQ(saves, 1);
    EXPECT_FALSE(closing.leaveIfAsked());
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);
    EXPECT_TRUE(closing.unattended());
    EXPECT_TRUE(closing.leaveIfAsked());
    EXPECT_EQ(status, 0);
}

TEST(SessionEnd, aSaveThatFailsStopsNothing) {
    host::Closing closing([](int) {});
    host::Dispatcher dispatcher;
    int reports = 0;
    dispatcher.reportTo([&reports](const base::RuntimeError&) { ++reports; });
    const SessionEnd end({.closing = closing,
                          .dispatcher = dispatcher,
                          .save = [] { throw std::runtime_error("no"); },
                          .again = {}});
    end.save();
    EXPECT_EQ(reports, 1);
}

} // namespace
} // namespace tovik::app
