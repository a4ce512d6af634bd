// SPDX-License-Identifier: GPL-3.0-or-later
// Timers on the event loop. Interface thread.
#pragma once

#include "host/TimerFactory.h"

namespace tovik::host {

class QtTimers final : public TimerFactory {
public:
    /// Both must outlive the timers.
    QtTimers(const Clock& clock, const Dispatcher& dispatcher)
        : clock_(clock), dispatcher_(dispatcher) {}

    [[nodiscard]] std::unique_ptr<Timer> makeTimer(Timer::Tick tick) override;

private:
    const Clock& clock_;
    const Dispatcher& dispatcher_;
};

} // namespace tovik::host
