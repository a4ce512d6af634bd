// SPDX-License-Identifier: GPL-3.0-or-later
// A repeating timer and the rules that every timer of the program keeps, whatever wakes it: the
// desktop's event loop or the virtual clock. Interface thread.
#pragma once

#include "host/Clock.h"
#include "host/Dispatcher.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace tovik::host {

/// Calls its tick every interval while it is enabled.
///
/// - Interval 0 never ticks, though `enabled` stays as it was set.
/// - Enabling and setting the interval start the count anew, even with the value it had.
/// - Ticks do not queue: after a delay there is one tick, and the rhythm goes on as before.
/// - A timer never ticks inside its own tick. Inside another handler it ticks only where that
///   handler gives way (a pump step, a dialog, a box).
/// - A tick that throws is reported by the dispatcher, and the timer goes on.
///
/// A new timer is disabled and has interval 0. It must not be destroyed inside its own tick.
class Timer {
public:
    using Tick = std::function<void()>;

    /// Clock and dispatcher must outlive the timer.
    Timer(const Clock& clock, const Dispatcher& dispatcher, Tick tick);
    virtual ~Timer() = default;
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    [[nodiscard]] int interval() const { return intervalMs_; }

    [[nodiscard]] bool enabled() const { return enabled_; }

    /// Milliseconds until the next tick, 0 for one that is late; none while none is to come.
    [[nodiscard]] std::optional<int> remainingMs() const;

    /// In milliseconds; below 0 counts as 0.
    void setInterval(int milliseconds);
    void setEnabled(bool enabled);

protected:
    /// The monotonic time of the next tick; none while nothing is to come or a tick is running.
    [[nodiscard]] std::optional<std::int64_t> dueMs() const;

    /// Runs one tick now and fixes when the next is due.
    void fire();

private:
    /// Told whenever the answer of `dueMs` may have changed.
    virtual void dueChanged() = 0;

    void restart();

    const Clock& clock_;
    const Dispatcher& dispatcher_;
    Tick tick_;
    int intervalMs_ = 0;
    bool enabled_ = false;
    bool ticking_ = false;
    std::int64_t nextMs_ = 0;
};

} // namespace tovik::host
