// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/ByteQueue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <random>

namespace tovik::sound {
namespace {

TEST(ByteQueueOfALimit, GivesWhatItTookInOrder) {
    ByteQueue queue(200'000);
    std::deque<std::byte> expected;
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp,cert-msc32-c): the same in every run
    std::uniform_int_distribution<std::size_t> sizes(0, 50'000);
    unsigned next = 0;
    for (int round = 0; round < 500; ++round) {
        std::vector<std::byte> in(sizes(random));
        for (std::byte& byte : in) {
            byte = static_cast<std::byte>(next++ % 251);
        }
        const std::size_t taken = queue.push(in);
        ASSERT_EQ(taken, std::min(in.size(), 200'000 - expected.size()));
        expected.insert(expected.end(), in.begin(),
                        in.begin() + static_cast<std::ptrdiff_t>(taken));
        std::vector<std::byte> out(sizes(random));
        out.resize(queue.pop(out));
        ASSERT_LE(out.size(), expected.size());
        ASSERT_TRUE(std::equal(out.begin(), out.end(), expected.begin()));
        expected.erase(expected.begin(),
                       expected.begin() + static_cast<std::ptrdiff_t>(out.size()));
        ASSERT_EQ(queue.size(), expected.size());
        ASSERT_EQ(queue.room(), 200'000 - expected.size());
    }
}

} // namespace
} // namespace tovik::sound
