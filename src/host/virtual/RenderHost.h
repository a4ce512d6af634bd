// SPDX-License-Identifier: GPL-3.0-or-later
// The host of a render: virtual time, nobody at the screen, chance from a fixed seed. Interface
// thread.
#pragma once

#include "host/Host.h"
#include "host/SeededRandom.h"
#include "host/virtual/UnattendedDialogs.h"
#include "host/virtual/UnattendedPrograms.h"
#include "host/virtual/VirtualClock.h"
#include "host/virtual/VirtualPump.h"

#include <optional>
#include <string>

namespace tovik::host {

/// Owns the services of a render. Whoever drives it moves `clock()` on until the sound is done or
/// `endStatus()` has a value. Helper programs are found but not started, and a render is no
/// instance that others could meet.
class RenderHost {
public:
    /// `searchPath` is as in PATH.
    RenderHost(std::string dataFolder, OperatingSystem operatingSystem, std::string searchPath);

    [[nodiscard]] Host host();

    [[nodiscard]] VirtualClock& clock() { return clock_; }

    /// The status that the program ended with; nothing while it runs.
    [[nodiscard]] std::optional<int> endStatus() const { return endStatus_; }

private:
    class NoLock final : public InstanceLock {
    public:
        [[nodiscard]] bool hold() override { return true; }

        void release() override {}
    };

    static constexpr std::uint64_t kSeed = 1;

    Paths paths_;
    OperatingSystem operatingSystem_;
    std::optional<int> endStatus_;
    Dispatcher dispatcher_;
    Closing closing_;
    VirtualClock clock_;
    NoWatches watches_;
    VirtualPump pump_;
    UnattendedDialogs dialogs_;
    UnattendedPrograms programs_;
    SeededRandom random_{kSeed};
    NoLock lock_;
    NoInstanceMessages messages_;
    NoMessengers messengers_;
};

} // namespace tovik::host
