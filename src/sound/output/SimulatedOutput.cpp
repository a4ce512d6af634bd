// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/SimulatedOutput.h"

#include <algorithm>
#include <utility>

namespace tovik::sound {

SimulatedOutput::SimulatedOutput(Settings settings)
    : settings_(std::move(settings)),
      block_(std::max<std::size_t>(settings_.blockFrames, 1) * kMixChannels) {}

std::size_t SimulatedOutput::advance(std::size_t frames) {
    std::size_t taken = 0;
    while (taken < frames) {
        // Locked anew for each block, so that a close or a fault comes between two blocks.
        const base::MutexLock lock(mutex_);
        if (!taking()) {
            break;
        }
        if (queue_ != nullptr) {
            taken += hear(frames - taken);
            continue;
        }
        const std::size_t now = std::min(frames - taken, block_.size() / kMixChannels);
        const std::span<float> samples(block_.data(), now * kMixChannels);
        if (settings_.decodesAhead) {
            source_->decodeAhead(now);
        }
        source_->mix(samples);
        if (settings_.sink) {
            settings_.sink(samples);
        }
        taken += now;
    }
    return taken;
}

std::size_t SimulatedOutput::hear(std::size_t frames) {
    if (woken_.exchange(false)) {
        queue_->change();
    }
    const auto heard = queue_->hear(std::min(frames, block_.size() / kMixChannels));
    if (settings_.sink) {
        settings_.sink(heard);
    }
    return heard.size() / kMixChannels;
}

void SimulatedOutput::endQueue() {
    if (queue_ != nullptr) {
        queue_->end();
        queue_.reset();
    }
}

std::optional<std::int64_t> SimulatedOutput::heardClock() const noexcept {
    const base::MutexLock lock(mutex_);
    return queue_ != nullptr ? std::optional(queue_->heardClock()) : std::nullopt;
}

void SimulatedOutput::refuseOpen(bool refuse) {
    const base::MutexLock lock(mutex_);
    refusing_ = refuse;
}

void SimulatedOutput::vanish() {
    std::function<void()> routine;
    {
        const base::MutexLock lock(mutex_);
        present_ = false;
        if (source_ != nullptr && !lostSinceOpen_) {
            lostSinceOpen_ = true;
            endQueue();
            routine = lost_;
        }
    }
    if (routine) {
        routine();
    }
}

void SimulatedOutput::arrive() {
    std::function<void()> routine;
    {
        const base::MutexLock lock(mutex_);
        present_ = true;
        routine = arrival_;
    }
    if (routine) {
        routine();
    }
}

void SimulatedOutput::stall(bool stalled) {
    const base::MutexLock lock(mutex_);
    stalled_ = stalled;
    changed_.notifyAll();
}

std::vector<DeviceCallRecord> SimulatedOutput::calls() const {
    const base::MutexLock lock(mutex_);
    return calls_;
}

int SimulatedOutput::count(DeviceCall call) const {
    const base::MutexLock lock(mutex_);
    return counted(call);
}

bool SimulatedOutput::waitFor(DeviceCall call, int times, std::chrono::milliseconds limit) const {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    const base::MutexLock lock(mutex_);
    while (counted(call) < times && changed_.waitUntil(mutex_, deadline)) {
    }
    return counted(call) >= times;
}

bool SimulatedOutput::open(MixSource& source) {
    const base::MutexLock lock(mutex_);
    if (!present_ || refusing_) {
        record(DeviceCall::refused);
        return false;
    }
    source_ = &source;
    paused_ = settings_.opensPaused;
    lostSinceOpen_ = false;
    if (mixesAhead()) {
        queue_ = std::make_unique<SimulatedQueue>(settings_.queue, source, settings_.decodesAhead);
        if (!paused_) {
            queue_->begin();
        }
    }
    record(DeviceCall::opened);
    return true;
}

void SimulatedOutput::close() {
    const base::MutexLock lock(mutex_);
    endQueue();
    source_ = nullptr;
    record(DeviceCall::closed);
}

void SimulatedOutput::setPaused(bool paused) {
    const base::MutexLock lock(mutex_);
    if (queue_ != nullptr && paused != paused_) {
        if (paused) {
            queue_->end();
        } else {
            queue_->begin();
        }
    }
    paused_ = paused;
    record(paused ? DeviceCall::paused : DeviceCall::resumed);
}

void SimulatedOutput::onLost(std::function<void()> routine) {
    const base::MutexLock lock(mutex_);
    lost_ = std::move(routine);
}

void SimulatedOutput::onArrival(std::function<void()> routine) {
    const base::MutexLock lock(mutex_);
    arrival_ = std::move(routine);
}

void SimulatedOutput::waitUntilTaking() {
    const base::MutexLock lock(mutex_);
    while (!waitingEnded_ && !taking()) {
        changed_.wait(mutex_);
    }
}

void SimulatedOutput::stopWaiting() {
    const base::MutexLock lock(mutex_);
    waitingEnded_ = true;
    changed_.notifyAll();
}

bool SimulatedOutput::taking() const {
    return source_ != nullptr && !paused_ && !stalled_ && !lostSinceOpen_;
}

int SimulatedOutput::counted(DeviceCall call) const {
    return static_cast<int>(std::ranges::count(calls_, call, &DeviceCallRecord::call));
}

void SimulatedOutput::record(DeviceCall call) {
    calls_.push_back({call, std::chrono::steady_clock::now()});
    changed_.notifyAll();
}

} // namespace tovik::sound
