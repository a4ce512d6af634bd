// SPDX-License-Identifier: GPL-3.0-or-later
// What happens in ticks of timers, while the user does something else: boxes of it become lines of
// the display. Interface thread.
#pragma once

#include "app/PassingLine.h"
#include "base/Comfort.h"
#include "host/Dialogs.h"
#include "host/TimerFactory.h"

#include <functional>

namespace tovik::app {

/// Timers that tell whether one of them ticks just now.
class WatchedTimers final : public host::TimerFactory {
public:
    /// Runs a tick that throws what nobody took.
    using Run = std::function<void(const host::Timer::Tick&)>;

    WatchedTimers(host::TimerFactory& timers, Run run);

    [[nodiscard]] std::unique_ptr<host::Timer> makeTimer(host::Timer::Tick tick) override;

    [[nodiscard]] bool ticking() const { return ticks_ > 0; }

private:
    host::TimerFactory& timers_;
    Run run_;
    int ticks_ = 0; ///< one may run while another gives way
};

/// Dialogs of which a box that only tells something, and comes from a tick, is a line where
/// `Comfort::tellsTimersInLine` is on.
class UnaskedDialogs final : public host::Dialogs {
public:
    /// All of them outlive the object.
    struct Needs {
        host::Dialogs& dialogs;
        const WatchedTimers& timers;
        const base::Comfort& comfort;
        PassingLine& line;
    };

    explicit UnaskedDialogs(const Needs& needs) : p_(needs) {}

    host::MessageAnswer showMessage(const host::MessageBox& box) override;
    [[nodiscard]] std::vector<std::string> openFiles(const host::FileDialog& dialog) override;
    [[nodiscard]] std::optional<std::string> saveFile(const host::FileDialog& dialog) override;
    [[nodiscard]] std::optional<std::string>
    chooseFolder(const host::FolderDialog& dialog) override;

private:
    Needs p_;
};

} // namespace tovik::app
