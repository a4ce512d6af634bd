// SPDX-License-Identifier: GPL-3.0-or-later
#include "Badge.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>

namespace tovik::skinart {
namespace {

TEST(SkinIcon, theIconIsTransparentRoundItsEdge) {
    for (const int size : {16, 22, 24, 32, 48, 256, 512}) {
        const QImage icon = programIcon(size);
        EXPECT_EQ(icon.size(), QSize(size, size));
        EXPECT_EQ(qAlpha(icon.pixel(0, 0)), 0);
        EXPECT_EQ(qAlpha(icon.pixel(size / 2, size / 2)), 255);
    }
}

TEST(SkinIcon, smallIconsAreSharp) {
    // The bars of the mark begin and end with pixels: beside them is glass.
    const QImage icon = programIcon(16);
    for (const int x : {1, 2, 4, 5, 7, 8, 10, 11, 13, 14}) {
        EXPECT_GT(qRed(icon.pixel(x, 4)), 240) << x;
    }
    for (const int x : {3, 6, 9, 12}) {
        EXPECT_LT(qRed(icon.pixel(x, 4)), 40) << x;
    }
    EXPECT_LT(qRed(icon.pixel(7, 2)), 40);
    EXPECT_GT(qRed(icon.pixel(7, 12)), 240);
    EXPECT_LT(qRed(icon.pixel(7, 13)), 40);
}

TEST(SkinIcon, theStylesOfTheTrayIconDiffer) {
    for (const int size : {16, 22, 64}) {
        std::set<std::string> seen;
        for (int style = 1; style <= kTrayStyles; ++style) {
            const QImage icon = trayIcon(style, size);
            EXPECT_EQ(icon.size(), QSize(size, size));
            EXPECT_EQ(qAlpha(icon.pixel(0, size - 1)), 0) << style;
            EXPECT_EQ(qAlpha(icon.pixel(size / 2, size / 2)), 255) << style;
            seen.insert(std::string(reinterpret_cast<const char*>(icon.constBits()),
                                    static_cast<std::size_t>(icon.sizeInBytes())));
        }
        EXPECT_EQ(seen.size(), 4U);
    }
}

TEST(SkinIcon, theShippedSvgIsTheDrawnOne) {
    std::ifstream file(TOVIK_ICON_SVG);
    const std::string shipped{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(shipped, programIconSvg()) << "packaging/tovik.svg: tovik_skin_art --icons writes it";
}

} // namespace
} // namespace tovik::skinart
