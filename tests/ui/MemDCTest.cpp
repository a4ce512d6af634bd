// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/cMemDC.h"

#include <gmock/gmock.h>

#include <limits>

namespace tovik::ui {
namespace {

using testing::Each;
using testing::ElementsAre;

TEST(MemDC, beginsTransparentInItsSize) {
    cMemDC surface;
    EXPECT_FALSE(surface.IsCreated());
    surface.Init(3, 2);
    EXPECT_TRUE(surface.IsCreated());
    EXPECT_EQ(surface.Width(), 3);
    EXPECT_EQ(surface.Height(), 2);
    EXPECT_THAT(surface.Image().pixels, Each(0U));
    surface.Init(-1, 5);
    EXPECT_FALSE(surface.IsCreated());
    EXPECT_EQ(surface.Width(), 0);
}

TEST(MemDC, clearsToItsBackColour) {
    cMemDC surface(PixelImage{1, 2, {1, 2}});
    surface.Cls();
    EXPECT_THAT(surface.Image().pixels, ElementsAre(0, 0));
    surface.BackColor = Colour{1, 2, 3};
    surface.Cls();
    EXPECT_THAT(surface.Image().pixels, Each(0xFF010203U));
}

TEST(MemDC, fillsRectanglesWithinItself) {
    cMemDC surface;
    surface.Init(3, 2);
    surface.FillRect(-5, 1, 2, 99, {0, 0, 255});
    EXPECT_THAT(surface.Image().pixels, ElementsAre(0, 0, 0, 0xFF0000FF, 0xFF0000FF, 0));
    surface.FillRect(2, 0, 2, 2, {9, 9, 9});
    surface.SetPixel(2, 0, {1, 1, 1});
    surface.SetPixel(3, 0, {1, 1, 1});
    EXPECT_THAT(surface.Image().pixels, ElementsAre(0, 0, 0xFF010101, 0xFF0000FF, 0xFF0000FF, 0));
    EXPECT_EQ(surface.GetPixel(2, 0), (Colour{1, 1, 1}));
    EXPECT_EQ(surface.GetPixel(3, 0), std::nullopt);
    EXPECT_EQ(surface.GetPixel(0, -1), std::nullopt);
}

TEST(MemDC, copiesPixelsAsTheyAre) {
    const PixelImage source{2, 2, {0xFF000001, 0, 0xFF000003, 0xFF000004}};
    cMemDC surface(PixelImage{3, 2, std::vector<std::uint32_t>(6, 9)});
    surface.BitBlt(1, 0, 2, 2, source);
    EXPECT_THAT(surface.Image().pixels, ElementsAre(9, 0xFF000001, 0, 9, 0xFF000003, 0xFF000004));
}

TEST(MemDC, copiesOnlyWhatBothHave) {
    const PixelImage source{2, 2, {1, 2, 3, 4}};
    cMemDC surface;
    surface.Init(2, 2);
    surface.BitBlt(-1, 1, 9, 9, source);
    EXPECT_THAT(surface.Image().pixels, ElementsAre(0, 0, 2, 0));
    surface.Init(2, 2);
    surface.BitBlt(0, 0, 2, 2, source, -1, 1);
    EXPECT_THAT(surface.Image().pixels, ElementsAre(0, 3, 0, 0));
    surface.Init(2, 2);
    surface.BitBlt(0, 0, 1, 2, source, 1, 0);
    EXPECT_THAT(surface.Image().pixels, ElementsAre(2, 0, 4, 0));
    surface.Init(2, 2);
    constexpr int kMost = std::numeric_limits<int>::max();
    constexpr int kLeast = std::numeric_limits<int>::min();
    surface.BitBlt(kLeast, 0, kMost, kMost, source, kMost, kLeast);
    surface.BitBlt(2, 0, 5, 5, source);
    surface.BitBlt(0, 0, -3, 5, source);
    EXPECT_THAT(surface.Image().pixels, Each(0U));
}

TEST(MemDC, givesItsPictureAway) {
    cMemDC surface(PixelImage{1, 1, {5}});
    EXPECT_THAT(surface.DetachBitmap().pixels, ElementsAre(5));
    EXPECT_FALSE(surface.IsCreated());
    surface.Init(1, 1);
    surface.Destroy();
    EXPECT_FALSE(surface.IsCreated());
}

} // namespace
} // namespace tovik::ui
