// SPDX-License-Identifier: GPL-3.0-or-later
// The outline of the window, its size on screens of any density, and dragging it.
#include "WindowRig.h"

#include <gmock/gmock.h>

namespace tovik::ui {
namespace {

using test::Small;
using testing::ElementsAre;
using testing::IsEmpty;

class WindowShapeTest : public testing::Test, protected test::WindowRig {
protected:
    void SetUp() override { ASSERT_TRUE(show()); }

    QImage picture() {
        settle();
        return window.grab().toImage();
    }

    void move(QPoint global, Qt::MouseButtons held) {
        const QPointF place = window.mapFromGlobal(global);
        QMouseEvent move(QEvent::MouseMove, place, QPointF(global), Qt::NoButton, held, {});
        QCoreApplication::sendEvent(&window, &move);
    }

    /// All but a corner of 10 by 5.
    static Region cornerless() {
        Region region(RegionRectangle{0, 0, 200, 100});
        region.exclusiveOr({0, 0, 10, 5});
        return region;
    }
};

TEST_F(WindowShapeTest, hasNoBorderAndLetsShineThrough) {
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(window.testAttribute(Qt::WA_TranslucentBackground));
    PixelImage ground{200, 100, std::vector<std::uint32_t>(20000, 0xFF102030)};
    ground.pixels[3] = 0;
    table.touch(Small::ground).picture = pictures.add(ground);
    EXPECT_EQ(picture().pixelColor(3, 0).alpha(), 0);
    EXPECT_EQ(picture().pixelColor(4, 0), QColor(0x10, 0x20, 0x30));
}

TEST_F(WindowShapeTest, theRegionIsItsMaskAtAnyScale) {
    const Region region = cornerless();
    window.setRegion(&region);
    EXPECT_EQ(window.mask(), QRegion(0, 0, 200, 100) - QRegion(0, 0, 10, 5));
    window.setScale(2);
    EXPECT_EQ(window.mask(), QRegion(0, 0, 400, 200) - QRegion(0, 0, 20, 10));
    window.setScale(1.25);
    EXPECT_FALSE(window.mask().contains(QPoint(11, 5)));
    EXPECT_TRUE(window.mask().contains(QPoint(13, 5)));
    EXPECT_TRUE(window.mask().contains(QPoint(11, 7)));
    window.setRegion(nullptr);
    EXPECT_TRUE(window.mask().isEmpty());
}

TEST_F(WindowShapeTest, outsideTheRegionThereIsNoWindow) {
    const Region region = cornerless();
    window.setRegion(&region);
    moveMouse({50, 50});
    notes.lines.clear();
    QTest::mousePress(&window, Qt::LeftButton, {}, QPoint(3, 3));
    QTest::mouseRelease(&window, Qt::LeftButton, {}, QPoint(3, 3));
    EXPECT_TRUE(std::ranges::none_of(
        notes.lines, [](const std::string& line) { return line.starts_with("down"); }));
    moveMouse({50, 50});
    notes.lines.clear();
    moveMouse({3, 3});
    EXPECT_THAT(notes.lines, ElementsAre("leave up(0)"));
    notes.lines.clear();
    QTest::mousePress(&window, Qt::LeftButton, {}, QPoint(10, 3));
    EXPECT_FALSE(notes.lines.empty());
}

TEST_F(WindowShapeTest, aPressThatBeganInsideGoesOnOutside) {
    const Region region = cornerless();
    window.setRegion(&region);
    QTest::mousePress(&window, Qt::LeftButton, {}, QPoint(50, 50));
    notes.lines.clear();
    move(window.mapToGlobal(QPoint(3, 3)), Qt::LeftButton);
    QTest::mouseRelease(&window, Qt::LeftButton, {}, QPoint(3, 3));
    EXPECT_THAT(notes.lines, testing::Contains("up up(0) -37,-37"));
    EXPECT_THAT(notes.lines, testing::Contains("move up(0) -37,-37"));
}

TEST_F(WindowShapeTest, isDrawnRightAtEveryScale) {
    // Stripes of one pixel and a block, whose colours must come out at their places.
    PixelImage ground{200, 100, {}};
    for (int y = 0; y < 100; ++y) {
        for (int x = 0; x < 200; ++x) {
            ground.pixels.push_back(x >= 100 ? 0xFF00FF00 : 0xFF0000FF);
        }
    }
    table.touch(Small::ground).picture = pictures.add(ground);
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        window.setScale(scale);
        const QImage shown = picture();
        EXPECT_EQ(shown.size(), QSize(qRound(200 * scale), qRound(100 * scale))) << scale;
        const auto at = [&](double x, double y) {
            return shown.pixelColor(static_cast<int>(x * scale), static_cast<int>(y * scale));
        };
        EXPECT_EQ(at(98, 3), QColor(0, 0, 255)) << scale;
        EXPECT_EQ(at(102, 97), QColor(0, 255, 0)) << scale;
        // The last pixels are the window's own, not a blend with something beyond.
        EXPECT_EQ(shown.pixelColor(shown.width() - 1, shown.height() - 1), QColor(0, 255, 0))
            << scale;
        EXPECT_EQ(shown.pixelColor(0, 0), QColor(0, 0, 255)) << scale;
    }
}

TEST_F(WindowShapeTest, anythingButAWholeScaleIsOneSmoothReduction) {
    PixelImage stripes{200, 100, {}};
    for (int i = 0; i < 20000; ++i) {
        stripes.pixels.push_back(i % 2 == 0 ? 0xFFFFFFFF : 0xFF000000);
    }
    table.touch(Small::ground).picture = pictures.add(stripes);
    const auto greys = [&] {
        const QImage shown = picture();
        int count = 0;
        for (int x = 0; x < shown.width(); ++x) {
            const int level = shown.pixelColor(x, 2).red();
            count += level > 20 && level < 235 ? 1 : 0;
        }
        return count;
    };
    window.setScale(2);
    EXPECT_EQ(greys(), 0);
    window.setScale(1.5);
    EXPECT_GT(greys(), 50);
}

TEST_F(WindowShapeTest, partOfAReducedWindowIsRepaintedWithoutASeam) {
    window.setScale(1.25);
    static_cast<void>(picture());
    table.touch(Small::title).caption = "Words";
    settle();
    const QImage part = window.grab().toImage();
    window.setScale(1);
    window.setScale(1.25);
    EXPECT_EQ(part, picture());
}

TEST_F(WindowShapeTest, followsThePointerWhileItIsDragged) {
    window.move(100, 100);
    QTest::mousePress(&window, Qt::LeftButton, {}, QPoint(30, 90));
    window.beginDrag();
    notes.lines.clear();
    move(QPoint(150, 210), Qt::LeftButton);
    EXPECT_EQ(window.pos(), QPoint(120, 120));
    window.beginDrag(); // each move asks for it anew
    move(QPoint(131, 191), Qt::LeftButton);
    EXPECT_EQ(window.pos(), QPoint(101, 101));
    EXPECT_THAT(notes.lines, IsEmpty());
    QTest::mouseRelease(&window, Qt::LeftButton, {}, QPoint(30, 90));
    move(QPoint(300, 300), Qt::NoButton);
    EXPECT_EQ(window.pos(), QPoint(101, 101));
}

TEST_F(WindowShapeTest, aDragWhoseReleaseWasLostEndsAtTheNextMove) {
    window.move(100, 100);
    QTest::mousePress(&window, Qt::LeftButton, {}, QPoint(30, 90));
    window.beginDrag();
    move(QPoint(140, 200), Qt::NoButton);
    EXPECT_EQ(window.pos(), QPoint(100, 100));
    move(QPoint(150, 200), Qt::LeftButton);
    EXPECT_EQ(window.pos(), QPoint(100, 100));
}

} // namespace
} // namespace tovik::ui
