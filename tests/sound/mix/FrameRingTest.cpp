// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/FrameRing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <thread>
#include <vector>

namespace tovik::sound {
namespace {

TEST(FrameRing, RaisesItsCapacityToAPowerOfTwo) {
    EXPECT_EQ(FrameRing(0).capacity(), 1U);
    EXPECT_EQ(FrameRing(1024).capacity(), 1024U);
    EXPECT_EQ(FrameRing(1025).capacity(), 2048U);
}

TEST(FrameRing, TakesAndGivesWhatThereIsRoomFor) {
    FrameRing ring(4);
    const std::array<float, 12> six{1, -1, 2, -2, 3, -3, 4, -4, 5, -5, 6, -6};
    EXPECT_EQ(ring.write(six), 4U);
    EXPECT_EQ(ring.writableFrames(), 0U);
    EXPECT_EQ(ring.readableFrames(), 4U);

    std::array<float, 6> three{};
    EXPECT_EQ(ring.read(three), 3U);
    EXPECT_EQ(three, (std::array<float, 6>{1, -1, 2, -2, 3, -3}));

    // Across the end of the memory.
    EXPECT_EQ(ring.write(std::span(six).subspan(8)), 2U);
    std::array<float, 10> rest{};
    EXPECT_EQ(ring.read(rest), 3U);
    EXPECT_EQ(rest, (std::array<float, 10>{4, -4, 5, -5, 6, -6, 0, 0, 0, 0}));
    EXPECT_EQ(ring.read(rest), 0U);
}

TEST(FrameRing, MovesWholeFramesOnly) {
    FrameRing ring(4);
    EXPECT_EQ(ring.write(std::array<float, 3>{1, 2, 3}), 1U);
    std::array<float, 1> half{};
    EXPECT_EQ(ring.read(half), 0U);
    EXPECT_EQ(ring.readableFrames(), 1U);
}

TEST(FrameRing, IsEmptyWhenCleared) {
    FrameRing ring(4);
    ring.write(std::array<float, 4>{1, 2, 3, 4});
    ring.clear();
    EXPECT_EQ(ring.readableFrames(), 0U);
    EXPECT_EQ(ring.writableFrames(), 4U);
}

TEST(FrameRing, KeepsEveryFrameBetweenTwoThreads) {
    constexpr std::size_t kFrames = 200000;
    FrameRing ring(256);
    std::thread writer([&ring] {
        std::vector<float> block;
        for (std::size_t sent = 0; sent < kFrames;) {
            const std::size_t frames = std::min(1 + sent * 7 % 97, kFrames - sent);
            block.clear();
            for (std::size_t i = sent; i < sent + frames; ++i) {
                block.push_back(static_cast<float>(i));
                block.push_back(-static_cast<float>(i));
            }
            const std::size_t taken = ring.write(block);
            sent += taken;
            if (taken == 0) {
                std::this_thread::yield();
            }
        }
    });
    std::array<float, 200> block{};
    std::size_t wrong = 0;
    for (std::size_t got = 0; got < kFrames;) {
        const std::size_t frames = ring.read(std::span(block).first((1 + got * 5 % 89) * 2));
        for (std::size_t i = 0; i < frames; ++i, ++got) {
            const bool right = block[2 * i] == static_cast<float>(got) &&
                               block[2 * i + 1] == -static_cast<float>(got);
            wrong += right ? 0U : 1U;
        }
        if (frames == 0) {
            std::this_thread::yield();
        }
    }
    writer.join();
    EXPECT_EQ(wrong, 0U);
    EXPECT_EQ(ring.readableFrames(), 0U);
}

} // namespace
} // namespace tovik::sound
