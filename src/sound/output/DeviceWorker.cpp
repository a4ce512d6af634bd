// SPDX-License-Identifier: GPL-3.0-or-later
// The keeper's thread alone opens, pauses and closes the device. It sleeps until something is asked
// or told, or until the exact time of the next step; it never polls. It may block in the system's
// sound interface. It touches neither channels nor files, and it holds no lock while it calls the
// device or the observer, since the device may report a loss from within a call.
#include "sound/output/DeviceWorker.h"

#include "sound/output/DeviceKeeper.h"

#include <pthread.h>

#include <utility>

namespace tovik::sound {

DeviceWorker::DeviceWorker(std::unique_ptr<OutputDevice> device, DeviceObserver& observer,
                           KeeperTimes times)
    : observer_(observer), times_(times), device_(std::move(device)) {
    situation_.restsWhenIdle = device_->restsWhenIdle();
    device_->onLost([this] { noteLoss(); });
    device_->onArrival([this] { noteArrival(); });
}

void DeviceWorker::warmUp(MixSource& source) {
    const std::lock_guard lock(mutex_);
    requestOpenLocked(source);
}

bool DeviceWorker::openNow(MixSource& source) {
    std::unique_lock lock(mutex_);
    if (situation_.countedOn) {
        requestOpenLocked(source);
        return true;
    }
    if (!failureUnheard_) {
        requestOpenLocked(source);
        const bool answered = answered_.wait_for(
            lock, times_.patience, [this] { return situation_.countedOn || failureUnheard_; });
        // Whatever does not answer may still do so: it is like a device that is away for a while.
        situation_.countedOn = situation_.countedOn || !answered;
    }
    failureUnheard_ = false;
    return situation_.countedOn;
}

void DeviceWorker::want(Demand demand) {
    const std::lock_guard lock(mutex_);
    if (situation_.demand != demand) {
        situation_.demand = demand;
        situation_.demandSince = std::chrono::steady_clock::now();
        wake_.notify_one();
    }
}

bool DeviceWorker::end() {
    std::unique_lock lock(mutex_);
    ending_ = true;
    wake_.notify_one();
    if (!answered_.wait_for(lock, times_.patience, [this] { return ended_; })) {
        // Only the device may take so long; the observer is waited for.
        answered_.wait(lock, [this] { return ended_ || inDevice_; });
    }
    if (ended_) {
        return true;
    }
    leftAlone_ = true;
    callbackRunning_ = false;
    lock.unlock();
    gate_.shutAndWait();
    return false;
}

/// Calls the device without the lock.
template <typename Call>
void DeviceWorker::inDevice(std::unique_lock<std::mutex>& lock, Call call) {
    inDevice_ = true;
    answered_.notify_all();
    lock.unlock();
    call();
    lock.lock();
    inDevice_ = false;
}

/// Calls the observer without the lock.
void DeviceWorker::tell(std::unique_lock<std::mutex>& lock, void (DeviceObserver::*news)()) {
    if (!leftAlone_) {
        lock.unlock();
        (observer_.*news)();
        lock.lock();
    }
}

void DeviceWorker::run() {
    ::pthread_setname_np(::pthread_self(), "device");
    std::unique_lock lock(mutex_);
    while (!ending_) {
        const NextStep next = nextStep(situation_, times_, std::chrono::steady_clock::now());
        if (next.step != DeviceStep::wait) {
            take(lock, next.step);
        } else if (next.until) {
            wake_.wait_until(lock, *next.until);
        } else {
            wake_.wait(lock);
        }
    }
    if (situation_.device == DeviceState::running || situation_.device == DeviceState::paused) {
        close(lock, DeviceState::closed);
    }
    ended_ = true;
    answered_.notify_all();
}

void DeviceWorker::take(std::unique_lock<std::mutex>& lock, DeviceStep step) {
    switch (step) {
    case DeviceStep::open:
        open(lock);
        break;
    case DeviceStep::close:
        close(lock, DeviceState::closed);
        break;
    case DeviceStep::pause:
        setPaused(lock, true);
        break;
    case DeviceStep::resume:
        setPaused(lock, false);
        break;
    case DeviceStep::takeLoss:
        close(lock, DeviceState::lost);
        tell(lock, &DeviceObserver::deviceLost);
        break;
    case DeviceStep::wait:
        break;
    }
}

void DeviceWorker::open(std::unique_lock<std::mutex>& lock) {
    const bool wasLost = situation_.device == DeviceState::lost;
    situation_.arrived = false;
    situation_.lossReported = false;
    bool opened = false;
    inDevice(lock, [&] { opened = device_->open(gate_); });
    const bool first = !situation_.countedOn;
    situation_.openRequested = false;
    const KeeperTime now = std::chrono::steady_clock::now();
    if (opened) {
        situation_.countedOn = true;
        const bool paused = device_->opensPaused();
        situation_.device = paused ? DeviceState::paused : DeviceState::running;
        situation_.openedAt = now;
        latencyFrames_ = device_->latencyFrames();
        situation_.reaction = std::chrono::milliseconds(latencyFrames_ * 1000LL / kMixRate);
        callbackRunning_ = !paused && !situation_.lossReported && !leftAlone_;
    } else {
        situation_.device = first ? DeviceState::closed : DeviceState::lost;
        situation_.awaySince = now;
        failureUnheard_ = first;
    }
    answered_.notify_all();
    const bool isLost = situation_.device == DeviceState::lost;
    if (isLost != wasLost) {
        tell(lock, isLost ? &DeviceObserver::deviceLost : &DeviceObserver::deviceBack);
    }
}

void DeviceWorker::close(std::unique_lock<std::mutex>& lock, DeviceState next) {
    callbackRunning_ = false;
    situation_.openRequested = false;
    inDevice(lock, [this] { device_->close(); });
    tell(lock, &DeviceObserver::callbackStopped);
    situation_.device = next;
    situation_.lossReported = false;
    situation_.awaySince = std::chrono::steady_clock::now();
}

void DeviceWorker::setPaused(std::unique_lock<std::mutex>& lock, bool paused) {
    if (paused) {
        callbackRunning_ = false;
    }
    inDevice(lock, [&] { device_->setPaused(paused); });
    if (paused) {
        tell(lock, &DeviceObserver::callbackStopped);
    }
    situation_.device = paused ? DeviceState::paused : DeviceState::running;
    callbackRunning_ = !paused && !situation_.lossReported && !leftAlone_;
}

void DeviceWorker::requestOpenLocked(MixSource& source) {
    if (!ending_) {
        gate_.open(source);
    }
    // Also noted while the device is open: it may be in the middle of being closed.
    situation_.openRequested = true;
    wake_.notify_one();
}

void DeviceWorker::noteLoss() {
    const std::lock_guard lock(mutex_);
    callbackRunning_ = false;
    situation_.lossReported = true;
    wake_.notify_one();
}

void DeviceWorker::noteArrival() {
    const std::lock_guard lock(mutex_);
    if (situation_.lossReported || situation_.device == DeviceState::lost) {
        situation_.arrived = true;
        wake_.notify_one();
    }
}

} // namespace tovik::sound
