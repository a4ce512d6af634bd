// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/SilentOutput.h"
#include "sound/output/CountingSource.h"
#include "sound/output/ThreadWakeups.h"

#include <gmock/gmock.h>

namespace tovik::sound {
namespace {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;
using std::chrono::seconds;

TEST(SilentBlockDue, HasNoDriftInADay) {
    EXPECT_EQ(silentBlockDue(0), nanoseconds(0));
    EXPECT_EQ(silentBlockDue(1), nanoseconds(23'219'954));
    EXPECT_EQ(silentBlockDue(44100), seconds(1024));
    EXPECT_EQ(silentBlockDue(44100LL * 86400), seconds(1024LL * 86400));
}

TEST(SilentOutput, TakesBlocksNoFasterThanASoundCard) {
    SilentOutput device;
    CountingSource source;
    const auto before = std::chrono::steady_clock::now();
    ASSERT_TRUE(device.open(source));
    source.waitBeyond(10 * kBlockFrames); // block 10 is begun
    const auto passed = std::chrono::steady_clock::now() - before;
    device.close();
    EXPECT_EQ(source.largestBlock(), 1024U);
    EXPECT_GE(passed, silentBlockDue(10));
    EXPECT_LT(passed, seconds(10));
}

TEST(SilentOutput, TakesNothingAndSleepsWhilePaused) {
    SilentOutput device;
    CountingSource source;
    ASSERT_TRUE(device.open(source));
    source.waitBeyond(0);
    device.setPaused(true);
    const std::size_t atPause = source.frames();
    std::this_thread::sleep_for(milliseconds(50));
    const auto before = timesFallenAsleep("silent output");
    ASSERT_TRUE(before);
    std::this_thread::sleep_for(milliseconds(200));
    EXPECT_EQ(timesFallenAsleep("silent output"), before);
    EXPECT_EQ(source.frames(), atPause);
    device.setPaused(false);
    source.waitBeyond(atPause);
    device.close();
}

TEST(SilentOutput, DoesNotRushAfterAPause) {
    SilentOutput device;
    CountingSource source;
    ASSERT_TRUE(device.open(source));
    source.waitBeyond(0);
    device.setPaused(true);
    std::this_thread::sleep_for(milliseconds(200)); // more than eight blocks
    const std::size_t atPause = source.frames();
    const auto resumed = std::chrono::steady_clock::now();
    device.setPaused(false);
    source.waitBeyond(atPause + 4 * kBlockFrames);
    EXPECT_GE(std::chrono::steady_clock::now() - resumed, silentBlockDue(4));
    device.close();
}

TEST(SilentOutput, AHundredOpeningsEndCleanly) {
    SilentOutput device;
    for (int i = 0; i < 100; ++i) {
        CountingSource source;
        ASSERT_TRUE(device.open(source));
        if (i % 3 == 0) {
            device.setPaused(true);
        } else {
            source.waitBeyond(0);
        }
        device.close();
        ASSERT_FALSE(source.inside());
    }
    device.close();
}

} // namespace
} // namespace tovik::sound
