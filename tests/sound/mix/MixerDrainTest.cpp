// SPDX-License-Identifier: GPL-3.0-or-later
// Commands that are posted while another thread is at the mixer.
#include "sound/mix/Mixer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace tovik::sound {
namespace {

/// Lets both threads go on together.
class Meeting {
public:
    void arrive() {
        const int both = (++arrived_ + 1) / 2 * 2;
        while (arrived_ < both) {
        }
    }

private:
    std::atomic<int> arrived_ = 0;
};

TEST(MixerDrain, NoCommandLiesUntilTheNextOne) {
    constexpr int kRounds = 3000;
    Mixer mixer;
    Meeting before;
    Meeting after;
    std::thread keeper([&] {
        for (int round = 0; round < kRounds; ++round) {
            before.arrive();
            mixer.fallSilent();
            after.arrive();
        }
    });
    int left = 0;
    for (int round = 0; round < kRounds; ++round) {
        before.arrive();
        EXPECT_TRUE(mixer.post(command::SetMaster{0.5F}));
        mixer.drain();
        after.arrive();
        left += mixer.allTaken() ? 0 : 1;
    }
    keeper.join();
    EXPECT_EQ(left, 0);
}

TEST(MixerDrain, WhoHasNoTurnIsToldSo) {
    Mixer mixer;
    ASSERT_TRUE(mixer.post(command::SetMaster{0.5F}));
    {
        const Mixer::Turn turn = mixer.takeTurn();
        EXPECT_FALSE(mixer.drain());
    }
    EXPECT_TRUE(mixer.drain());
    EXPECT_TRUE(mixer.allTaken());
}

} // namespace
} // namespace tovik::sound
