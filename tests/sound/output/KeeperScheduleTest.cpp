// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/KeeperSchedule.h"

#include <gmock/gmock.h>

namespace tovik::sound {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

const KeeperTime kStart = KeeperTime(seconds(1000));
const KeeperTimes kTimes{};

KeeperSituation situationOf(DeviceState state, Demand demand) {
    KeeperSituation situation;
    situation.device = state;
    situation.countedOn = true;
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
    EXPECT_EQ(stepAt(situationOf(DeviceState::closed, Demand::running), {}), DeviceStep::open);
    EXPECT_EQ(stepAt(situationOf(DeviceState::closed, Demand::paused), {}), DeviceStep::open);
    expectSleepsForEver(situationOf(DeviceState::closed, Demand::idle));
}

TEST(KeeperSchedule, APauseWaitsUntilAChangeIsHeard) {
    KeeperSituation situation = situationOf(DeviceState::running, Demand::paused);
    situation.reaction = milliseconds(140);
    expectDue(situation, DeviceStep::pause, kTimes.pauseGrace + milliseconds(140));
}

TEST(KeeperSchedule, ARunningDeviceThatIsNeededSleeps) {
    expectSleepsForEver(situationOf(DeviceState::running, Demand::running));
    expectSleepsForEver(situationOf(DeviceState::paused, Demand::paused));
}

TEST(KeeperSchedule, APauseComesAfterTheGrace) {
    expectDue(situationOf(DeviceState::running, Demand::paused), DeviceStep::pause,
              milliseconds(60));
}

TEST(KeeperSchedule, APausedDeviceResumesAtOnce) {
    EXPECT_EQ(stepAt(situationOf(DeviceState::paused, Demand::running), {}), DeviceStep::resume);
}

TEST(KeeperSchedule, AnIdleDeviceIsClosedAfterTenSecondsRunningOrPaused) {
    expectDue(situationOf(DeviceState::running, Demand::idle), DeviceStep::close, seconds(10));
    expectDue(situationOf(DeviceState::paused, Demand::idle), DeviceStep::close, seconds(10));
}

TEST(KeeperSchedule, TheIdleTimeCountsFromTheOpeningIfThatWasLater) {
    KeeperSituation situation = situationOf(DeviceState::running, Demand::idle);
    situation.openedAt = kStart + seconds(100);
    expectDue(situation, DeviceStep::close, seconds(110));
}

TEST(KeeperSchedule, ADeviceThatDoesNotRestIsNeitherPausedNorClosed) {
    for (const Demand demand : {Demand::running, Demand::paused, Demand::idle}) {
        KeeperSituation situation = situationOf(DeviceState::running, demand);
        situation.restsWhenIdle = false;
        expectSleepsForEver(situation);
    }
}

TEST(KeeperSchedule, ALossComesBeforeEverythingElse) {
    for (const Demand demand : {Demand::running, Demand::paused, Demand::idle}) {
        for (const DeviceState state : {DeviceState::running, DeviceState::paused}) {
            KeeperSituation situation = situationOf(state, demand);
            situation.lossReported = true;
            EXPECT_EQ(stepAt(situation, std::chrono::hours(1)), DeviceStep::takeLoss);
            situation.restsWhenIdle = false;
            EXPECT_EQ(stepAt(situation, std::chrono::hours(1)), DeviceStep::takeLoss);
        }
    }
}

TEST(KeeperSchedule, ALostDeviceIsRetriedEveryTwoSecondsWhileItIsNeeded) {
    expectDue(situationOf(DeviceState::lost, Demand::running), DeviceStep::open, seconds(2));
    expectDue(situationOf(DeviceState::lost, Demand::paused), DeviceStep::open, seconds(2));
    expectSleepsForEver(situationOf(DeviceState::lost, Demand::idle));
}

TEST(KeeperSchedule, ALostDeviceIsRetriedAtOnceOnAnArrivalOrARequest) {
    for (const Demand demand : {Demand::running, Demand::paused, Demand::idle}) {
        KeeperSituation arrived = situationOf(DeviceState::lost, demand);
        arrived.arrived = true;
        EXPECT_EQ(stepAt(arrived, {}), DeviceStep::open);
        KeeperSituation requested = situationOf(DeviceState::lost, demand);
        requested.openRequested = true;
        EXPECT_EQ(stepAt(requested, {}), DeviceStep::open);
    }
}

} // namespace
} // namespace tovik::sound
