// SPDX-License-Identifier: GPL-3.0-or-later
#include "vis/SpectrumFigure.h"

#include "ui/PixelColour.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tovik::test {
namespace {

constexpr std::uint32_t kBlack = 0xFF000000U;
constexpr std::uint32_t kWhite = 0xFFFFFFFFU;
constexpr int kWidth = 166;
constexpr int kHeight = 24;

ui::PixelImage area(std::uint32_t colour = 0) {
    return {.width = kWidth,
            .height = kHeight,
            .pixels = std::vector<std::uint32_t>(kWidth * kHeight, colour)};
}

/// A picture of bars whose pixels tell where they are.
ui::PixelImage tile() {
    ui::PixelImage image{.width = 5, .height = 24, .pixels = {}};
    for (std::uint32_t i = 0; i < 5 * 24; ++i) {
        image.pixels.push_back(0xFF001000U + i);
    }
    return image;
}

std::uint32_t at(const ui::PixelImage& image, int x, int y) {
    return image.pixels.at(ui::pixelPlace(image, x, y));
}

/// Pixel by pixel, from the levels.
ui::PixelImage expected(const vis::SpectrumData& data, const ui::PixelImage& bars) {
    ui::PixelImage image = area(kBlack);
    for (int i = 0; i < 33; ++i) {
        const auto band = static_cast<std::size_t>(i);
        const double top = std::nearbyint(kHeight - double{data.bands.at(band)} * kHeight);
        const double mark = std::nearbyint(kHeight - double{data.peaks.at(band)} * kHeight);
        for (int x = i * 5 + 1; x < i * 5 + 5; ++x) {
            for (int y = 0; y < kHeight; ++y) {
                if (y >= top) {
                    image.pixels.at(ui::pixelPlace(image, x, y)) = at(bars, x % 5, y % 24);
                }
                if (y == mark) {
                    image.pixels.at(ui::pixelPlace(image, x, y)) = kWhite;
                }
            }
        }
    }
    return image;
}

class SpectrumFigure : public testing::Test {
protected:
    SpectrumFigure() {
        for (std::size_t band = 0; band < vis::kBands; ++band) {
            data_.bands.at(band) = static_cast<float>(band) / 32;
            data_.peaks.at(band) = std::min(1.0F, data_.bands.at(band) + 0.2F);
        }
    }

    vis::SpectrumData data_;
    vis::SpectrumFigure figure_;
};

TEST_F(SpectrumFigure, barsAreCutOutOfTheSkinsPictureWithAMarkAboveEach) {
    ui::PixelImage image = area(0x12345678);
    ASSERT_TRUE(figure_.place(data_, kWidth, kHeight));
    const ui::PixelImage bars = tile();
    figure_.draw(image, &bars);
    EXPECT_EQ(image.pixels, expected(data_, bars).pixels);
    EXPECT_EQ(at(image, 161, 5), at(bars, 1, 5)); // band 32 reaches the top
    EXPECT_EQ(at(image, 161, 0), kWhite);
    EXPECT_EQ(at(image, 165, 5), kBlack); // the edge behind the last bar
    EXPECT_EQ(at(image, 0, 23), kBlack);
}

TEST_F(SpectrumFigure, aMarkAtTheGroundIsNotSeen) {
    ui::PixelImage image = area();
    ASSERT_TRUE(figure_.place(vis::SpectrumData{}, kWidth, kHeight));
    figure_.draw(image, nullptr);
    EXPECT_EQ(image.pixels, area(kBlack).pixels);
}

TEST_F(SpectrumFigure, drawsOnlyTheColumnsThatMoved) {
    const ui::PixelImage bars = tile();
    ui::PixelImage image = area();
    ASSERT_TRUE(figure_.place(data_, kWidth, kHeight));
    figure_.draw(image, &bars);
    EXPECT_FALSE(figure_.place(data_, kWidth, kHeight));
    data_.bands[7] += 0.001F; // less than a row
    EXPECT_FALSE(figure_.place(data_, kWidth, kHeight));
    data_.bands[7] += 0.2F;
    ASSERT_TRUE(figure_.place(data_, kWidth, kHeight));
    ui::PixelImage marked = area(0x11111111);
    figure_.draw(marked, &bars);
    const ui::PixelImage whole = expected(data_, bars);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const bool moved = x >= 36 && x < 40;
            ASSERT_EQ(at(marked, x, y), moved ? at(whole, x, y) : 0x11111111U) << x << " " << y;
        }
    }
    figure_.forget();
    ASSERT_TRUE(figure_.place(data_, kWidth, kHeight));
    figure_.draw(marked, &bars);
    EXPECT_EQ(marked.pixels, whole.pixels);
}

TEST_F(SpectrumFigure, withoutASkinItHasBarsOfItsOwnWarmAtTheTop) {
    data_.bands.fill(1);
    data_.peaks.fill(0);
    ui::PixelImage image = area();
    ASSERT_TRUE(figure_.place(data_, kWidth, kHeight));
    figure_.draw(image, nullptr);
    const ui::Colour top = ui::colourOf(at(image, 2, 0));
    const ui::Colour bottom = ui::colourOf(at(image, 2, kHeight - 1));
    EXPECT_GT(top.red, top.blue);
    EXPECT_GT(bottom.blue, bottom.red);
    EXPECT_NE(at(image, 2, 0), at(image, 2, 12));
    EXPECT_EQ(at(image, 0, 12), kBlack);
}

TEST_F(SpectrumFigure, aNarrowerAreaCutsBarsOff) {
    ui::PixelImage image{.width = 8, .height = 10, .pixels = std::vector<std::uint32_t>(80)};
    data_.bands.fill(0.5F);
    data_.peaks.fill(1);
    ASSERT_TRUE(figure_.place(data_, 8, 10));
    const ui::PixelImage bars = tile();
    figure_.draw(image, &bars);
    EXPECT_EQ(at(image, 7, 9), at(bars, 2, 9));
    EXPECT_EQ(at(image, 7, 0), kWhite);
    EXPECT_EQ(at(image, 5, 9), kBlack);
}

TEST_F(SpectrumFigure, onAScreenBarsAndMarksGrowAndStandInTheMiddle) {
    constexpr int kScreenWidth = 1280;
    constexpr int kScreenHeight = 720;
    ui::PixelImage image{.width = kScreenWidth,
                         .height = kScreenHeight,
                         .pixels =
                             std::vector<std::uint32_t>(std::size_t{kScreenWidth} * kScreenHeight)};
    data_.bands.fill(0.5F);
    data_.peaks.fill(0.75F);
    ASSERT_TRUE(figure_.place(data_, kScreenWidth, kScreenHeight));
    const ui::PixelImage bars = tile();
    figure_.draw(image, &bars);
    // 7 times as large: 33 bars of 35 leave 125 pixels, half of them before the first one.
    constexpr int kFirst = 62;
    for (const auto& [x, lit] :
         {std::pair(kFirst - 1, false), std::pair(kFirst + 6, false), std::pair(kFirst + 7, true),
          std::pair(kFirst + 34, true), std::pair(kFirst + 35, false), std::pair(1279, false)}) {
        EXPECT_EQ(at(image, x, 700) != kBlack, lit) << x;
    }
    for (const auto& [y, colour] :
         {std::pair(179, kBlack), std::pair(180, kWhite), std::pair(186, kWhite),
          std::pair(187, kBlack), std::pair(359, kBlack)}) {
        EXPECT_EQ(at(image, kFirst + 10, y), colour) << y;
    }
    // The skin's bars are made for the window: the program has others.
    EXPECT_NE(at(image, kFirst + 10, 719), at(bars, 0, 0));
    const ui::Colour ground = ui::colourOf(at(image, kFirst + 10, 719));
    EXPECT_GT(ground.blue, ground.red);
    // Back in the window everything is drawn anew.
    ASSERT_TRUE(figure_.place(data_, kWidth, kHeight));
}

} // namespace
} // namespace tovik::test
