// SPDX-License-Identifier: GPL-3.0-or-later
// A keeper with a simulated device, and an observer that counts. With the times of `kNever` nothing
// happens by the passing of time.
#pragma once

#include "sound/output/CountingSource.h"
#include "sound/output/DeviceKeeper.h"
#include "sound/output/SimulatedOutput.h"

#include <atomic>
#include <memory>
#include <thread>

namespace tovik::sound {

inline constexpr KeeperTimes kNever{std::chrono::hours(1), std::chrono::hours(1),
                                    std::chrono::hours(1), std::chrono::hours(1)};

/// A keeper that waits for nothing long.
inline constexpr KeeperTimes kHasty{.retry = std::chrono::milliseconds(1),
                                    .patience = std::chrono::milliseconds(10)};

/// Waits until `condition` holds; false after a limit that only a hang reaches.
template <typename Condition>
[[nodiscard]] bool eventually(Condition condition) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

struct CountingObserver final : DeviceObserver {
    void deviceLost() override { ++lost; }

    void deviceBack() override { ++back; }

    void callbackStopped() override { ++stopped; }

    std::atomic<int> lost = 0;
    std::atomic<int> back = 0;
    std::atomic<int> stopped = 0;
};

template <typename Device = SimulatedOutput>
class KeeperRig {
public:
    explicit KeeperRig(KeeperTimes times = kNever, SimulatedOutput::Settings settings = {})
        : KeeperRig(std::make_unique<Device>(settings), times) {}

    KeeperRig(std::unique_ptr<Device> owned, KeeperTimes times)
        : device(*owned), keeper(std::move(owned), observer, times) {}

    [[nodiscard]] std::vector<DeviceCall> calls() const {
        std::vector<DeviceCall> calls;
        for (const DeviceCallRecord& record : device.calls()) {
            calls.push_back(record.call);
        }
        return calls;
    }

    CountingSource source;
    CountingObserver observer;
    Device& device;
    DeviceKeeper keeper;
};

} // namespace tovik::sound
