// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/KeeperSchedule.h"

#include <gmock/gmock.h>

namespace tovik::sound {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

const KeeperTime kStart = KeeperTime(seconds(1000));
const KeeperTimes kTimes{};

KeeperSituation opened(DeviceState state, Demand demand) {
    KeeperSituation situation;
    situation.device = state;
    situation.everOpened = true;
    situation.demand = demand;
    situation.demandSince = kStart;
    situation.openedAt = kStart;
    situation.awaySince = kStart;
    return situation;
}

DeviceStep stepAt(const KeeperSituation& situation, milliseconds later) {
    return nextStep(situation, kTimes, kStart + later).step;
}

void expectSleepsForEver(const KeeperSituation& situation) {
    const NextStep next = nextStep(situation, kTimes, kStart + std::chrono::hours(1000));
    EXPECT_EQ(next.step, DeviceStep::wait);
    EXPECT_FALSE(next.until);
}

void expectDue(const KeeperSituation& situation, DeviceStep step, milliseconds due) {
    const NextStep before = nextStep(situation, kTimes, kStart + due - milliseconds(1));
    EXPECT_EQ(before.step, DeviceStep::wait);
    EXPECT_EQ(before.until, kStart + due);
    EXPECT_EQ(stepAt(situation, due), step);
}

TEST(KeeperSchedule, NothingIsOpenedByADemandBeforeTheFirstRequest) {
    KeeperSituation situation;
    situation.demand = Demand::running;
    expectSleepsForEver(situation);
    situation.openRequested = true;
    EXPECT_EQ(stepAt(situation, {}), DeviceStep::open);
}

TEST(KeeperSchedule, AClosedDeviceOpensForEveryDemandButIdle) {
    EXPECT_EQ(stepAt(opened(DeviceState::closed, Demand::running), {}), DeviceStep::open);
    EXPECT_EQ(stepAt(opened(DeviceState::closed, Demand::paused), {}), DeviceStep::open);
    expectSleepsForEver(opened(DeviceState::closed, Demand::idle));
}

TEST(KeeperSchedule, ARunningDeviceThatIsNeededSleeps) {
    expectSleepsForEver(opened(DeviceState::running, Demand::running));
    expectSleepsForEver(opened(DeviceState::paused, Demand::paused));
}

TEST(KeeperSchedule, APauseComesAfterTheGrace) {
    expectDue(opened(DeviceState::running, Demand::paused), DeviceStep::pause, milliseconds(60));
}

TEST(KeeperSchedule, APausedDeviceResumesAtOnce) {
    EXPECT_EQ(stepAt(opened(DeviceState::paused, Demand::running), {}), DeviceStep::resume);
}

TEST(KeeperSchedule, AnIdleDeviceIsClosedAfterTenSecondsRunningOrPaused) {
    expectDue(opened(DeviceState::running, Demand::idle), DeviceStep::close, seconds(10));
    expectDue(opened(DeviceState::paused, Demand::idle), DeviceStep::close, seconds(10));
}

TEST(KeeperSchedule, TheIdleTimeCountsFromTheOpeningIfThatWasLater) {
    KeeperSituation situation = opened(DeviceState::running, Demand::idle);
    situation.openedAt = kStart + seconds(100);
    expectDue(situation, DeviceStep::close, seconds(110));
}

TEST(KeeperSchedule, ADeviceThatDoesNotRestIsNeitherPausedNorClosed) {
    for (const Demand demand : {Demand::running, Demand::paused, Demand::idle}) {
        KeeperSituation situation = opened(DeviceState::running, demand);
        situation.restsWhenIdle = false;
        expectSleepsForEver(situation);
    }
}

TEST(KeeperSchedule, ALossComesBeforeEverythingElse) {
    for (const Demand demand : {Demand::running, Demand::paused, Demand::idle}) {
        for (const DeviceState state : {DeviceState::running, DeviceState::paused}) {
            KeeperSituation situation = opened(state, demand);
            situation.lossReported = true;
            EXPECT_EQ(stepAt(situation, std::chrono::hours(1)), DeviceStep::takeLoss);
            situation.restsWhenIdle = false;
            EXPECT_EQ(stepAt(situation, std::chrono::hours(1)), DeviceStep::takeLoss);
        }
    }
}

TEST(KeeperSchedule, ALostDeviceIsRetriedEveryTwoSecondsWhileItIsNeeded) {
    expectDue(opened(DeviceState::lost, Demand::running), DeviceStep::open, seconds(2));
    expectDue(opened(DeviceState::lost, Demand::paused), DeviceStep::open, seconds(2));
    expectSleepsForEver(opened(DeviceState::lost, Demand::idle));
}

TEST(KeeperSchedule, ALostDeviceIsRetriedAtOnceOnAnArrivalOrARequest) {
    for (const Demand demand : {Demand::running, Demand::paused, Demand::idle}) {
        KeeperSituation arrived = opened(DeviceState::lost, demand);
        arrived.arrived = true;
        EXPECT_EQ(stepAt(arrived, {}), DeviceStep::open);
        KeeperSituation requested = opened(DeviceState::lost, demand);
        requested.openRequested = true;
        EXPECT_EQ(stepAt(requested, {}), DeviceStep::open);
    }
}

} // namespace
} // namespace tovik::sound
