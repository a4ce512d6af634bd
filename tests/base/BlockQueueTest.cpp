// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/BlockQueue.h"

#include <gtest/gtest.h>
#include <thread>

namespace tovik::base {

namespace {

Block block(std::size_t bytes, int value) {
    return {bytes, static_cast<std::byte>(value)};
}

} // namespace

TEST(BlockQueue, GivesBlocksInTheirOrderToAnotherThread) {
    BlockQueue queue(10);
    std::vector<Block> taken;
    std::thread taker([&] {
        while (auto next = queue.take()) {
            taken.push_back(*std::move(next));
        }
    });
    EXPECT_TRUE(queue.put(block(3, 1)));
    EXPECT_TRUE(queue.put({}));
    EXPECT_TRUE(queue.put(block(20, 2)));
    queue.close();
    taker.join();
    EXPECT_EQ(taken, (std::vector{block(3, 1), block(20, 2)}));
}

TEST(BlockQueue, SaysWhenItIsFull) {
    BlockQueue queue(10);
    EXPECT_TRUE(queue.hasRoom());
    EXPECT_TRUE(queue.put(block(9, 0)));
    EXPECT_TRUE(queue.hasRoom());
    EXPECT_TRUE(queue.put(block(1, 0)));
    EXPECT_FALSE(queue.hasRoom());
    EXPECT_TRUE(queue.put(block(1, 0)));
    EXPECT_EQ(queue.take()->size(), 9U);
    EXPECT_TRUE(queue.hasRoom());
}

TEST(BlockQueue, TakesNothingOnceClosedOrAbandoned) {
    BlockQueue closed(10);
    EXPECT_TRUE(closed.put(block(2, 7)));
    EXPECT_FALSE(closed.closed());
    closed.close();
    EXPECT_TRUE(closed.closed());
    EXPECT_FALSE(closed.put(block(2, 8)));
    EXPECT_EQ(closed.take(), block(2, 7));
    EXPECT_EQ(closed.take(), std::nullopt);
    BlockQueue abandoned(10);
    EXPECT_TRUE(abandoned.put(block(20, 7)));
    abandoned.abandon();
    EXPECT_TRUE(abandoned.hasRoom());
    EXPECT_FALSE(abandoned.put(block(2, 8)));
    EXPECT_EQ(abandoned.take(), std::nullopt);
}

} // namespace tovik::base
