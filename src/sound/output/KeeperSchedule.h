// SPDX-License-Identifier: GPL-3.0-or-later
// What has to be done with the output device next, and when: a pure function of what is known. Any
// thread.
#pragma once

#include <chrono>
#include <optional>

namespace tovik::sound {

/// What the engine needs the device for.
enum class Demand {
    running, ///< something is to be heard
    paused,  ///< all that could be heard is paused and may go on at any moment
    idle,    ///< there is nothing to play
};

struct KeeperTimes {
    std::chrono::milliseconds pauseGrace{60};   ///< lets a fade-out be heard before a pause
    std::chrono::milliseconds idleClose{10000}; ///< from the last use to the closing
    std::chrono::milliseconds retry{2000};      ///< between attempts to reopen a lost device
    std::chrono::milliseconds patience{1000};   ///< of the start and the end with the device
};

using KeeperTime = std::chrono::steady_clock::time_point;

enum class DeviceState { closed, running, paused, lost };

struct KeeperSituation {
    DeviceState device = DeviceState::closed;
    bool restsWhenIdle = true; ///< as the device says
    bool countedOn = false; ///< was opened once, or is no longer waited for: brought in by itself
    Demand demand = Demand::idle;
    KeeperTime demandSince;
    KeeperTime openedAt;  ///< the last success
    KeeperTime awaySince; ///< of a lost device: the loss or the last failure to reopen it
    std::chrono::milliseconds reaction{0}; ///< of the open device: from a change to its sounding
    bool openRequested = false;            ///< open even without a demand
    bool lossReported = false;             ///< by a device that is still open
    bool arrived = false;                  ///< a device may have come since the loss
};

enum class DeviceStep { wait, open, close, pause, resume, takeLoss };

struct NextStep {
    DeviceStep step = DeviceStep::wait;
    std::optional<KeeperTime> until; ///< with `wait`: when to ask again; never if nothing happens
};

[[nodiscard]] NextStep nextStep(const KeeperSituation& situation, const KeeperTimes& times,
                                KeeperTime now) noexcept;

} // namespace tovik::sound
