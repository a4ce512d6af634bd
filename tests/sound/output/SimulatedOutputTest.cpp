// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/SimulatedOutput.h"
#include "sound/output/CountingSource.h"
#include "sound/output/FreeRunningOutput.h"

#include <gmock/gmock.h>

namespace tovik::sound {
namespace {

TEST(SimulatedOutput, HandsEveryFrameInOrderToTheSink) {
    std::vector<float> heard;
    SimulatedOutput device({.blockFrames = 100, .sink = [&](std::span<const float> block) {
                                heard.insert(heard.end(), block.begin(), block.end());
                            }});
    CountingSource source;
    ASSERT_TRUE(device.open(source));
    EXPECT_EQ(device.advance(250), 250U);
    EXPECT_EQ(device.advance(1), 1U);
    ASSERT_EQ(heard.size(), 502U);
    for (std::size_t frame = 0; frame < 251; ++frame) {
        ASSERT_EQ(heard[2 * frame], static_cast<float>(frame));
        ASSERT_EQ(heard[2 * frame + 1], -static_cast<float>(frame));
    }
    EXPECT_EQ(source.largestBlock(), 100U);
    EXPECT_EQ(source.decodedAhead(), 0U);
    device.close();
}

TEST(SimulatedOutput, DecodesAheadWhenAsked) {
    SimulatedOutput device({.blockFrames = 64, .decodesAhead = true});
    CountingSource source;
    ASSERT_TRUE(device.open(source));
    device.advance(1000);
    EXPECT_EQ(source.decodedAhead(), 1000U);
    device.close();
}

TEST(SimulatedOutput, TakesNothingWhileClosedPausedOrStalled) {
    SimulatedOutput device;
    CountingSource source;
    EXPECT_EQ(device.advance(10), 0U);
    ASSERT_TRUE(device.open(source));
    device.setPaused(true);
    EXPECT_EQ(device.advance(10), 0U);
    device.setPaused(false);
    device.stall(true);
    EXPECT_EQ(device.advance(10), 0U);
    device.stall(false);
    EXPECT_EQ(device.advance(10), 10U);
    device.close();
    EXPECT_EQ(device.advance(10), 0U);
    EXPECT_EQ(source.frames(), 10U);
}

TEST(SimulatedOutput, RefusesToOpenOnDemand) {
    SimulatedOutput device;
    CountingSource source;
    device.refuseOpen(true);
    EXPECT_FALSE(device.open(source));
    device.refuseOpen(false);
    EXPECT_TRUE(device.open(source));
    device.close();
    EXPECT_EQ(device.count(DeviceCall::refused), 1);
    EXPECT_EQ(device.count(DeviceCall::opened), 1);
    EXPECT_EQ(device.count(DeviceCall::closed), 1);
}

TEST(SimulatedOutput, ALossIsToldOnceAndLastsUntilTheDeviceArrives) {
    SimulatedOutput device;
    CountingSource source;
    int losses = 0;
    int arrivals = 0;
    device.onLost([&] { ++losses; });
    device.onArrival([&] { ++arrivals; });
    ASSERT_TRUE(device.open(source));
    device.vanish();
    device.vanish();
    EXPECT_EQ(losses, 1);
    EXPECT_EQ(device.advance(10), 0U);
    device.close();
    EXPECT_FALSE(device.open(source));
    device.arrive();
    EXPECT_EQ(arrivals, 1);
    ASSERT_TRUE(device.open(source));
    EXPECT_EQ(device.advance(10), 10U);
    device.close();
    device.vanish();
    EXPECT_EQ(losses, 1) << "a closed device cannot be lost";
}

TEST(SimulatedOutput, AnOpenDeviceStaysLostAfterTheArrivalUntilOpenedAnew) {
    SimulatedOutput device;
    CountingSource source;
    ASSERT_TRUE(device.open(source));
    device.vanish();
    device.arrive();
    EXPECT_EQ(device.advance(10), 0U);
    device.close();
    ASSERT_TRUE(device.open(source));
    EXPECT_EQ(device.advance(10), 10U);
    device.close();
}

TEST(FreeRunningOutput, TakesTheMixByItselfOnlyWhileRunning) {
    FreeRunningOutput device;
    CountingSource source;
    ASSERT_TRUE(device.open(source));
    source.waitBeyond(10'000);
    device.setPaused(true);
    const std::size_t atPause = source.frames();
    EXPECT_FALSE(source.inside());
    device.setPaused(false);
    source.waitBeyond(atPause);
    device.close();
    const std::size_t atClose = source.frames();
    EXPECT_FALSE(source.inside());
    ASSERT_TRUE(device.open(source));
    source.waitBeyond(atClose);
    device.close();
}

TEST(FreeRunningOutput, AHundredOpeningsNeverTouchAClosedSource) {
    FreeRunningOutput device;
    for (int i = 0; i < 100; ++i) {
        CountingSource source;
        ASSERT_TRUE(device.open(source));
        source.waitBeyond(0);
        device.close();
        ASSERT_FALSE(source.inside());
    }
}

TEST(FreeRunningOutput, RunsOnAfterALossAndANewOpening) {
    FreeRunningOutput device;
    CountingSource source;
    ASSERT_TRUE(device.open(source));
    source.waitBeyond(0);
    device.vanish();
    device.close();
    const std::size_t atLoss = source.frames();
    device.arrive();
    ASSERT_TRUE(device.open(source));
    source.waitBeyond(atLoss);
    device.close();
}

} // namespace
} // namespace tovik::sound
