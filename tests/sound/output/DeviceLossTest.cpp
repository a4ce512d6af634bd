// SPDX-License-Identifier: GPL-3.0-or-later
// What the keeper does when its device is lost, and whether it stands a storm of everything.
#include "sound/output/FreeRunningOutput.h"
#include "sound/output/KeeperRig.h"

#include <gmock/gmock.h>

#include <random>

namespace tovik::sound {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using enum DeviceCall;

TEST(DeviceLoss, IsToldOnceAndEndsWithTheArrival) {
    KeeperRig rig;
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    rig.keeper.want(Demand::running);
    rig.device.vanish();
    EXPECT_FALSE(rig.keeper.callbackRunning()) << "known at once, before the thread has closed";
    ASSERT_TRUE(eventually([&] { return rig.observer.lost == 1; }));
    EXPECT_THAT(rig.calls(), ElementsAre(opened, closed));
    EXPECT_EQ(rig.observer.stopped, 1);
    EXPECT_EQ(rig.observer.back, 0);
    rig.device.arrive();
    ASSERT_TRUE(eventually([&] { return rig.observer.back == 1; }));
    EXPECT_TRUE(rig.keeper.callbackRunning());
    EXPECT_EQ(rig.device.advance(10), 10U);
    rig.keeper.shutDown();
    EXPECT_EQ(rig.observer.lost, 1);
    EXPECT_THAT(rig.calls(), ElementsAre(opened, closed, opened, closed));
}

TEST(DeviceLoss, OpenNowStaysTrueWhileTheDeviceIsAway) {
    KeeperRig rig;
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    rig.device.vanish();
    ASSERT_TRUE(eventually([&] { return rig.observer.lost == 1; }));
    EXPECT_TRUE(rig.keeper.openNow(rig.source));
    EXPECT_FALSE(rig.keeper.callbackRunning());
    ASSERT_TRUE(rig.device.waitFor(refused)) << "a request is worth an attempt";
    EXPECT_EQ(rig.observer.lost, 1) << "and its failure is no second loss";
}

TEST(DeviceLoss, IsRetriedInIntervalsWhileTheDeviceIsNeeded) {
    KeeperTimes times = kNever;
    times.retry = milliseconds(15);
    KeeperRig rig(times);
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    rig.keeper.want(Demand::running);
    rig.device.refuseOpen(true);
    rig.device.vanish();
    ASSERT_TRUE(rig.device.waitFor(refused, 3));
    const auto calls = rig.device.calls(); // opened, closed, refused, refused, refused
    for (std::size_t i = 2; i < 5; ++i) {
        EXPECT_GE(calls[i].when - calls[i - 1].when, times.retry);
    }
    rig.device.arrive();
    rig.device.refuseOpen(false);
    ASSERT_TRUE(eventually([&] { return rig.observer.back == 1; }));
    EXPECT_EQ(rig.observer.lost, 1);
}

TEST(DeviceLoss, WhileIdleNothingIsTriedUntilTheNextDemand) {
    KeeperTimes times = kNever;
    times.retry = milliseconds(0);
    KeeperRig rig(times);
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    rig.device.vanish();
    ASSERT_TRUE(eventually([&] { return rig.observer.lost == 1; }));
    EXPECT_EQ(rig.device.count(refused), 0);
    rig.keeper.want(Demand::paused);
    ASSERT_TRUE(rig.device.waitFor(refused));
}

TEST(DeviceLoss, AlsoWhilePausedAndThePauseIsRestored) {
    KeeperTimes times = kNever;
    times.pauseGrace = milliseconds(0);
    KeeperRig rig(times);
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    rig.keeper.want(Demand::paused);
    ASSERT_TRUE(rig.device.waitFor(paused));
    rig.device.vanish();
    ASSERT_TRUE(eventually([&] { return rig.observer.lost == 1; }));
    rig.device.arrive();
    ASSERT_TRUE(rig.device.waitFor(paused, 2));
    rig.keeper.shutDown();
    EXPECT_THAT(rig.calls(), ElementsAre(opened, paused, closed, opened, paused, closed));
    EXPECT_EQ(rig.observer.back, 1);
}

TEST(DeviceLoss, ADeviceThatIsGoneAfterARestCountsAsLost) {
    KeeperTimes times = kNever;
    times.idleClose = milliseconds(0);
    times.retry = milliseconds(5);
    KeeperRig rig(times);
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    ASSERT_TRUE(rig.device.waitFor(closed));
    rig.device.refuseOpen(true);
    rig.keeper.want(Demand::running);
    ASSERT_TRUE(rig.device.waitFor(refused, 3));
    EXPECT_EQ(rig.observer.lost, 1);
    rig.device.refuseOpen(false);
    ASSERT_TRUE(eventually([&] { return rig.observer.back == 1; }));
    EXPECT_TRUE(rig.keeper.callbackRunning());
}

// Lost before its owner knows that it was opened.
class ShortLivedOutput final : public SimulatedOutput {
public:
    using SimulatedOutput::SimulatedOutput;

    bool open(MixSource& source) override {
        const bool done = SimulatedOutput::open(source);
        vanish();
        return done;
    }
};

TEST(DeviceLoss, DuringTheOpeningIsNotMissed) {
    KeeperRig<ShortLivedOutput> rig;
    EXPECT_TRUE(rig.keeper.openNow(rig.source));
    EXPECT_FALSE(rig.keeper.callbackRunning());
    ASSERT_TRUE(eventually([&] { return rig.observer.lost == 1; }));
    EXPECT_THAT(rig.calls(), ElementsAre(opened, closed));
}

TEST(DeviceStorm, AHundredOpeningsAndClosings) {
    KeeperTimes times = kNever;
    times.idleClose = milliseconds(0);
    KeeperRig<FreeRunningOutput> rig(times);
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    for (int cycle = 1; cycle <= 100; ++cycle) {
        ASSERT_TRUE(rig.device.waitFor(closed, cycle));
        const std::size_t heard = rig.source.frames();
        rig.keeper.want(Demand::running);
        rig.source.waitBeyond(heard);
        rig.keeper.want(Demand::idle);
    }
    ASSERT_TRUE(rig.device.waitFor(closed, 101));
    EXPECT_EQ(rig.device.count(opened), 101);
}

TEST(DeviceStorm, DemandsLossesAndReturnsInAnyOrderEndInSound) {
    const KeeperTimes times{milliseconds(0), milliseconds(1), milliseconds(1)};
    KeeperRig<FreeRunningOutput> rig(times);
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    std::thread faults([&] {
        std::minstd_rand random(1); // NOLINT(cert-msc32-c,cert-msc51-cpp): alike each time
        for (int i = 0; i < 300; ++i) {
            rig.device.vanish();
            std::this_thread::sleep_for(std::chrono::microseconds(random() % 500));
            rig.device.arrive();
            std::this_thread::sleep_for(std::chrono::microseconds(random() % 2000));
        }
    });
    std::minstd_rand random(2); // NOLINT(cert-msc32-c,cert-msc51-cpp)
    for (int i = 0; i < 1000; ++i) {
        rig.keeper.want(static_cast<Demand>(random() % 3));
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 400));
        ASSERT_TRUE(rig.keeper.openNow(rig.source));
    }
    faults.join();
    rig.keeper.want(Demand::running);
    ASSERT_TRUE(eventually([&] { return rig.keeper.callbackRunning(); }));
    rig.source.waitBeyond(rig.source.frames());
    EXPECT_TRUE(eventually([&] { return rig.observer.lost == rig.observer.back; }));
    EXPECT_GT(rig.observer.lost, 0);
}

} // namespace
} // namespace tovik::sound
