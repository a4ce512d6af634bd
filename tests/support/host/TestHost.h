// SPDX-License-Identifier: GPL-3.0-or-later
// A whole host under a test's control: virtual time, a data folder of its own, recorded dialogs
// and programs.
#pragma once

#include "host/Host.h"
#include "host/virtual/VirtualClock.h"
#include "host/virtual/VirtualPump.h"
#include "support/host/HandWatches.h"
#include "support/host/RecordingDialogs.h"
#include "support/host/RecordingMessages.h"
#include "support/host/RecordingMessengers.h"
#include "support/host/RecordingPrograms.h"
#include "support/host/ScriptedRandom.h"
#include "support/host/TemporaryFolder.h"

#include <optional>
#include <vector>

namespace tovik::test {

/// The test's part: whether another instance holds the lock.
class SettableLock final : public host::InstanceLock {
public:
    bool heldByAnother = false;
    bool held = false;

    [[nodiscard]] bool hold() override { return held = held || !heldByAnother; }

    void release() override { held = false; }
};

struct TestHost {
    TemporaryFolder folder;
    host::Paths paths{folder.path()};
    host::OperatingSystem operatingSystem{.major = 6, .minor = 1};
    std::optional<int> endStatus;           ///< what the program ended with
    std::vector<base::RuntimeError> errors; ///< what the dispatcher caught
    host::Dispatcher dispatcher;
    host::Closing closing{[this](int status) { endStatus = status; }};
    host::VirtualClock clock{dispatcher};
    HandWatches watches;
    host::VirtualPump pump{clock, closing};
    RecordingDialogs dialogs;
    RecordingPrograms programs;
    ScriptedRandom random;
    SettableLock lock;
    RecordingMessages messages;
    RecordingMessengers messengers;

    TestHost() {
        dispatcher.reportTo([this](const base::RuntimeError& error) { errors.push_back(error); });
    }

    [[nodiscard]] host::Host host() { return host(pump); }

    /// The same with a pump of the test's own.
    [[nodiscard]] host::Host host(host::MessagePump& otherPump) {
        return {.clock = clock,
                .timers = clock,
                .watches = watches,
                .pump = otherPump,
                .dialogs = dialogs,
                .programs = programs,
                .random = random,
                .lock = lock,
                .messages = messages,
                .messengers = messengers,
                .dispatcher = dispatcher,
                .closing = closing,
                .paths = paths,
                .operatingSystem = operatingSystem};
    }
};

} // namespace tovik::test
