// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/ListScroller.h"

#include "ui/qt/ListWidget.h"
#include "WindowRig.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <QElapsedTimer>
#include <utility>
#include <vector>

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

/// The bar on a dense screen: a picture of each density, each piece in two tones that change in
/// every second of its pixels, so that one enlarged from a plainer picture looks otherwise.
class FineScrollerTest : public testing::Test {
protected:
    std::vector<int> asked_;
    std::map<int, PixelImage> images_;
    ListScroller bar_{[this](int factor) {
        asked_.push_back(factor);
        return &images_.at(factor);
    }};

    FineScrollerTest() {
        for (const int density : {1, 2, 3}) {
            PixelImage image{
                .width = 91 * density, .height = 40 * density, .pixels = {}, .density = density};
            for (int y = 0; y < image.height; ++y) {
                for (int x = 0; x < image.width; ++x) {
                    const auto shade = static_cast<std::uint32_t>(x / density / kPitch * 20 + 20);
                    const auto stripe = static_cast<std::uint32_t>(y % 2 * 100);
                    image.pixels.push_back(0xFF000000U | shade << 16U | stripe << 8U |
                                           static_cast<std::uint32_t>(density));
                }
            }
            images_.emplace(density, std::move(image));
        }
        bar_.setRange(0, 1000);
    }

    [[nodiscard]] QImage shownAt(double factor) {
        bar_.setFactor(factor);
        bar_.resize(qRound(kPitch * factor), qRound(190 * factor));
        asked_.clear();
        return bar_.grab().toImage();
    }
};

TEST_F(FineScrollerTest, showsThePictureOfTheScreensOwnDensity) {
    for (const int factor : {1, 2, 3}) {
        const QImage shown = shownAt(factor);
        EXPECT_NE(std::ranges::find(asked_, factor), asked_.end()) << factor;
        const auto shadeAt = [&](int y) { return shown.pixelColor(6 * factor, y * factor).red(); };
        EXPECT_EQ(shadeAt(1), shadeOf(up)) << factor;
        EXPECT_EQ(shadeAt(22), shadeOf(thumbPiece)) << factor;
        EXPECT_EQ(shadeAt(60), shadeOf(thumbPiece)) << factor;
        EXPECT_EQ(shadeAt(100), shadeOf(trackPiece)) << factor;
        EXPECT_EQ(shadeAt(188), shadeOf(down)) << factor;
        // Each pixel of the thumb is one of the picture's.
        for (int y = 21 * factor; y < 61 * factor; ++y) {
            const QColor pixel = shown.pixelColor(6 * factor, y);
            EXPECT_EQ(pixel.blue(), factor);
            EXPECT_EQ(pixel.green(), (y - 21 * factor) % 2 * 100) << y << " at " << factor;
        }
        // The first column of a piece is not its neighbour's.
        EXPECT_EQ(shown.pixelColor(0, 100 * factor).red(), shadeOf(trackPiece));
        EXPECT_EQ(shown.pixelColor(shown.width() - 1, 100 * factor).red(), shadeOf(trackPiece));
    }
}

TEST_F(FineScrollerTest, aFractionIsTheReducedPictureOfTheNextDensity) {
    for (const double factor : {1.25, 1.5}) {
        const QImage shown = shownAt(factor);
        EXPECT_NE(std::ranges::find(asked_, 2), asked_.end()) << factor;
        int mixed = 0;
        for (int y = qRound(25 * factor); y < qRound(55 * factor); ++y) {
            const QColor pixel = shown.pixelColor(shown.width() / 2, y);
            EXPECT_EQ(pixel.red(), shadeOf(thumbPiece)) << y << " at " << factor;
            EXPECT_EQ(pixel.blue(), 2) << y << " at " << factor;
            mixed += pixel.green() > 5 && pixel.green() < 95 ? 1 : 0;
        }
        // Two tones of the picture meet in most pixels, which no enlarged or skipped one has.
        EXPECT_GT(mixed, 15 * factor) << factor;
        EXPECT_EQ(shown.pixelColor(6, qRound(10 * factor)).red(), shadeOf(up)) << factor;
        EXPECT_EQ(shown.pixelColor(6, qRound(120 * factor)).red(), shadeOf(trackPiece)) << factor;
    }
}

} // namespace
} // namespace tovik::ui
