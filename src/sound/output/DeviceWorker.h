// SPDX-License-Identifier: GPL-3.0-or-later
// The work of the keeper's thread and what it shares with the keeper. It owns the device and sees
// the mix through a gate, so that it can be left alone in a call of the system that never returns.
#pragma once

#include "base/Mutex.h"
#include "sound/output/KeeperSchedule.h"
#include "sound/output/OutputDevice.h"
#include "sound/output/SourceGate.h"

#include <atomic>
#include <memory>

namespace tovik::sound {

class DeviceObserver;

/// Functions are those of the keeper, for any thread, but where it is said.
class DeviceWorker {
public:
    /// `observer` is not used any more when `end` has returned.
    DeviceWorker(std::unique_ptr<OutputDevice> device, DeviceObserver& observer, KeeperTimes times);
    DeviceWorker(const DeviceWorker&) = delete;
    DeviceWorker& operator=(const DeviceWorker&) = delete;

    void warmUp(MixSource& source);
    [[nodiscard]] bool openNow(MixSource& source);
    void want(Demand demand);

    [[nodiscard]] bool callbackRunning() const noexcept { return callbackRunning_.load(); }

    [[nodiscard]] int latencyFrames() const noexcept { return latencyFrames_.load(); }

    [[nodiscard]] OutputDevice& device() const noexcept { return *device_; }

    /// The keeper's thread; returns after `end`, when the device is closed.
    void run();

    /// Has the device closed for good. False when that takes longer than the keeper has patience:
    /// then `run` is still busy with the device, but neither source nor observer are used any more.
    [[nodiscard]] bool end();

private:
    void take(DeviceStep step) TOVIK_REQUIRES(mutex_);
    void open() TOVIK_REQUIRES(mutex_);
    void close(DeviceState next) TOVIK_REQUIRES(mutex_);
    void setPaused(bool paused) TOVIK_REQUIRES(mutex_);
    template <typename Call>
    void inDevice(Call call) TOVIK_REQUIRES(mutex_);
    void tell(void (DeviceObserver::*news)()) TOVIK_REQUIRES(mutex_);
    void requestOpen(MixSource& source) TOVIK_REQUIRES(mutex_);
    void noteLoss();
    void noteArrival();

    DeviceObserver& observer_;
    const KeeperTimes times_;
    std::atomic<bool> callbackRunning_ = false; // written with the mutex held
    std::atomic<int> latencyFrames_ = 0;
    SourceGate gate_;
    base::Mutex mutex_; // never held while the device or the observer is called
    KeeperSituation situation_ TOVIK_GUARDED_BY(mutex_);
    // A failure before the first success that no openNow returned yet.
    bool failureUnheard_ TOVIK_GUARDED_BY(mutex_) = false;
    bool ending_ TOVIK_GUARDED_BY(mutex_) = false;
    bool inDevice_ TOVIK_GUARDED_BY(mutex_) = false;  // the thread is in a call of the device
    bool leftAlone_ TOVIK_GUARDED_BY(mutex_) = false; // the end has not waited for it
    bool ended_ TOVIK_GUARDED_BY(mutex_) = false;
    base::Condition wake_;     // for the keeper's thread
    base::Condition answered_; // for openNow and end
    const std::unique_ptr<OutputDevice> device_;
};

} // namespace tovik::sound
