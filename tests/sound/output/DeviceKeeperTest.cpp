// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/KeeperRig.h"
#include "sound/output/ThreadWakeups.h"

#include <gmock/gmock.h>

#include <future>

namespace tovik::sound {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;
using enum DeviceCall;

TEST(DeviceKeeper, OpensOnRequestAndClosesAtTheEnd) {
    KeeperRig rig(kNever, {.latencyFrames = 1234});
    EXPECT_THAT(rig.calls(), IsEmpty());
    EXPECT_FALSE(rig.keeper.callbackRunning());
    EXPECT_EQ(rig.keeper.latencyFrames(), 0);
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    EXPECT_TRUE(rig.keeper.callbackRunning());
    EXPECT_EQ(rig.keeper.latencyFrames(), 1234);
    EXPECT_EQ(rig.device.advance(700), 700U);
    rig.keeper.shutDown();
    EXPECT_FALSE(rig.keeper.callbackRunning());
    EXPECT_EQ(rig.observer.stopped, 1);
    EXPECT_EQ(rig.device.advance(700), 0U);
    EXPECT_THAT(rig.calls(), ElementsAre(opened, closed));
}

TEST(DeviceKeeper, AnOpenDeviceIsNotOpenedTwice) {
    KeeperRig rig;
    EXPECT_TRUE(rig.keeper.openNow(rig.source));
    EXPECT_TRUE(rig.keeper.openNow(rig.source));
    rig.keeper.warmUp(rig.source);
    rig.keeper.shutDown();
    EXPECT_THAT(rig.calls(), ElementsAre(opened, closed));
}

TEST(DeviceKeeper, ARequestForAnOpenDeviceIsForgottenWhenItRests) {
    KeeperTimes times = kNever;
    times.idleClose = milliseconds(10);
    KeeperRig rig(times);
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    ASSERT_TRUE(rig.device.waitFor(closed));
    ASSERT_TRUE(eventually([&] { return rig.observer.stopped == 1; }));
    std::this_thread::sleep_for(milliseconds(50));
    EXPECT_THAT(rig.calls(), ElementsAre(opened, closed));
}

TEST(DeviceKeeper, WithoutADeviceEachFirstOpeningIsTriedAnewUntilOneSucceeds) {
    KeeperRig rig;
    rig.device.refuseOpen(true);
    rig.keeper.want(Demand::running);
    EXPECT_FALSE(rig.keeper.openNow(rig.source));
    EXPECT_FALSE(rig.keeper.openNow(rig.source));
    EXPECT_FALSE(rig.keeper.callbackRunning());
    rig.device.refuseOpen(false);
    rig.device.arrive();
    EXPECT_TRUE(rig.keeper.openNow(rig.source));
    rig.keeper.shutDown();
    EXPECT_THAT(rig.calls(), ElementsAre(refused, refused, opened, closed));
    EXPECT_EQ(rig.observer.lost, 0) << "what was never there is not lost";
    EXPECT_EQ(rig.observer.back, 0);
}

// Opens the first time only when the test lets it.
class GatedOutput final : public SimulatedOutput {
public:
    using SimulatedOutput::SimulatedOutput;

    bool open(MixSource& source) override {
        if (!std::exchange(passed_, true)) {
            reached.set_value();
            gate.get_future().wait();
        }
        return SimulatedOutput::open(source);
    }

    std::promise<void> reached;
    std::promise<void> gate;

private:
    bool passed_ = false;
};

TEST(DeviceKeeper, AfterAWarmUpOnlyTheRestOfTheOpeningIsWaitedFor) {
    KeeperRig<GatedOutput> rig;
    rig.keeper.warmUp(rig.source);
    rig.device.reached.get_future().wait();
    auto answer = std::async(std::launch::async, [&] { return rig.keeper.openNow(rig.source); });
    EXPECT_EQ(answer.wait_for(milliseconds(20)), std::future_status::timeout);
    rig.device.gate.set_value();
    EXPECT_TRUE(answer.get());
    rig.keeper.shutDown();
    EXPECT_THAT(rig.calls(), ElementsAre(opened, closed));
}

TEST(DeviceKeeper, ADeviceThatDoesNotAnswerIsNotWaitedForAndTakenWhenItDoes) {
    KeeperRig<GatedOutput> rig(kHasty);
    rig.keeper.warmUp(rig.source);
    EXPECT_TRUE(rig.keeper.openNow(rig.source));
    EXPECT_FALSE(rig.keeper.callbackRunning());
    rig.keeper.want(Demand::running);
    rig.device.gate.set_value();
    EXPECT_TRUE(eventually([&] { return rig.keeper.callbackRunning(); }));
    EXPECT_EQ(rig.device.advance(700), 700U);
    EXPECT_THAT(rig.calls(), ElementsAre(opened));
}

TEST(DeviceKeeper, ADeviceThatAnswersNoTooLateIsTriedAgainByItself) {
    KeeperRig<GatedOutput> rig(kHasty);
    rig.device.refuseOpen(true);
    EXPECT_TRUE(rig.keeper.openNow(rig.source));
    rig.keeper.want(Demand::running);
    rig.device.gate.set_value();
    ASSERT_TRUE(rig.device.waitFor(refused, 3));
    EXPECT_EQ(rig.observer.lost, 1);
    rig.device.refuseOpen(false);
    EXPECT_TRUE(eventually([&] { return rig.observer.back == 1; }));
    EXPECT_TRUE(rig.keeper.callbackRunning());
}

TEST(DeviceKeeper, AFailedWarmUpIsTheAnswerOfTheNextOpeningOnly) {
    KeeperRig rig;
    rig.device.refuseOpen(true);
    rig.keeper.warmUp(rig.source);
    ASSERT_TRUE(rig.device.waitFor(refused));
    EXPECT_FALSE(rig.keeper.openNow(rig.source));
    EXPECT_EQ(rig.device.count(refused), 1);
    rig.device.refuseOpen(false);
    EXPECT_TRUE(rig.keeper.openNow(rig.source));
}

TEST(DeviceKeeper, PausesAfterTheGraceAndResumesAtOnce) {
    KeeperTimes times = kNever;
    times.pauseGrace = milliseconds(30);
    KeeperRig rig(times);
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    rig.keeper.want(Demand::running);
    const auto asked = std::chrono::steady_clock::now();
    rig.keeper.want(Demand::paused);
    rig.keeper.want(Demand::paused);
    ASSERT_TRUE(rig.device.waitFor(paused));
    EXPECT_GE(rig.device.calls().back().when - asked, times.pauseGrace);
    ASSERT_TRUE(eventually([&] { return !rig.keeper.callbackRunning(); }));
    EXPECT_EQ(rig.device.advance(10), 0U);
    rig.keeper.want(Demand::running);
    ASSERT_TRUE(rig.device.waitFor(resumed));
    ASSERT_TRUE(eventually([&] { return rig.keeper.callbackRunning(); }));
    EXPECT_EQ(rig.device.advance(10), 10U);
    EXPECT_EQ(rig.observer.stopped, 1);
}

TEST(DeviceKeeper, APauseTakenBackWithinTheGraceNeverReachesTheDevice) {
    KeeperRig rig;
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    for (int i = 0; i < 50; ++i) {
        rig.keeper.want(Demand::paused);
        rig.keeper.want(Demand::running);
    }
    rig.keeper.shutDown();
    EXPECT_THAT(rig.calls(), ElementsAre(opened, closed));
}

TEST(DeviceKeeper, AnIdleDeviceIsClosedInTimeAndReopenedOnDemand) {
    KeeperTimes times = kNever;
    times.idleClose = milliseconds(30);
    KeeperRig rig(times);
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    ASSERT_TRUE(rig.device.waitFor(closed));
    const auto calls = rig.device.calls();
    EXPECT_GE(calls[1].when - calls[0].when, times.idleClose);
    ASSERT_TRUE(eventually([&] { return !rig.keeper.callbackRunning(); }));
    rig.keeper.want(Demand::running);
    ASSERT_TRUE(rig.device.waitFor(opened, 2));
    ASSERT_TRUE(eventually([&] { return rig.keeper.callbackRunning(); }));
    const auto asked = std::chrono::steady_clock::now();
    rig.keeper.want(Demand::idle);
    ASSERT_TRUE(rig.device.waitFor(closed, 2));
    EXPECT_GE(rig.device.calls().back().when - asked, times.idleClose);
    rig.keeper.want(Demand::paused);
    ASSERT_TRUE(rig.device.waitFor(opened, 3));
    EXPECT_EQ(rig.observer.lost + rig.observer.back, 0) << "a rest is no loss";
}

TEST(DeviceKeeper, OpenNowReopensAfterARestWithoutADemand) {
    KeeperTimes times = kNever;
    times.idleClose = milliseconds(1);
    KeeperRig rig(times);
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    ASSERT_TRUE(rig.device.waitFor(closed));
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    ASSERT_TRUE(rig.device.waitFor(opened, 2));
    ASSERT_TRUE(rig.device.waitFor(closed, 2)) << "and it rests again";
}

TEST(DeviceKeeper, ADeviceThatDoesNotRestStaysOpen) {
    const KeeperTimes atOnce{milliseconds(0), milliseconds(0), milliseconds(0)};
    KeeperRig rig(atOnce, {.restsWhenIdle = false});
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    rig.keeper.want(Demand::paused);
    rig.keeper.want(Demand::idle);
    rig.keeper.want(Demand::running);
    rig.keeper.want(Demand::idle);
    EXPECT_EQ(rig.device.advance(100), 100U);
    rig.device.vanish();
    rig.device.arrive();
    ASSERT_TRUE(rig.device.waitFor(opened, 2));
    rig.keeper.shutDown();
    EXPECT_THAT(rig.calls(), ElementsAre(opened, closed, opened, closed));
}

TEST(DeviceKeeper, ItsThreadSleepsWhileNothingHappens) {
    KeeperRig rig;
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    rig.keeper.want(Demand::running);
    rig.keeper.want(Demand::paused); // with a deadline an hour ahead
    std::this_thread::sleep_for(milliseconds(50));
    const auto before = timesFallenAsleep("device");
    ASSERT_TRUE(before);
    std::this_thread::sleep_for(milliseconds(200));
    EXPECT_EQ(timesFallenAsleep("device"), before);
}

} // namespace
} // namespace tovik::sound
