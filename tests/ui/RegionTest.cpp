// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Region.h"

#include <gmock/gmock.h>

#include <limits>
#include <random>
#include <set>

namespace tovik::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using R = RegionRectangle;

TEST(Region, beginsEmpty) {
    const Region region;
    EXPECT_THAT(region.rectangles(), IsEmpty());
    EXPECT_EQ(region.bounds(), R{});
    EXPECT_FALSE(region.contains(0, 0));
}

TEST(Region, edgesOnTheRightAndBelowLieOutside) {
    const Region region(R{2, 3, 5, 7});
    EXPECT_TRUE(region.contains(2, 3));
    EXPECT_TRUE(region.contains(4, 6));
    EXPECT_FALSE(region.contains(5, 6));
    EXPECT_FALSE(region.contains(4, 7));
    EXPECT_FALSE(region.contains(1, 3));
    EXPECT_FALSE(region.contains(2, 2));
    EXPECT_THAT(region.rectangles(), ElementsAre(R{2, 3, 5, 7}));
}

TEST(Region, exclusiveOrCutsAHoleAndFillsItAgain) {
    Region region(R{0, 0, 10, 10});
    region.exclusiveOr({3, 4, 6, 8});
    EXPECT_THAT(region.rectangles(),
                ElementsAre(R{0, 0, 10, 4}, R{0, 4, 3, 8}, R{6, 4, 10, 8}, R{0, 8, 10, 10}));
    EXPECT_FALSE(region.contains(3, 4));
    region.exclusiveOr({3, 4, 6, 8});
    EXPECT_EQ(region, Region(R{0, 0, 10, 10}));
}

TEST(Region, exclusiveOrAddsWhatWasOutside) {
    Region region(R{0, 0, 4, 4});
    region.exclusiveOr({2, 2, 6, 6});
    EXPECT_TRUE(region.contains(5, 5));
    EXPECT_FALSE(region.contains(3, 3));
    EXPECT_EQ(region.bounds(), (R{0, 0, 6, 6}));
}

TEST(Region, neighboursGrowTogether) {
    Region region(R{0, 0, 5, 5});
    region.unite({5, 0, 8, 5});
    region.unite({0, 5, 8, 6});
    EXPECT_THAT(region.rectangles(), ElementsAre(R{0, 0, 8, 6}));
}

TEST(Region, emptyRectanglesAreNone) {
    Region region(R{0, 0, 2, 2});
    region.unite({5, 5, 5, 9});
    region.exclusiveOr({1, 1, 0, 2});
    EXPECT_EQ(region, Region(R{0, 0, 2, 2}));
}

TEST(Region, numbersGoAsFarAsTheTypeDoes) {
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    Region region(R{kLeast, kLeast, kMost, kMost});
    region.exclusiveOr({0, 0, 1, 1});
    EXPECT_TRUE(region.contains(kLeast, kLeast));
    EXPECT_FALSE(region.contains(kMost, 0));
    EXPECT_FALSE(region.contains(0, 0));
}

TEST(Region, agreesWithASetOfPixels) {
    std::mt19937 chance(7);
    const auto place = [&] { return static_cast<std::int32_t>(chance() % 12); };
    for (int round = 0; round < 200; ++round) {
        Region region;
        std::set<std::pair<int, int>> pixels;
        for (int step = 0; step < 12; ++step) {
            const std::int32_t left = place();
            const std::int32_t top = place();
            const R rectangle{left, top, left + place() % 6, top + place() % 6};
            const bool unite = place() % 2 == 0;
            for (int y = rectangle.top; y < rectangle.bottom; ++y) {
                for (int x = rectangle.left; x < rectangle.right; ++x) {
                    if (!pixels.insert({x, y}).second && !unite) {
                        pixels.erase({x, y});
                    }
                }
            }
            unite ? region.unite(rectangle) : region.exclusiveOr(rectangle);
        }
        std::set<std::pair<int, int>> told;
        for (const R& one : region.rectangles()) {
            for (int y = one.top; y < one.bottom; ++y) {
                for (int x = one.left; x < one.right; ++x) {
                    EXPECT_TRUE(told.insert({x, y}).second);
                }
            }
        }
        ASSERT_EQ(told, pixels) << round;
        for (int y = -1; y < 20; ++y) {
            for (int x = -1; x < 20; ++x) {
                ASSERT_EQ(region.contains(x, y), pixels.contains({x, y}));
            }
        }
    }
}

} // namespace
} // namespace tovik::ui
