// SPDX-License-Identifier: GPL-3.0-or-later
// When a station that is lost is opened again. Interface thread.
#pragma once

#include "host/TimerFactory.h"

#include <cstddef>
#include <functional>
#include <memory>

namespace tovik::radio {

/// After 1, 2, 4, 8, 16 and then every 30 seconds, counted from each loss, until `recovered`.
class Reopening {
public:
    Reopening(host::TimerFactory& timers, std::function<void()> open);

    /// The stream was lost: one more attempt is due later. While one is due nothing changes.
    void lost();

    /// It sounds: the next loss begins with the shortest time.
    void recovered() { attempts_ = 0; }

    /// No attempt comes, and what is lost next begins with the shortest time.
    void callOff();

    /// Whether an attempt is due later.
    [[nodiscard]] bool due() const { return timer_->enabled(); }

    /// How many attempts were asked for since it sounded.
    [[nodiscard]] std::size_t attempts() const { return attempts_; }

private:
    std::function<void()> open_;
    std::size_t attempts_ = 0;
    std::unique_ptr<host::Timer> timer_;
};

} // namespace tovik::radio
