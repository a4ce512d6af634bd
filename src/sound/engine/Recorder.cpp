// SPDX-License-Identifier: GPL-3.0-or-later
// The recorder's thread looks into the ring fifty times a second: the mixer may not enter the
// kernel to wake it. It calls the routine and does nothing else.
#include "sound/engine/Recorder.h"

#include "sound/mix/ToPcm16.h"

#include <pthread.h>

#include <chrono>
#include <utility>

namespace tovik::sound {

namespace {

/// What is mixed ahead, about a second, and what waits for delivery.
constexpr std::size_t kRingFrames = 131072;
constexpr std::size_t kDeliveryFrames = 2048;
constexpr std::chrono::milliseconds kPeriod(20);

} // namespace

Recorder::Recorder(Handle handle, RecordRoutine routine, std::uintptr_t user)
    : ring_(kRingFrames), routine_(std::move(routine)), user_(user), handle_(handle),
      taken_(kDeliveryFrames * 2), samples_(kDeliveryFrames * 2), thread_([this] { run(); }) {}

Recorder::~Recorder() {
    {
        const base::MutexLock lock(mutex_);
        ending_ = true;
    }
    wakeUp_.notifyOne();
    thread_.join();
}

bool Recorder::deliver() {
    while (const std::size_t frames = ring_.read(taken_)) {
        const auto taken = std::span<const float>(taken_).first(frames * 2);
        const auto samples = std::span(samples_).first(frames * 2);
        toPcm16(taken, samples);
        if (!routine_(handle_, samples, user_)) {
            return false;
        }
    }
    return true;
}

void Recorder::run() {
    ::pthread_setname_np(::pthread_self(), "recorder");
    for (;;) {
        {
            const auto due = std::chrono::steady_clock::now() + kPeriod;
            const base::MutexLock lock(mutex_);
            while (!ending_ && wakeUp_.waitUntil(mutex_, due)) {
            }
            if (ending_) {
                break;
            }
        }
        if (!deliver()) {
            return;
        }
    }
    static_cast<void>(deliver()); // the mixer has left the ring: this is the rest
}

} // namespace tovik::sound
