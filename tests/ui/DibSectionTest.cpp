// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/host/ScriptedRandom.h"
#include "ui/cDIBSection.h"
#include "ui/PixelColour.h"

#include "base/RuntimeError.h"

#include <gmock/gmock.h>

namespace tovik::ui {
namespace {

using testing::Each;
using testing::ElementsAre;

/// Three by two: red, green, blue above white, a hole, grey.
PixelImage flags() {
    return {3, 2, {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFFFFFFF, 0, 0xFF808080}};
}

TEST(DibSection, rowsRunUpwardsInBlueGreenRed) {
    cDIBSection dib;
    ASSERT_TRUE(dib.CreateFromPicture(flags()));
    EXPECT_EQ(dib.Width(), 3);
    EXPECT_EQ(dib.Height(), 2);
    EXPECT_EQ(dib.BytesPerScanLine(), 12);
    EXPECT_THAT(dib.DIBSectionBitsPtr(),
                ElementsAre(255, 255, 255, 14, 222, 235, 128, 128, 128, 0, 0, 0, // lower row
                            0, 0, 255, 0, 255, 0, 255, 0, 0, 0, 0, 0));
}

TEST(DibSection, linesArePaddedToFourBytes) {
    cDIBSection dib;
    for (const auto& [width, bytes] : {std::pair{1, 4}, {2, 8}, {3, 12}, {4, 12}, {5, 16}}) {
        ASSERT_TRUE(dib.Create(width, 2));
        EXPECT_EQ(dib.BytesPerScanLine(), bytes);
        EXPECT_EQ(dib.DIBSectionBitsPtr().size(), 2U * static_cast<unsigned>(bytes));
    }
}

TEST(DibSection, holesOfAPictureGetTheKeyColour) {
    cDIBSection dib;
    ASSERT_TRUE(dib.CreateFromPicture(flags()));
    EXPECT_EQ(dib.pixel(1, 1), keyColour(32));
    EXPECT_EQ(dib.pixel(0, 0), (Colour{255, 0, 0}));
    EXPECT_THROW(static_cast<void>(dib.pixel(3, 0)), base::RuntimeError);
    EXPECT_THROW(static_cast<void>(dib.pixel(0, 2)), base::RuntimeError);
    EXPECT_THROW(static_cast<void>(dib.pixel(-1, 0)), base::RuntimeError);
}

TEST(DibSection, sizesThatNoBitmapHas) {
    cDIBSection dib;
    ASSERT_TRUE(dib.Create(2, 2));
    EXPECT_FALSE(dib.Create(0, 5));
    EXPECT_EQ(dib.Width(), 0);
    EXPECT_EQ(dib.BytesPerScanLine(), 0);
    EXPECT_FALSE(dib.Create(5, -1));
    EXPECT_FALSE(dib.Create(cDIBSection::kMostSide + 1, 1));
    EXPECT_FALSE(dib.CreateFromPicture({}));
    EXPECT_TRUE(dib.DIBSectionBitsPtr().empty());
}

TEST(DibSection, createBlackensAndCreateDibKeepsWhatFits) {
    cDIBSection dib;
    ASSERT_TRUE(dib.CreateFromPicture(flags()));
    ASSERT_TRUE(dib.CreateDIB(3, 2));
    EXPECT_EQ(dib.pixel(1, 0), (Colour{0, 255, 0}));
    ASSERT_TRUE(dib.Create(3, 2));
    EXPECT_THAT(dib.DIBSectionBitsPtr(), Each(0));
    dib.DIBSectionBitsPtr()[0] = 7;
    EXPECT_EQ(dib.pixel(0, 1), (Colour{0, 0, 7}));
    ASSERT_TRUE(dib.CreateDIB(2, 3));
    EXPECT_THAT(dib.DIBSectionBitsPtr(), Each(0));
}

TEST(DibSection, partsOfPicturesAreCutToBoth) {
    cDIBSection dib;
    ASSERT_TRUE(dib.Create(2, 2));
    dib.LoadPictureBlt(flags(), 1, 0, {.left = 1});
    EXPECT_EQ(dib.pixel(1, 0), (Colour{0, 255, 0}));
    EXPECT_EQ(dib.pixel(0, 0), Colour{});
    dib.LoadPictureBlt(flags(), -1, 1);
    EXPECT_EQ(dib.pixel(0, 1), (Colour{0, 255, 0}));
    EXPECT_EQ(dib.pixel(1, 1), (Colour{0, 0, 255}));
    dib.LoadPictureBlt(flags(), 0, 0, {.left = 0, .top = 1, .width = 1, .height = 1});
    EXPECT_EQ(dib.pixel(0, 0), (Colour{255, 255, 255}));
    EXPECT_EQ(dib.pixel(1, 0), (Colour{0, 255, 0}));
}

TEST(DibSection, paintsOpaqueOnAPicture) {
    cDIBSection dib;
    ASSERT_TRUE(dib.CreateFromPicture(flags()));
    PixelImage target{3, 2, std::vector<std::uint32_t>(6, 0)};
    dib.PaintPicture(target, 1, 1);
    EXPECT_THAT(target.pixels, ElementsAre(0, 0, 0, 0, 0xFFFF0000, 0xFF00FF00));
    dib.PaintPicture(target, 0, 0, {.left = 1, .top = 1, .width = 1, .height = 1});
    EXPECT_EQ(target.pixels[0], opaquePixel(keyColour(32)));
}

TEST(DibSection, randomPixels) {
    tovik::test::ScriptedRandom random;
    random.script = {0, 0.5, 0.999, 0.25, 0.75, 0.125};
    cDIBSection dib;
    ASSERT_TRUE(dib.Create(2, 1));
    dib.RandomiseBits(random);
    EXPECT_EQ(dib.pixel(0, 0), (Colour{0, 128, 255}));
    EXPECT_EQ(dib.pixel(1, 0), (Colour{64, 192, 32}));
    random.script = {0.5, 0.25};
    dib.RandomiseBits(random, true);
    EXPECT_EQ(dib.pixel(0, 0), (Colour{128, 128, 128}));
    EXPECT_EQ(dib.pixel(1, 0), (Colour{64, 64, 64}));
}

TEST(DibSection, resamplesBetweenItsPixels) {
    cDIBSection dib;
    ASSERT_TRUE(dib.CreateFromPicture({2, 2, {0xFF000000, 0xFF0000C8, 0xFF006400, 0xFF0064C8}}));
    const auto larger = dib.Resample(3, 5);
    ASSERT_TRUE(larger);
    EXPECT_EQ(larger->Width(), 5);
    EXPECT_EQ(larger->Height(), 3);
    EXPECT_EQ(larger->pixel(0, 0), Colour{});
    EXPECT_EQ(larger->pixel(4, 2), (Colour{0, 100, 200}));
    EXPECT_EQ(larger->pixel(2, 1), (Colour{0, 50, 100}));
    EXPECT_EQ(larger->pixel(1, 0), (Colour{0, 0, 50}));
    const auto same = dib.Resample(2, 2);
    ASSERT_TRUE(same);
    EXPECT_TRUE(std::ranges::equal(same->DIBSectionBitsPtr(), dib.DIBSectionBitsPtr()));
    EXPECT_EQ(dib.Resample(1, 1)->pixel(0, 0), Colour{});
    EXPECT_FALSE(dib.Resample(0, 1));
    EXPECT_FALSE(cDIBSection().Resample(1, 1));
}

} // namespace
} // namespace tovik::ui
