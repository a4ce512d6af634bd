// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/Reduction.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tovik::ui {
namespace {

constexpr std::array kRatios{2 / 1.25, 2 / 1.5, 2 / 1.75, 3 / 2.5, 2 / 1.1, 3 / 2.9, 1 / 0.4, 1 / 0.3};

/// A picture of that size whose pixels a function gives.
template <typename Pixel>
QImage painted(QSize size, const Pixel& pixel) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            image.setPixel(x, y, pixel(x, y));
        }
    }
    return image;
}

constexpr QSize kSize(60, 40);

/// As large as the reduction is.
QRect whole(double ratio) {
    return {0, 0, static_cast<int>(std::ceil(kSize.width() / ratio)),
            static_cast<int>(std::ceil(kSize.height() / ratio))};
}

TEST(Reduction, theFactorIsTheWholeOneAtOrAboveTheScale) {
    EXPECT_EQ(wholeFactor(1), 1);
    EXPECT_EQ(wholeFactor(1.0001), 1);
    EXPECT_EQ(wholeFactor(1.25), 2);
    EXPECT_EQ(wholeFactor(1.9999), 2);
    EXPECT_EQ(wholeFactor(2.5), 3);
    EXPECT_EQ(wholeFactor(0.5), 1);
}

TEST(Reduction, anEvenColourStaysWhatItIs) {
    for (const QRgb colour : {0xFF102030U, 0xFFFFFFFFU, 0x80402010U, 0U}) {
        const QImage source = painted(kSize, [colour](int, int) { return colour; });
        for (const double ratio : kRatios) {
            const QImage small = reduced(source, {}, ratio, whole(ratio));
            for (int y = 0; y < small.height(); ++y) {
                for (int x = 0; x < small.width(); ++x) {
                    ASSERT_EQ(small.pixel(x, y), colour) << ratio << ": " << x << "," << y;
                }
            }
        }
    }
}

TEST(Reduction, eachPixelIsTheMeanOfWhatItCovers) {
    const auto light = [](int x, int y) { return (x * 37 + y * 91) % 256; };
    const QImage source =
        painted(kSize, [&](int x, int y) { return qRgb(light(x, y), 255 - light(x, y), 0); });
    for (const double ratio : kRatios) {
        const QRect all = whole(ratio).adjusted(0, 0, -1, -1); // whole pixels only
        const QImage small = reduced(source, {}, ratio, all);
        for (int y = 0; y < small.height(); ++y) {
            for (int x = 0; x < small.width(); ++x) {
                double sum = 0;
                for (int v = 0; v < kSize.height(); ++v) {
                    for (int u = 0; u < kSize.width(); ++u) {
                        const double wide =
                            std::min(u + 1.0, (x + 1) * ratio) - std::max<double>(u, x * ratio);
                        const double high =
                            std::min(v + 1.0, (y + 1) * ratio) - std::max<double>(v, y * ratio);
                        sum += std::max(wide, 0.0) * std::max(high, 0.0) * light(u, v);
                    }
                }
                const double mean = sum / (ratio * ratio);
                ASSERT_NEAR(qRed(small.pixel(x, y)), mean, 2) << ratio << ": " << x << "," << y;
                ASSERT_NEAR(qGreen(small.pixel(x, y)), 255 - mean, 2);
            }
        }
    }
}

TEST(Reduction, anEdgeIsOnePixelWideAndRingsNowhere) {
    const QImage source =
        painted(kSize, [](int x, int) { return x < 30 ? 0xFF000000U : 0xFFFFFFFFU; });
    for (const double ratio : kRatios) {
        const QImage small = reduced(source, {}, ratio, whole(ratio));
        int between = 0;
        for (int x = 0; x < small.width(); ++x) {
            const int light = qRed(small.pixel(x, 5));
            between += light > 0 && light < 255 ? 1 : 0;
            if (x > 0) {
                EXPECT_GE(light, qRed(small.pixel(x - 1, 5)));
            }
        }
        EXPECT_LE(between, 1) << ratio;
    }
}

TEST(Reduction, everyPartIsThatOfTheWhole) {
    const QImage source = painted(
        kSize, [](int x, int y) { return qRgb(x * 53 % 256, y * 71 % 256, (x + y) % 2 * 255); });
    for (const double ratio : kRatios) {
        const QImage all = reduced(source, {}, ratio, whole(ratio));
        for (const QRect& part : {QRect(3, 5, 11, 7), QRect(0, 0, 1, 1), QRect(17, 9, 2, 12)}) {
            EXPECT_EQ(reduced(source, {}, ratio, part), all.copy(part)) << ratio;
        }
    }
}

TEST(Reduction, aPieceOfThePictureStandsWhereItStandsInIt) {
    const QImage source = painted(
        kSize, [](int x, int y) { return qRgb(x * 53 % 256, y * 71 % 256, (x + y) % 2 * 255); });
    const QRect piece(20, 10, 30, 20);
    for (const double ratio : kRatios) {
        // Pixels that cover nothing outside the piece.
        const QRect inside(static_cast<int>(std::ceil(20 / ratio)),
                           static_cast<int>(std::ceil(10 / ratio)), 8, 5);
        EXPECT_EQ(reduced(source.copy(piece), piece.topLeft(), ratio, inside),
                  reduced(source, {}, ratio, inside))
            << ratio;
    }
}

TEST(Reduction, besideThePictureThereIsNothing) {
    const QImage source = painted(kSize, [](int, int) { return 0xFFFFFFFFU; });
    const QImage small = reduced(source, {10, 10}, 1.6, QRect(0, 0, 60, 60));
    EXPECT_EQ(small.pixel(2, 2), 0U);
    EXPECT_EQ(small.pixel(6, 7), 0xFFFFFFFFU) << "what lies outside counts for nothing";
    EXPECT_EQ(small.pixel(20, 20), 0xFFFFFFFFU);
    EXPECT_EQ(small.pixel(50, 20), 0U);
}

TEST(Reduction, coloursNeverPassTheirAlpha) {
    const QImage source =
        painted(kSize, [](int x, int y) { return (x + y) % 3 == 0 ? 0U : 0xFFFFFFFFU; });
    for (const double ratio : kRatios) {
        const QImage small = reduced(source, {}, ratio, whole(ratio));
        for (int x = 0; x < small.width(); ++x) {
            const auto pixel = reinterpret_cast<const QRgb*>(small.constScanLine(3))[x];
            EXPECT_LE(qRed(pixel), qAlpha(pixel));
        }
    }
}

} // namespace
} // namespace tovik::ui
