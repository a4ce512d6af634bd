// SPDX-License-Identifier: GPL-3.0-or-later
// The keeper's thread alone opens, pauses and closes the device. It sleeps until something is asked
// or told, or until the exact time of the next step; it never polls. It may block in the system's
// sound interface. It touches neither channels nor files, and it holds no lock while it calls the
// device or the observer, since the device may report a loss from within a call.
#include "sound/output/DeviceKeeper.h"

#include <pthread.h>

#include <utility>

namespace tovik::sound {

DeviceKeeper::DeviceKeeper(std::unique_ptr<OutputDevice> device, DeviceObserver& observer,
                           KeeperTimes times)
    : observer_(observer), times_(times), device_(std::move(device)) {
    situation_.restsWhenIdle = device_->restsWhenIdle();
    device_->onLost([this] { noteLoss(); });
    device_->onArrival([this] { noteArrival(); });
    thread_ = std::thread([this] { run(); });
}

DeviceKeeper::~DeviceKeeper() {
    shutDown();
}

void DeviceKeeper::warmUp(MixSource& source) {
    const std::lock_guard lock(mutex_);
    requestOpenLocked(source);
}

bool DeviceKeeper::openNow(MixSource& source) {
    std::unique_lock lock(mutex_);
    if (situation_.everOpened) {
        requestOpenLocked(source);
        return true;
    }
    if (!failureUnheard_) {
        requestOpenLocked(source);
        answered_.wait(lock, [this] { return situation_.everOpened || failureUnheard_; });
    }
    failureUnheard_ = false;
    return situation_.everOpened;
}

void DeviceKeeper::want(Demand demand) {
    const std::lock_guard lock(mutex_);
    if (situation_.demand != demand) {
        situation_.demand = demand;
        situation_.demandSince = std::chrono::steady_clock::now();
        wake_.notify_one();
    }
}

void DeviceKeeper::shutDown() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
        wake_.notify_one();
    }
    if (thread_.joinable()) {
        thread_.join();
    }
}

void DeviceKeeper::run() {
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
}

void DeviceKeeper::take(std::unique_lock<std::mutex>& lock, DeviceStep step) {
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
        lock.unlock();
        observer_.deviceLost();
        lock.lock();
        break;
    case DeviceStep::wait:
        break;
    }
}

void DeviceKeeper::open(std::unique_lock<std::mutex>& lock) {
    const bool wasLost = situation_.device == DeviceState::lost;
    const bool first = !situation_.everOpened;
    situation_.arrived = false;
    situation_.lossReported = false;
    MixSource& source = *source_;
    lock.unlock();
    const bool opened = device_->open(source);
    lock.lock();
    situation_.openRequested = false;
    const KeeperTime now = std::chrono::steady_clock::now();
    if (opened) {
        situation_.everOpened = true;
        const bool paused = device_->opensPaused();
        situation_.device = paused ? DeviceState::paused : DeviceState::running;
        situation_.openedAt = now;
        latencyFrames_ = device_->latencyFrames();
        situation_.reaction = std::chrono::milliseconds(latencyFrames_ * 1000LL / kMixRate);
        callbackRunning_ = !paused && !situation_.lossReported;
    } else {
        situation_.device = first ? DeviceState::closed : DeviceState::lost;
        situation_.awaySince = now;
        failureUnheard_ = first;
    }
    answered_.notify_all();
    const bool isLost = situation_.device == DeviceState::lost;
    if (isLost != wasLost) {
        lock.unlock();
        if (isLost) {
            observer_.deviceLost();
        } else {
            observer_.deviceBack();
        }
        lock.lock();
    }
}

void DeviceKeeper::close(std::unique_lock<std::mutex>& lock, DeviceState next) {
    callbackRunning_ = false;
    situation_.openRequested = false;
    lock.unlock();
    device_->close();
    observer_.callbackStopped();
    lock.lock();
    situation_.device = next;
    situation_.lossReported = false;
    situation_.awaySince = std::chrono::steady_clock::now();
}

void DeviceKeeper::setPaused(std::unique_lock<std::mutex>& lock, bool paused) {
    if (paused) {
        callbackRunning_ = false;
    }
    lock.unlock();
    device_->setPaused(paused);
    if (paused) {
        observer_.callbackStopped();
    }
    lock.lock();
    situation_.device = paused ? DeviceState::paused : DeviceState::running;
    callbackRunning_ = !paused && !situation_.lossReported;
}

void DeviceKeeper::requestOpenLocked(MixSource& source) {
    source_ = &source;
    // Also noted while the device is open: it may be in the middle of being closed.
    situation_.openRequested = true;
    wake_.notify_one();
}

void DeviceKeeper::noteLoss() {
    const std::lock_guard lock(mutex_);
    callbackRunning_ = false;
    situation_.lossReported = true;
    wake_.notify_one();
}

void DeviceKeeper::noteArrival() {
    const std::lock_guard lock(mutex_);
    if (situation_.lossReported || situation_.device == DeviceState::lost) {
        situation_.arrived = true;
        wake_.notify_one();
    }
}

} // namespace tovik::sound
