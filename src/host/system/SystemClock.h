// SPDX-License-Identifier: GPL-3.0-or-later
// The machine's own clocks. Any thread.
#pragma once

#include "host/Clock.h"

namespace tovik::host {

class SystemClock final : public Clock {
public:
    [[nodiscard]] std::int64_t monotonicMs() const override;
    [[nodiscard]] LocalTime localTime() const override;
};

} // namespace tovik::host
