// SPDX-License-Identifier: GPL-3.0-or-later
// Time that goes on only when it is told to. Renders and tests run on it. Interface thread.
#pragma once

#include "host/Clock.h"
#include "host/TimerFactory.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tovik::host {

/// A clock that begins at 0 and the timers that live by it. Timers fire in the order of the times
/// they are due, at the same time in the order of their creation, so every run is the same.
class VirtualClock final : public Clock, public TimerFactory {
public:
    /// Reports of ticks go to the dispatcher, which must outlive the clock. `start` is the wall
    /// clock at 0.
    explicit VirtualClock(const Dispatcher& dispatcher, LocalTime start = {.year = 2000});
    ~VirtualClock() override;
    VirtualClock(const VirtualClock&) = delete;
    VirtualClock& operator=(const VirtualClock&) = delete;

    [[nodiscard]] std::int64_t monotonicMs() const override { return nowMs_; }

    [[nodiscard]] LocalTime localTime() const override;
    [[nodiscard]] std::unique_ptr<Timer> makeTimer(Timer::Tick tick) override;

    /// When the next timer is due; never before now. Nothing if no timer runs.
    [[nodiscard]] std::optional<std::int64_t> nextDue() const;

    /// Moves time on and fires every timer at its own time on the way, those due at the end
    /// included. Time never goes back. May be called inside a tick.
    void advanceTo(std::int64_t milliseconds);

    /// Fires the timers that are due now; what a pump step does.
    void fireDue() { advanceTo(nowMs_); }

private:
    class VirtualTimer;

    [[nodiscard]] VirtualTimer* nextTimer() const;

    const Dispatcher& dispatcher_;
    LocalTime start_;
    std::int64_t nowMs_ = 0;
    std::vector<VirtualTimer*> timers_; // in the order of creation; each removes itself
};

} // namespace tovik::host
