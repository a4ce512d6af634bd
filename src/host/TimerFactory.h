// SPDX-License-Identifier: GPL-3.0-or-later
// Where timers come from. Interface thread.
#pragma once

#include "host/Timer.h"

#include <memory>

namespace tovik::host {

/// Makes timers that belong to one clock; the factory must outlive them.
class TimerFactory {
public:
    virtual ~TimerFactory() = default;

    /// A disabled timer with interval 0.
    [[nodiscard]] virtual std::unique_ptr<Timer> makeTimer(Timer::Tick tick) = 0;
};

} // namespace tovik::host
