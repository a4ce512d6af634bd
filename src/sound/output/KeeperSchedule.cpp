// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/KeeperSchedule.h"

#include <algorithm>

namespace tovik::sound {

namespace {

NextStep dueAt(DeviceStep step, KeeperTime due, KeeperTime now) noexcept {
    return now >= due ? NextStep{step, {}} : NextStep{DeviceStep::wait, due};
}

NextStep whileClosed(const KeeperSituation& situation) noexcept {
    const bool needed = situation.countedOn && situation.demand != Demand::idle;
    return {situation.openRequested || needed ? DeviceStep::open : DeviceStep::wait, {}};
}

NextStep whileLost(const KeeperSituation& situation, const KeeperTimes& times,
                   KeeperTime now) noexcept {
    if (situation.openRequested || situation.arrived) {
        return {DeviceStep::open, {}};
    }
    if (situation.demand == Demand::idle) {
        return {};
    }
    return dueAt(DeviceStep::open, situation.awaySince + times.retry, now);
}

NextStep whileOpen(const KeeperSituation& situation, const KeeperTimes& times,
                   KeeperTime now) noexcept {
    if (situation.lossReported) {
        return {DeviceStep::takeLoss, {}};
    }
    if (!situation.restsWhenIdle) {
        return {};
    }
    const bool paused = situation.device == DeviceState::paused;
    switch (situation.demand) {
    case Demand::running:
        return {paused ? DeviceStep::resume : DeviceStep::wait, {}};
    case Demand::paused:
        // The fade-out sounds once the change has come through to the ear.
        return paused ? NextStep{}
                      : dueAt(DeviceStep::pause,
                              situation.demandSince + times.pauseGrace + situation.reaction, now);
    case Demand::idle:
        break;
    }
    const KeeperTime lastUse = std::max(situation.demandSince, situation.openedAt);
    return dueAt(DeviceStep::close, lastUse + times.idleClose, now);
}

} // namespace

NextStep nextStep(const KeeperSituation& situation, const KeeperTimes& times,
                  KeeperTime now) noexcept {
    switch (situation.device) {
    case DeviceState::closed:
        return whileClosed(situation);
    case DeviceState::lost:
        return whileLost(situation, times, now);
    case DeviceState::running:
    case DeviceState::paused:
        break;
    }
    return whileOpen(situation, times, now);
}

} // namespace tovik::sound
