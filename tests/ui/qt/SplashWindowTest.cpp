// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/SplashWindow.h"

#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tovik::ui {
namespace {

TEST(SplashWindow, isBorderlessOpaqueAndOfItsSize) {
    SplashWindow splash("");
    splash.showNow();
    EXPECT_TRUE(splash.isVisible());
    EXPECT_EQ(splash.size(), QSize(300, 200));
    EXPECT_TRUE(splash.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(splash.windowOpacity(), 1);
    const QImage shown = splash.grab().toImage();
    for (const QPoint& corner : {QPoint(0, 0), QPoint(299, 199), QPoint(150, 20)}) {
        EXPECT_EQ(shown.pixelColor(corner).alpha(), 255);
    }
}

TEST(SplashWindow, bearsTheNameOfTheProgram) {
    const QImage shown = SplashWindow("").grab().toImage();
    int bright = 0;
    for (int y = 60; y < 140; ++y) {
        for (int x = 0; x < 300; ++x) {
            bright += shown.pixelColor(x, y).red() > 200 ? 1 : 0;
        }
    }
    EXPECT_GT(bright, 300);
}

TEST(SplashWindow, showsThePictureThatThereIs) {
    const tovik::test::TemporaryFolder folder;
    QImage picture(300, 200, QImage::Format_RGB32);
    picture.fill(QColor(10, 200, 30));
    ASSERT_TRUE(picture.save(QString::fromStdString(folder / "splash.png")));
    SplashWindow splash(folder / "splash.png");
    EXPECT_EQ(splash.grab().toImage().pixelColor(150, 100), QColor(10, 200, 30));
}

} // namespace
} // namespace tovik::ui
