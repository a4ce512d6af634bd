// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the output device: opens it when it is needed, pauses and closes it when it is not, brings
// it back after a loss. Its own thread does the work (DeviceWorker), because opening and closing
// may take over a second, or for ever.
#pragma once

#include "sound/output/DeviceWorker.h"
#include "sound/output/KeeperSchedule.h"
#include "sound/output/OutputDevice.h"

#include <memory>
#include <optional>
#include <thread>

namespace tovik::sound {

/// Hears of the device. Called on the keeper's thread; may call the keeper back, but not end it.
class DeviceObserver {
public:
    virtual ~DeviceObserver() = default;

    /// The device was lost, or could not be opened again when it was needed. It is closed by now.
    virtual void deviceLost() = 0;

    /// The device that was lost runs again.
    virtual void deviceBack() = 0;

    /// `callbackRunning` has become false and nothing is taken from the source any more: commands
    /// that were left to the next callback want to be drained otherwise.
    virtual void callbackStopped() {}
};

/// Functions may be called on any thread, but one at a time by the interface thread is enough.
class DeviceKeeper {
public:
    DeviceKeeper(std::unique_ptr<OutputDevice> device, DeviceObserver& observer,
                 KeeperTimes times = {});

    /// Calls `shutDown`.
    ~DeviceKeeper();

    DeviceKeeper(const DeviceKeeper&) = delete;
    DeviceKeeper& operator=(const DeviceKeeper&) = delete;

    /// Begins to open the device in the background, so that `openNow` only waits for the rest. The
    /// source is the same in all calls and outlives the keeper or `shutDown`.
    void warmUp(MixSource& source) { worker_->warmUp(source); }

    /// Is there a device? Until the first success this waits for one attempt to open it: the one
    /// that `warmUp` began, else a new one. An attempt that takes longer than there is patience
    /// counts as a success with a device that was lost since. After the first success it is true
    /// at once, also while the device is away, and only sees to it that the device is opened if it
    /// is not.
    [[nodiscard]] bool openNow(MixSource& source) { return worker_->openNow(source); }

    /// Says what the device is needed for from now on; the first demand is `idle`. It takes effect
    /// once a device was opened. Running: opened, not paused. Paused: opened; paused after the
    /// grace. Idle: left as it is, and closed when the time for that is over. A device that does
    /// not rest when idle is neither paused nor closed.
    void want(Demand demand) { worker_->want(demand); }

    /// The device is open, not paused and not lost, so the source is used again soon. By the time
    /// the answer is looked at it may be out of date: whatever both the callback and a caller may
    /// do needs a guard of its own.
    [[nodiscard]] bool callbackRunning() const noexcept { return worker_->callbackRunning(); }

    /// What of a device that mixes ahead is heard now; see OutputDevice. Any thread.
    [[nodiscard]] std::optional<std::int64_t> heardClock() const noexcept {
        return worker_->device().heardClock();
    }

    /// See OutputDevice. Any thread.
    void wakeDevice() noexcept { worker_->device().wake(); }

    /// As the device said when it was opened last; 0 before.
    [[nodiscard]] int latencyFrames() const noexcept { return worker_->latencyFrames(); }

    /// Closes the device for good and ends the thread. The device itself lives on, unless it does
    /// not answer within the keeper's patience: then it is left to the thread, which ends both
    /// whenever it can. Source and observer are not used any more in either case.
    void shutDown();

private:
    const std::shared_ptr<DeviceWorker> worker_;
    std::thread thread_;
};

} // namespace tovik::sound
