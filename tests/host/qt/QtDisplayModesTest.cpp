// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/qt/QtDisplayModes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>

namespace tovik::host {
namespace {

TEST(QtDisplayModesTest, tellsTheSizeDepthAndRateOfEachScreen) {
    const QScreen& screen = *QGuiApplication::primaryScreen();
    const DisplayMode now = QtDisplayModes().current();
    EXPECT_EQ(now.width, screen.size().width());
    EXPECT_EQ(now.height, screen.size().height());
    EXPECT_EQ(now.bitsPerPixel, screen.depth());
    EXPECT_EQ(now.hertz, static_cast<int>(screen.refreshRate()));
    EXPECT_THAT(QtDisplayModes().all(), testing::Contains(now));
}

} // namespace
} // namespace tovik::host
