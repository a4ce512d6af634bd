// SPDX-License-Identifier: GPL-3.0-or-later
// A device that nobody hears: it takes the mix at the pace of a sound card. For machines without
// one. The mix is taken on a thread of the device.
#pragma once

#include "base/Mutex.h"
#include "sound/output/OutputDevice.h"

#include <chrono>
#include <cstdint>
#include <thread>

namespace tovik::sound {

/// How long after the start of the device its block number `block` is due.
[[nodiscard]] std::chrono::nanoseconds silentBlockDue(std::int64_t block) noexcept;

class SilentOutput final : public OutputDevice {
public:
    SilentOutput() = default;
    ~SilentOutput() override;

    SilentOutput(const SilentOutput&) = delete;
    SilentOutput& operator=(const SilentOutput&) = delete;

    /// Always true.
    bool open(MixSource& source) override;
    void close() override;
    void setPaused(bool paused) override;

    /// One block.
    [[nodiscard]] int latencyFrames() const noexcept override;

    /// This device is never lost and never arrives: the routines are not called.
    void onLost(std::function<void()> /*routine*/) override {}

    void onArrival(std::function<void()> /*routine*/) override {}

private:
    void run(MixSource& source);

    base::Mutex mutex_; // held while a block is mixed
    bool paused_ TOVIK_GUARDED_BY(mutex_) = false;
    bool ending_ TOVIK_GUARDED_BY(mutex_) = false;
    base::Condition changed_;
    std::thread thread_; // runs while open
};

} // namespace tovik::sound
