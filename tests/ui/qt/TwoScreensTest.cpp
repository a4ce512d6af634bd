// SPDX-License-Identifier: GPL-3.0-or-later
// A window that comes to another screen. Skipped where there is one; the build runs it with two.
#include "WindowRig.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

namespace tovik::ui {
namespace {

using test::Small;

class TwoScreensTest : public testing::Test, protected test::WindowRig {
protected:
    void SetUp() override {
        if (QGuiApplication::screens().size() < 2) {
            GTEST_SKIP() << "there is one screen";
        }
        PixelImage plain{200, 100, std::vector<std::uint32_t>(20000, 0xFF102030)};
        table.touch(Small::ground).picture = pictures.add(plain, [](int factor) -> PixelImage {
            const auto count = 20000 * static_cast<std::size_t>(factor * factor);
            return {200 * factor, 100 * factor, std::vector<std::uint32_t>(count, 0xFF405060),
                    factor};
        });
        ASSERT_TRUE(show());
    }

    QImage picture() {
        settle();
        return window.grab().toImage();
    }
};

TEST_F(TwoScreensTest, isDrawnInTheDensityOfTheScreenThatItComesTo) {
    ASSERT_EQ(QGuiApplication::screens().at(1)->devicePixelRatio(), 2);
    window.windowHandle()->setScreen(QGuiApplication::screens().at(0));
    settle();
    EXPECT_EQ(window.density(), 1);
    EXPECT_EQ(picture().size(), QSize(200, 100));
    EXPECT_EQ(picture().pixel(5, 95), 0xFF102030);
    static_cast<void>(painted.take());
    for (const int screen : {1, 0, 1}) {
        window.windowHandle()->setScreen(QGuiApplication::screens().at(screen));
        settle();
        EXPECT_EQ(window.density(), screen + 1);
        EXPECT_EQ(painted.take().boundingRect(), window.rect()) << "all is painted at once";
        const QImage seen = picture();
        static_cast<void>(painted.take());
        EXPECT_EQ(seen.size(), QSize(200, 100) * (screen + 1));
        EXPECT_EQ(seen.pixel(seen.width() - 9, seen.height() - 9),
                  screen == 0 ? 0xFF102030 : 0xFF405060);
        // Clicks are told in skin pixels, as before.
        notes.lines.clear();
        QTest::mousePress(&window, Qt::LeftButton, {}, QPoint(45, 50));
        QTest::mouseRelease(&window, Qt::LeftButton, {}, QPoint(45, 50));
        EXPECT_EQ(notes.events.back().x, 5);
        EXPECT_EQ(notes.events.back().y, 10);
    }
}

} // namespace
} // namespace tovik::ui
