// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/visual/NameCache.h"

#include <gtest/gtest.h>

namespace tovik::test {
namespace {

using sound::NameCache;

TEST(NameCache, keepsNamesByPathSizeAndTime) {
    NameCache cache;
    cache.add("/a/x y.svp", {.size = 10, .time = -5}, "Waves");
    cache.add("/a/z.svp", {.size = 11, .time = 6}, "");
    const NameCache read(cache.bytes());
    EXPECT_EQ(read, cache);
    EXPECT_EQ(read.find("/a/x y.svp", {.size = 10, .time = -5}), "Waves");
    EXPECT_EQ(read.find("/a/z.svp", {.size = 11, .time = 6}), "");
    EXPECT_EQ(read.find("/a/x y.svp", {.size = 9, .time = -5}), std::nullopt);
    EXPECT_EQ(read.find("/a/x y.svp", {.size = 10, .time = 5}), std::nullopt);
    EXPECT_EQ(read.find("/a/x.svp", {.size = 10, .time = -5}), std::nullopt);
}

TEST(NameCache, leavesOutWhatIsNoRow) {
    const NameCache read("x\n1 2\n1 x\t/a\tb\n1 2\t\tb\n1 2\t/ok\tname\n9 9\t/cut\tna");
    EXPECT_EQ(read.rows(), 1U);
    EXPECT_EQ(read.find("/ok", {.size = 1, .time = 2}), "name");
}

TEST(NameCache, doesNotKeepWhatWouldNotComeBack) {
    NameCache cache;
    cache.add("/a\nb", {}, "x");
    cache.add("/a", {}, "x\ty");
    cache.add("", {}, "x");
    EXPECT_EQ(cache.rows(), 0U);
}

TEST(NameCache, isBounded) {
    std::string bytes;
    for (int i = 0; i < 5000; ++i) {
        bytes += "1 2\t/" + std::to_string(i) + "\tn\n";
    }
    EXPECT_EQ(NameCache(bytes).rows(), NameCache::kMostRows);
}

} // namespace
} // namespace tovik::test
