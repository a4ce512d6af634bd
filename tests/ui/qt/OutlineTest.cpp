// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/Outline.h"

#include <gtest/gtest.h>

namespace tovik::ui {
namespace {

QImage empty(int width, int height) {
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

TEST(Outline, holdsThePixelsThatAreThereEnough) {
    QImage image = empty(9, 7);
    // Something with a hole, a faint edge, and rows that are alike and are not.
    for (int y = 1; y < 6; ++y) {
        for (int x = 2; x < 9; ++x) {
            image.setPixelColor(x, y, QColor(200, 100, 0, 255));
        }
    }
    image.setPixelColor(4, 3, Qt::transparent);
    image.setPixelColor(2, 1, QColor(200, 100, 0, kHardEdge - 1));
    image.setPixelColor(3, 1, QColor(200, 100, 0, kHardEdge));
    image.setPixelColor(0, 6, QColor(200, 100, 0, 1));
    for (const int least : {1, kHardEdge, 255}) {
        const QRegion seen = seenPixels(image, least);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                EXPECT_EQ(seen.contains(QPoint(x, y)), image.pixelColor(x, y).alpha() >= least)
                    << least << ": " << x << "," << y;
            }
        }
    }
    QRegion same;
    for (const QRect& one : seenPixels(image, 1)) {
        same += one;
    }
    EXPECT_EQ(same, seenPixels(image, 1));
}

TEST(Outline, nothingAndEverything) {
    EXPECT_TRUE(seenPixels(empty(5, 4), 1).isEmpty());
    QImage full = empty(5, 4);
    full.fill(Qt::white);
    EXPECT_EQ(seenPixels(full, 255), QRegion(0, 0, 5, 4));
    EXPECT_EQ(seenPixels(full, 255).rectCount(), 1);
    EXPECT_TRUE(seenPixels(QImage(), 1).isEmpty());
}

TEST(Outline, aFinerPictureMayPassTheSkinsEdgeByLessThanItsPixel) {
    Region region(RegionRectangle{0, 0, 20, 10});
    region.exclusiveOr({0, 0, 5, 5});
    EXPECT_EQ(roomOf(region, 1), QRegion(0, 0, 20, 10) - QRegion(0, 0, 5, 5));
    const QRegion room = roomOf(region, 2);
    EXPECT_FALSE(room.contains(QPoint(7, 7)));
    EXPECT_TRUE(room.contains(QPoint(8, 7)));
    EXPECT_TRUE(room.contains(QPoint(7, 8)));
    EXPECT_TRUE(room.contains(QPoint(39, 19)));
    EXPECT_FALSE(roomOf(region, 1.5).contains(QPoint(5, 5)));
}

TEST(Outline, whereNobodyBlendsAPixelIsThereOrNot) {
    QImage image = empty(4, 1);
    image.setPixelColor(1, 0, QColor(200, 100, 0, 100));
    image.setPixelColor(2, 0, QColor(200, 100, 0, 160));
    image.setPixelColor(3, 0, QColor(200, 100, 0));
    const QImage hard = hardEdged(image);
    EXPECT_EQ(hard.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(hard.pixelColor(1, 0).alpha(), 0);
    EXPECT_EQ(hard.pixelColor(2, 0).alpha(), 255);
    EXPECT_NEAR(hard.pixelColor(2, 0).red(), 200, 2) << "not darker for being an edge";
    EXPECT_NEAR(hard.pixelColor(2, 0).green(), 100, 2);
    EXPECT_EQ(hard.pixelColor(3, 0), QColor(200, 100, 0));
}

} // namespace
} // namespace tovik::ui
