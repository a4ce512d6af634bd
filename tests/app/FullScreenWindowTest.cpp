// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FullScreenWindow.h"

#include <gtest/gtest.h>

#include <memory>
#include <QApplication>
#include <QScreen>
#include <QTest>

namespace tovik::test {
namespace {

class FullScreenWindow : public testing::Test {
protected:
    FullScreenWindow() {
        screen_ = std::make_unique<app::FullScreenWindow>(
            *beside_.screen(), dispatcher_,
            window::FullScreen::Input{.leave =
                                          [this] {
                                              ++left_;
                                              screen_.reset();
                                          },
                                      .clicked =
                                          [this](int x, int y) {
                                              clicked_ = {x, y};
                                          },
                                      .cameInSight = [this] { ++seen_; }});
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            // That of a test before may not be gone yet.
            if (widget->isVisible() && widget->windowRole() == QStringLiteral("visualisation")) {
                sheet_ = widget;
            }
        }
        EXPECT_TRUE(QTest::qWaitForWindowExposed(sheet_));
    }

    QWidget beside_;
    host::Dispatcher dispatcher_;
    std::unique_ptr<app::FullScreenWindow> screen_;
    QPointer<QWidget> sheet_;
    int left_ = 0;
    int seen_ = 0;
    QPoint clicked_;
};

TEST_F(FullScreenWindow, coversTheScreenAndShowsThePicture) {
    EXPECT_EQ(QSize(screen_->width(), screen_->height()), beside_.screen()->size());
    EXPECT_TRUE(screen_->visible());
    EXPECT_GT(seen_, 0);
    const auto count =
        static_cast<std::size_t>(screen_->width()) * static_cast<std::size_t>(screen_->height());
    const ui::PixelImage image{.width = screen_->width(),
                               .height = screen_->height(),
                               .pixels = std::vector<std::uint32_t>(count, 0xFF102030U)};
    screen_->show(image);
    const QImage shown = sheet_->grab().toImage();
    EXPECT_EQ(shown.pixel(0, 0), 0xFF102030U);
    EXPECT_EQ(shown.pixel(shown.width() - 1, shown.height() - 1), 0xFF102030U);
}

TEST_F(FullScreenWindow, makesThePictureOfAVeryWideScreenSmaller) {
    const auto shrink = app::FullScreenWindow::shrinkFor;
    EXPECT_EQ(shrink({1920, 1080}), 1);
    EXPECT_EQ(shrink({8192, 8192}), 1);
    EXPECT_EQ(shrink({8193, 1000}), 2);
    EXPECT_EQ(shrink({11520, 2160}), 2);
    EXPECT_EQ(shrink({1000, 16385}), 3);
}

TEST_F(FullScreenWindow, goesWithEscape) {
    QTest::keyClick(sheet_, Qt::Key_A);
    EXPECT_EQ(left_, 0);
    QTest::keyClick(sheet_, Qt::Key_Escape);
    EXPECT_EQ(left_, 1);
    QTest::qWait(0);
    EXPECT_TRUE(sheet_.isNull() || !sheet_->isVisible());
}

TEST_F(FullScreenWindow, goesWithADoubleClickAndTellsOfAClick) {
    QTest::mouseClick(sheet_, Qt::LeftButton, {}, {12, 34});
    EXPECT_EQ(clicked_, QPoint(12, 34));
    QTest::mouseClick(sheet_, Qt::RightButton, {}, {1, 1});
    EXPECT_EQ(clicked_, QPoint(12, 34));
    QTest::mouseDClick(sheet_, Qt::LeftButton, {}, {12, 34});
    EXPECT_EQ(left_, 1);
}

TEST_F(FullScreenWindow, goesWhenItIsClosed) {
    sheet_->close();
    EXPECT_EQ(left_, 1);
}

} // namespace
} // namespace tovik::test
