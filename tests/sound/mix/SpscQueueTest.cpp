// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/SpscQueue.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <thread>

namespace tovik::sound {
namespace {

TEST(SpscQueue, GivesWhatWasPushedInOrder) {
    SpscQueue<int, 4> queue;
    int value = -1;
    EXPECT_FALSE(queue.pop(value));
    EXPECT_EQ(value, -1);
    for (int round = 0; round < 10; ++round) {
        EXPECT_TRUE(queue.push(round));
        EXPECT_TRUE(queue.push(round + 100));
        EXPECT_EQ(queue.sizeApprox(), 2U);
        ASSERT_TRUE(queue.pop(value));
        EXPECT_EQ(value, round);
        ASSERT_TRUE(queue.pop(value));
        EXPECT_EQ(value, round + 100);
    }
    EXPECT_EQ(queue.sizeApprox(), 0U);
}

TEST(SpscQueue, RefusesOnlyWhenFull) {
    SpscQueue<int, 4> queue;
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(queue.push(i));
    }
    EXPECT_FALSE(queue.push(4));
    int value = -1;
    ASSERT_TRUE(queue.pop(value));
    EXPECT_EQ(value, 0);
    EXPECT_TRUE(queue.push(5));
    EXPECT_FALSE(queue.push(6));
}

TEST(SpscQueue, LosesNothingBetweenTwoThreads) {
    struct Item {
        std::uint64_t number;
        std::uint64_t check; // tells a half-written item
    };

    constexpr std::uint64_t kItems = 200000;
    SpscQueue<Item, 64> queue;
    std::thread pusher([&queue] {
        for (std::uint64_t i = 0; i < kItems; ++i) {
            while (!queue.push({i, ~i})) {
                std::this_thread::yield();
            }
        }
    });
    std::uint64_t wrong = 0;
    for (std::uint64_t i = 0; i < kItems; ++i) {
        Item item{};
        while (!queue.pop(item)) {
            std::this_thread::yield();
        }
        wrong += item.number == i && item.check == ~i ? 0U : 1U;
    }
    pusher.join();
    EXPECT_EQ(wrong, 0U);
    EXPECT_EQ(queue.sizeApprox(), 0U);
}

} // namespace
} // namespace tovik::sound
