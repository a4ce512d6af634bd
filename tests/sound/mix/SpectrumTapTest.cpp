// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/SpectrumTap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace tovik::sound {
namespace {

/// Writes frames whose mean is 1, 2, 3, ... on.
class Writer {
public:
    explicit Writer(SpectrumTap& tap) : tap_(tap) {}

    void write(std::size_t frames) {
        std::vector<float> block;
        for (std::size_t i = 0; i < frames; ++i) {
            ++count_;
            block.push_back(static_cast<float>(count_ + 5));
            block.push_back(static_cast<float>(count_ - 5));
        }
        noted_ = tap_.write(noted_, block);
    }

private:
    SpectrumTap& tap_;
    int count_ = 0;
    std::size_t noted_ = 0;
};

std::array<float, 4> look(SpectrumTap& tap, std::size_t behind = 0) {
    std::array<SpectrumTap::Frame, 4> latest;
    latest.fill({-1, -1});
    tap.look(latest, tap.written() - std::min(tap.written(), behind));
    std::array<float, 4> means{};
    std::ranges::transform(latest, means.begin(), [](const SpectrumTap::Frame& frame) {
        EXPECT_TRUE(frame.left == 0 || frame.left == frame.right + 10);
        return (frame.left + frame.right) / 2;
    });
    return means;
}

using Four = std::array<float, 4>;

TEST(SpectrumTap, ShowsTheNewestFramesToWhoLooksAgainAndAgain) {
    const auto tap = std::make_unique<SpectrumTap>();
    Writer writer(*tap);
    writer.write(100); // nobody has looked yet
    EXPECT_EQ(look(*tap), (Four{0, 0, 0, 0}));
    writer.write(2);
    EXPECT_EQ(look(*tap), (Four{0, 0, 101, 102}));
    writer.write(5);
    EXPECT_EQ(look(*tap), (Four{104, 105, 106, 107}));
    EXPECT_EQ(look(*tap, 3), (Four{101, 102, 103, 104}));
    writer.write(SpectrumTap::kCapacity + 3);
    EXPECT_EQ(look(*tap)[3], static_cast<float>(107 + SpectrumTap::kCapacity + 3));
}

TEST(SpectrumTap, DoesNotLookFartherBackThanItKnows) {
    const auto tap = std::make_unique<SpectrumTap>();
    Writer writer(*tap);
    look(*tap);
    writer.write(SpectrumTap::kCapacity);
    EXPECT_EQ(look(*tap, SpectrumTap::kCapacity - 4), (Four{1, 2, 3, 4}));
    EXPECT_EQ(look(*tap, SpectrumTap::kCapacity - 3), (Four{0, 1, 2, 3}));
    EXPECT_EQ(look(*tap, std::size_t{1} << 40U), (Four{0, 0, 0, 0}));
}

TEST(SpectrumTap, KnowsOnlyTheLastWritingOfAFrame) {
    SpectrumTap tap;
    std::array<SpectrumTap::Frame, 4> frames{};
    EXPECT_FALSE(tap.look(frames, 0));
    std::vector<float> block(20, 1.0F);
    EXPECT_EQ(tap.write(0, block), 10U);
    std::ranges::fill(block, 2.0F);
    EXPECT_EQ(tap.write(7, block), 17U);
    EXPECT_TRUE(tap.look(frames, 9));
    Four lefts{};
    std::ranges::transform(frames, lefts.begin(), &SpectrumTap::Frame::left);
    EXPECT_EQ(lefts, (Four{1, 1, 2, 2}));
}

TEST(SpectrumTap, StopsHalfASecondAfterTheLastLook) {
    const auto tap = std::make_unique<SpectrumTap>();
    Writer writer(*tap);
    look(*tap);
    for (int i = 0; i < 21; ++i) {
        writer.write(1024);
    }
    EXPECT_EQ(look(*tap)[3], 21.0F * 1024.0F);
    for (int i = 0; i < 23; ++i) {
        writer.write(1024);
    }
    // It slept meanwhile: what it holds is old, and the first look only wakes it.
    EXPECT_EQ(look(*tap), (Four{0, 0, 0, 0}));
    writer.write(1);
    EXPECT_EQ(look(*tap), (Four{0, 0, 0, 44.0F * 1024.0F + 1.0F}));
}

TEST(SpectrumTap, MayBeLookedAtWhileItIsWritten) {
    const auto tap = std::make_unique<SpectrumTap>();
    std::atomic<bool> done{false};
    std::thread mixer([&] {
        const std::vector<float> block(512, 0.5F);
        std::size_t noted = 0;
        for (int i = 0; i < 2000; ++i) {
            noted = tap->write(noted, block);
        }
        done = true;
    });
    int wrong = 0;
    std::array<SpectrumTap::Frame, 512> latest{};
    while (!done) {
        tap->look(latest, tap->written());
        for (const auto& [left, right] : latest) {
            wrong += left == right && (left == 0.0F || left == 0.5F) ? 0 : 1;
        }
    }
    mixer.join();
    EXPECT_EQ(wrong, 0);
}

} // namespace
} // namespace tovik::sound
