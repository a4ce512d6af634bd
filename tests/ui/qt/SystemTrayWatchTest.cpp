// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/SystemTrayWatch.h"

#include <gtest/gtest.h>

#include <QTest>

namespace tovik::ui {
namespace {

TEST(SystemTrayWatch, looksAtTheScreenOfTheDisplay) {
    EXPECT_EQ(screenOfDisplay(":7"), 0);
    EXPECT_EQ(screenOfDisplay(":7.2"), 2);
    EXPECT_EQ(screenOfDisplay("host:0.1"), 1);
    EXPECT_EQ(screenOfDisplay("nonsense"), 0);
}

TEST(SystemTrayWatch, findsNoneWithoutX11) {
    int changes = 0;
    const SystemTrayWatch watch([&changes] { ++changes; });
    QTest::qWait(10);
    EXPECT_FALSE(watch.there());
    EXPECT_FALSE(watch.docked());
    EXPECT_EQ(changes, 0);
}

} // namespace
} // namespace tovik::ui
