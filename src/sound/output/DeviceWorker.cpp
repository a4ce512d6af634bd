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
    const base::MutexLock lock(mutex_);
    requestOpen(source);
}

bool DeviceWorker::openNow(MixSource& source) {
    const base::MutexLock lock(mutex_);
    if (situation_.countedOn) {
        requestOpen(source);
        return true;
    }
    if (!failureUnheard_) {
        requestOpen(source);
        const auto deadline = std::chrono::steady_clock::now() + times_.patience;
        while (!situation_.countedOn && !failureUnheard_ && answered_.waitUntil(mutex_, deadline)) {
        }
        // Whatever does not answer may still do so: it is like a device that is away for a while.
        situation_.countedOn = situation_.countedOn || !failureUnheard_;
    }
    failureUnheard_ = false;
    return situation_.countedOn;
}

void DeviceWorker::want(Demand demand) {
    const base::MutexLock lock(mutex_);
    if (situation_.demand != demand) {
        situation_.demand = demand;
        situation_.demandSince = std::chrono::steady_clock::now();
        wake_.notifyOne();
    }
}

bool DeviceWorker::end() {
    {
        const auto deadline = std::chrono::steady_clock::now() + times_.patience;
        const base::MutexLock lock(mutex_);
        ending_ = true;
        wake_.notifyOne();
        while (!ended_ && answered_.waitUntil(mutex_, deadline)) {
        }
        // Only the device may take so long; the observer is waited for.
        while (!ended_ && !inDevice_) {
            answered_.wait(mutex_);
        }
        if (ended_) {
            return true;
        }
        leftAlone_ = true;
        callbackRunning_ = false;
    }
    gate_.shutAndWait();
    return false;
}

/// Calls the device without the lock.
template <typename Call>
void DeviceWorker::inDevice(Call call) {
    inDevice_ = true;
    answered_.notifyAll();
    {
        const base::MutexUnlock unlock(mutex_);
        call();
    }
    inDevice_ = false;
}

/// Calls the observer without the lock.
void DeviceWorker::tell(void (DeviceObserver::*news)()) {
    if (!leftAlone_) {
        const base::MutexUnlock unlock(mutex_);
        (observer_.*news)();
    }
}

void DeviceWorker::run() {
    ::pthread_setname_np(::pthread_self(), "device");
    const base::MutexLock lock(mutex_);
    while (!ending_) {
        const NextStep next = nextStep(situation_, times_, std::chrono::steady_clock::now());
        if (next.step != DeviceStep::wait) {
            take(next.step);
        } else if (next.until) {
            static_cast<void>(wake_.waitUntil(mutex_, *next.until));
        } else {
            wake_.wait(mutex_);
        }
    }
    if (situation_.device == DeviceState::running || situation_.device == DeviceState::paused) {
        close(DeviceState::closed);
    }
    ended_ = true;
    answered_.notifyAll();
}

void DeviceWorker::take(DeviceStep step) {
    switch (step) {
    case DeviceStep::open:
        open();
        break;
    case DeviceStep::close:
        close(DeviceState::closed);
        break;
    case DeviceStep::pause:
        setPaused(true);
        break;
    case DeviceStep::resume:
        setPaused(false);
        break;
    case DeviceStep::takeLoss:
        close(DeviceState::lost);
        tell(&DeviceObserver::deviceLost);
        break;
    case DeviceStep::wait:
        break;
    }
}

void DeviceWorker::open() {
    const bool wasLost = situation_.device == DeviceState::lost;
    situation_.arrived = false;
    situation_.lossReported = false;
    bool opened = false;
    inDevice([&] { opened = device_->open(gate_); });
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
    answered_.notifyAll();
    const bool isLost = situation_.device == DeviceState::lost;
    if (isLost != wasLost) {
        tell(isLost ? &DeviceObserver::deviceLost : &DeviceObserver::deviceBack);
    }
}

void DeviceWorker::close(DeviceState next) {
    callbackRunning_ = false;
    situation_.openRequested = false;
    inDevice([this] { device_->close(); });
    tell(&DeviceObserver::callbackStopped);
    situation_.device = next;
    situation_.lossReported = false;
    situation_.awaySince = std::chrono::steady_clock::now();
}

void DeviceWorker::setPaused(bool paused) {
    if (paused) {
        callbackRunning_ = false;
    }
    inDevice([&] { device_->setPaused(paused); });
    if (paused) {
        tell(&DeviceObserver::callbackStopped);
    }
    situation_.device = paused ? DeviceState::paused : DeviceState::running;
    callbackRunning_ = !paused && !situation_.lossReported && !leftAlone_;
}

void DeviceWorker::requestOpen(MixSource& source) {
    if (!ending_) {
        gate_.open(source);
    }
    // Also noted while the device is open: it may be in the middle of being closed.
    situation_.openRequested = true;
    wake_.notifyOne();
}

void DeviceWorker::noteLoss() {
    const base::MutexLock lock(mutex_);
    callbackRunning_ = false;
    situation_.lossReported = true;
    wake_.notifyOne();
}

void DeviceWorker::noteArrival() {
    const base::MutexLock lock(mutex_);
    if (situation_.lossReported || situation_.device == DeviceState::lost) {
        situation_.arrived = true;
        wake_.notifyOne();
    }
}

} // namespace tovik::sound
