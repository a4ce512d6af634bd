// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/ListScroller.h"

#include "ui/qt/ListWidget.h"
#include "WindowRig.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

namespace tovik::ui {
namespace {

constexpr int kPitch = 13;

/// Each piece in a colour of its own: its number from the left, times 20.
PixelImage pieces(int width = 91, int height = 40) {
    PixelImage image{.width = width, .height = height, .pixels = {}};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const auto shade = static_cast<std::uint32_t>(x / kPitch * 20 + 20);
            image.pixels.push_back(0xFF000000U | shade << 16U);
        }
    }
    return image;
}

constexpr int shadeOf(int piece) {
    return piece * 20 + 20;
}

enum Piece { up, upPressed, trackPiece, down, downPressed, thumbPiece, thumbPressed };

class ListScrollerTest : public testing::Test {
protected:
    static constexpr int kHeight = 190;
    static constexpr int kLine = 15;
    static constexpr int kButton = 21;

    PixelImage image_ = pieces();
    const PixelImage* picture_ = &image_;
    ListScroller bar_{[this](int) { return picture_; }};

    void SetUp() override {
        bar_.setRange(0, 1000);
        bar_.setSingleStep(kLine);
        bar_.setPageStep(100);
        bar_.resize(kPitch, kHeight);
        bar_.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&bar_));
    }

    [[nodiscard]] int shadeAt(int y) { return bar_.grab().toImage().pixelColor(6, y).red(); }

    void press(int y) { QTest::mousePress(&bar_, Qt::LeftButton, {}, QPoint(6, y)); }

    void release() { QTest::mouseRelease(&bar_, Qt::LeftButton, {}, QPoint(6, 1)); }

    void moveTo(int y) {
        QMouseEvent move(QEvent::MouseMove, QPointF(6, y), bar_.mapToGlobal(QPointF(6, y)),
                         Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&bar_, &move);
    }
};

TEST_F(ListScrollerTest, isMadeOfThePieces) {
    EXPECT_EQ(bar_.sizeHint().width(), kPitch);
    EXPECT_EQ(shadeAt(0), shadeOf(up));
    EXPECT_EQ(shadeAt(kButton - 1), shadeOf(up));
    EXPECT_EQ(shadeAt(kButton), shadeOf(thumbPiece));
    EXPECT_EQ(shadeAt(kButton + 39), shadeOf(thumbPiece));
    EXPECT_EQ(shadeAt(kButton + 40), shadeOf(trackPiece));
    EXPECT_EQ(shadeAt(kHeight - kButton - 1), shadeOf(trackPiece));
    EXPECT_EQ(shadeAt(kHeight - kButton), shadeOf(down));
    bar_.setValue(1000);
    EXPECT_EQ(bar_.thumb(), QRect(0, kHeight - kButton - 40, kPitch, 40));
}

TEST_F(ListScrollerTest, aShortOneGoesWithoutButtonsSoThatItsThumbCanMove) {
    constexpr int kShort = 80;
    bar_.resize(kPitch, kShort);
    EXPECT_EQ(shadeAt(0), shadeOf(thumbPiece));
    EXPECT_EQ(shadeAt(kShort - 1), shadeOf(trackPiece));
    EXPECT_EQ(bar_.thumb(), QRect(0, 0, kPitch, 40));
    bar_.setValue(1000);
    EXPECT_EQ(bar_.thumb(), QRect(0, kShort - 40, kPitch, 40));
    press(kShort - 1);
    moveTo(kShort / 2 - 1);
    EXPECT_EQ(bar_.value(), 0) << "by the thumb, from its end to its begin";
    release();
}

TEST_F(ListScrollerTest, hasNoThumbWhereThereIsNothingToScroll) {
    bar_.setRange(0, 0);
    EXPECT_EQ(shadeAt(kButton + 5), shadeOf(trackPiece));
    press(kHeight - 2);
    EXPECT_EQ(shadeAt(kHeight - 2), shadeOf(down));
}

TEST_F(ListScrollerTest, growsWithItsFactor) {
    bar_.resize(2 * kPitch, 2 * kHeight);
    bar_.setFactor(2);
    EXPECT_EQ(bar_.sizeHint().width(), 2 * kPitch);
    EXPECT_EQ(bar_.thumb().height(), 80);
    EXPECT_EQ(bar_.thumb().top(), 2 * kButton);
}

TEST_F(ListScrollerTest, aHeldButtonScrollsAtOnceThenAfterItsDelayThenFaster) {
    QElapsedTimer time;
    time.start();
    press(kHeight - 2);
    EXPECT_EQ(bar_.value(), kLine);
    EXPECT_EQ(shadeAt(kHeight - 2), shadeOf(downPressed));
    while (bar_.value() == kLine && time.elapsed() < 5000) {
        QTest::qWait(1);
    }
    EXPECT_GE(time.elapsed(), 190);
    EXPECT_EQ(bar_.value(), 2 * kLine);
    time.restart();
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar_.value() >= 5 * kLine; }));
    EXPECT_GE(time.elapsed(), 3 * 50 - 20);
    release();
    const int stopped = bar_.value();
    QTest::qWait(120);
    EXPECT_EQ(bar_.value(), stopped);
    EXPECT_EQ(shadeAt(kHeight - 2), shadeOf(down));
    press(2);
    EXPECT_EQ(bar_.value(), stopped - kLine);
    EXPECT_EQ(shadeAt(2), shadeOf(upPressed));
    release();
}

TEST_F(ListScrollerTest, theHeldTrackPagesUntilTheThumbIsThere) {
    const int pointer = kHeight / 2 + 20;
    press(pointer);
    EXPECT_EQ(bar_.value(), 100);
    EXPECT_EQ(shadeAt(bar_.thumb().top() + 1), shadeOf(thumbPressed));
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar_.thumb().bottom() >= pointer; }));
    const int there = bar_.value();
    QTest::qWait(150);
    EXPECT_EQ(bar_.value(), there);
    release();
    press(kButton + 1);
    EXPECT_EQ(bar_.value(), there - 100);
    release();
}

TEST_F(ListScrollerTest, theThumbFollowsThePointerThatHoldsIt) {
    press(kButton + 10);
    EXPECT_EQ(shadeAt(kButton + 10), shadeOf(thumbPressed));
    const int way = kHeight - 2 * kButton - 40;
    moveTo(kButton + 10 + way / 2);
    EXPECT_EQ(bar_.value(), 500);
    moveTo(2 * kHeight);
    EXPECT_EQ(bar_.value(), 1000);
    moveTo(-kHeight);
    EXPECT_EQ(bar_.value(), 0);
    release();
    moveTo(kHeight);
    EXPECT_EQ(bar_.value(), 0);
}

TEST_F(ListScrollerTest, isPlainWithoutAWholePicture) {
    const PixelImage small = pieces(90, 40);
    for (const PixelImage* const picture : {static_cast<const PixelImage*>(nullptr), &small}) {
        picture_ = picture;
        EXPECT_EQ(bar_.sizeHint(), QScrollBar(Qt::Vertical).sizeHint());
        EXPECT_NE(shadeAt(0), shadeOf(up));
    }
}

TEST_F(ListScrollerTest, aBarTooLowForItsPiecesKeepsInside) {
    bar_.resize(kPitch, 30);
    EXPECT_GE(bar_.thumb().height(), 0);
    EXPECT_EQ(shadeAt(0), shadeOf(thumbPiece));
    EXPECT_EQ(shadeAt(29), shadeOf(trackPiece));
    bar_.setValue(1000);
    EXPECT_EQ(shadeAt(29), shadeOf(thumbPiece));
    EXPECT_LT(bar_.thumb().bottom(), 30);
}

} // namespace
} // namespace tovik::ui
