// SPDX-License-Identifier: GPL-3.0-or-later
// A device without hardware for tests and measurements: stepped by hand, with a chosen latency and
// faults on demand. Every member may be called on any thread; the mix is taken on the thread that
// steps it.
#pragma once

#include "base/Mutex.h"
#include "sound/output/OutputDevice.h"
#include "sound/output/SimulatedQueue.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <vector>

namespace tovik::sound {

/// What its owner did to a simulated device.
enum class DeviceCall { opened, refused, closed, paused, resumed };

/// One such call and when it ended.
struct DeviceCallRecord {
    DeviceCall call;
    std::chrono::steady_clock::time_point when;
};

class SimulatedOutput : public OutputDevice {
public:
    using Sink = std::function<void(std::span<const float>)>;

    struct Settings {
        std::size_t blockFrames = 512; ///< frames taken from the source at once, at least 1
        int latencyFrames = 0;
        bool restsWhenIdle = true;
        bool decodesAhead = false; ///< calls decodeAhead before each block
        bool opensPaused = false;
        Sink sink = {};           ///< gets every block; called with the device locked
        QueueSettings queue = {}; ///< for a device that mixes ahead; the sink gets what is heard
    };

    SimulatedOutput() : SimulatedOutput(Settings()) {}

    explicit SimulatedOutput(Settings settings);

    /// Takes `frames` from the source, the last block as short as needed, and returns how many were
    /// taken: fewer when the device is closed, paused, stalled or lost, or becomes so meanwhile.
    /// A device that mixes ahead hears them, and takes what its queue asks for.
    std::size_t advance(std::size_t frames);

    /// While true, `open` fails.
    void refuseOpen(bool refuse);

    /// The device is gone: nothing is taken any more, `open` fails until `arrive`. The routine for
    /// losses runs inside this call if the device was open.
    void vanish();

    /// The device is there (again); the routine for arrivals runs inside this call.
    void arrive();

    /// While true, nothing is taken although the device is open.
    void stall(bool stalled);

    /// All calls of the owner so far, in their order.
    [[nodiscard]] std::vector<DeviceCallRecord> calls() const;

    [[nodiscard]] int count(DeviceCall call) const;

    /// Waits until the owner has made `call` at least `times` times; false after `limit`.
    [[nodiscard]] bool waitFor(DeviceCall call, int times = 1,
                               std::chrono::milliseconds limit = std::chrono::seconds(20)) const;

    bool open(MixSource& source) override;
    void close() override;
    void setPaused(bool paused) override;

    [[nodiscard]] int latencyFrames() const noexcept override { return settings_.latencyFrames; }

    [[nodiscard]] bool mixesAhead() const noexcept override { return settings_.queue.length > 0; }

    [[nodiscard]] std::optional<std::int64_t> heardClock() const noexcept override;

    /// Looked at before the next block.
    void wake() noexcept override { woken_ = true; }

    [[nodiscard]] bool restsWhenIdle() const noexcept override { return settings_.restsWhenIdle; }

    [[nodiscard]] bool opensPaused() const noexcept override { return settings_.opensPaused; }

    void onLost(std::function<void()> routine) override;
    void onArrival(std::function<void()> routine) override;

protected:
    /// Blocks until samples could be taken or `stopWaiting` was called.
    void waitUntilTaking();
    void stopWaiting();

private:
    [[nodiscard]] bool taking() const TOVIK_REQUIRES(mutex_);
    std::size_t hear(std::size_t frames) TOVIK_REQUIRES(mutex_);
    void endQueue() TOVIK_REQUIRES(mutex_);
    [[nodiscard]] int counted(DeviceCall call) const TOVIK_REQUIRES(mutex_);
    void record(DeviceCall call) TOVIK_REQUIRES(mutex_);

    const Settings settings_;
    std::atomic<bool> woken_ = false;
    mutable base::Mutex mutex_;
    mutable base::Condition changed_;
    std::vector<float> block_ TOVIK_GUARDED_BY(mutex_);
    // While open, of a device that mixes ahead.
    std::unique_ptr<SimulatedQueue> queue_ TOVIK_GUARDED_BY(mutex_);
    std::vector<DeviceCallRecord> calls_ TOVIK_GUARDED_BY(mutex_);
    std::function<void()> lost_ TOVIK_GUARDED_BY(mutex_);
    std::function<void()> arrival_ TOVIK_GUARDED_BY(mutex_);
    MixSource* source_ TOVIK_GUARDED_BY(mutex_) = nullptr; // not null while open
    bool present_ TOVIK_GUARDED_BY(mutex_) = true;
    bool lostSinceOpen_ TOVIK_GUARDED_BY(mutex_) = false;
    bool paused_ TOVIK_GUARDED_BY(mutex_) = false;
    bool stalled_ TOVIK_GUARDED_BY(mutex_) = false;
    bool refusing_ TOVIK_GUARDED_BY(mutex_) = false;
    bool waitingEnded_ TOVIK_GUARDED_BY(mutex_) = false;
};

} // namespace tovik::sound
