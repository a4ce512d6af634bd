// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/RegionData.h"
#include "base/LittleEndian.h"

#include <gmock/gmock.h>

#include <array>
#include <chrono>
#include <initializer_list>

namespace tovik::ui {
namespace {

using R = RegionRectangle;

std::string numbers(std::initializer_list<std::uint32_t> all) {
    std::string bytes;
    for (const std::uint32_t number : all) {
        base::appendLittleEndian(bytes, number);
    }
    return bytes;
}

TEST(RegionData, isThePublishedRecord) {
    Region region(R{1, 2, 5, 4});
    region.unite({2, 4, 3, 6});
    EXPECT_EQ(regionData(region), numbers({32, 1, 2, 32, 1, 2, 5, 6, // header and bounds
                                           1, 2, 5, 4, 2, 4, 3, 6}));
}

TEST(RegionData, comesBackEqual) {
    Region region(R{0, 0, 470, 312});
    for (int i = 0; i < 60; ++i) {
        region.exclusiveOr({i * 3, i, i * 3 + 1, 2 * i + 1});
    }
    EXPECT_EQ(regionFromData(regionData(region)), region);
    EXPECT_EQ(regionFromData(regionData(Region())), Region());
}

TEST(RegionData, rectanglesMayOverlapAndComeInAnyOrder) {
    const auto region =
        regionFromData(numbers({32, 1, 3, 0, 0, 0, 0, 0, 4, 4, 8, 8, 0, 0, 6, 6, 9, 9, 9, 9}));
    Region expected(R{0, 0, 6, 6});
    expected.unite({4, 4, 8, 8});
    EXPECT_EQ(region, expected);
}

TEST(RegionData, bytesThatAreNoRecordAreRefused) {
    const std::string good = regionData(Region(R{1, 2, 5, 4}));
    for (std::size_t length = 0; length < good.size(); ++length) {
        EXPECT_FALSE(regionFromData(std::string_view(good).substr(0, length))) << length;
    }
    EXPECT_TRUE(regionFromData(good + "more"));
    EXPECT_FALSE(regionFromData(numbers({31, 1, 0, 0, 0, 0, 0, 0})));
    EXPECT_FALSE(regionFromData(numbers({32, 2, 0, 0, 0, 0, 0, 0})));
    EXPECT_FALSE(regionFromData(numbers({32, 1, 0xFFFFFFFF, 0, 0, 0, 0, 0})));
}

TEST(RegionData, aFileCannotKeepTheProgramBusy) {
    // Every rectangle crosses every other one: a grid of thousands by thousands.
    std::string bytes = numbers({32, 1, 16000, 0, 0, 0, 0, 0});
    for (std::uint32_t i = 0; i < 8000; ++i) {
        bytes += numbers({2 * i, 0, 2 * i + 1, 16000});
    }
    for (std::uint32_t i = 0; i < 8000; ++i) {
        bytes += numbers({0, 2 * i, 16000, 2 * i + 1});
    }
    EXPECT_FALSE(regionFromData(bytes));
    // Many rectangles in their order are no trouble.
    Region noisy;
    for (std::int32_t y = 0; y < 300; ++y) {
        for (std::int32_t x = y % 2; x < 400; x += 2) {
            noisy.unite({x, y, x + 1, y + 1});
        }
    }
    EXPECT_EQ(regionFromData(regionData(noisy)), noisy);
}

} // namespace
} // namespace tovik::ui
