// SPDX-License-Identifier: GPL-3.0-or-later
// The thread mixes one block, then sleeps until the next is due; while paused it does not wake up.
#include "sound/output/SilentOutput.h"

#include <pthread.h>

#include <array>

namespace tovik::sound {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kBlockFrames = 1024;

// After a longer hold-up (a stopped process) time goes on from now instead of rushing after it.
constexpr std::chrono::milliseconds kMostToCatchUp(500);

} // namespace

std::chrono::nanoseconds silentBlockDue(std::int64_t block) noexcept {
    constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
    // Whole seconds apart, so that the product cannot overflow within 290 years.
    const std::int64_t frames = block * kBlockFrames;
    return std::chrono::seconds(frames / kMixRate) +
           std::chrono::nanoseconds(frames % kMixRate * kNanosecondsPerSecond / kMixRate);
}

SilentOutput::~SilentOutput() {
    close();
}

bool SilentOutput::open(MixSource& source) {
    close();
    {
        const base::MutexLock lock(mutex_);
        paused_ = false;
        ending_ = false;
    }
    thread_ = std::thread([this, &source] { run(source); });
    return true;
}

void SilentOutput::close() {
    if (!thread_.joinable()) {
        return;
    }
    {
        const base::MutexLock lock(mutex_);
        ending_ = true;
    }
    changed_.notifyAll();
    thread_.join();
}

void SilentOutput::setPaused(bool paused) {
    {
        const base::MutexLock lock(mutex_);
        paused_ = paused;
    }
    changed_.notifyAll();
}

int SilentOutput::latencyFrames() const noexcept {
    return kBlockFrames;
}

void SilentOutput::run(MixSource& source) {
    ::pthread_setname_np(::pthread_self(), "silent output");
    std::array<float, std::size_t{kBlockFrames} * kMixChannels> block{};
    Clock::time_point start = Clock::now();
    std::int64_t taken = 0;
    const base::MutexLock lock(mutex_);
    while (!ending_) {
        const auto due = start + silentBlockDue(taken);
        while (!ending_ && !paused_ && changed_.waitUntil(mutex_, due)) {
        }
        if (ending_ || paused_) {
            while (!ending_ && paused_) {
                changed_.wait(mutex_);
            }
            start = Clock::now();
            taken = 0;
            continue;
        }
        if (Clock::now() - due > kMostToCatchUp) {
            start = Clock::now();
            taken = 0;
        }
        source.mix(block);
        ++taken;
    }
}

} // namespace tovik::sound
