// SPDX-License-Identifier: GPL-3.0-or-later
// The message pump of the virtual clock. Interface thread.
#pragma once

#include "host/Closing.h"
#include "host/MessagePump.h"
#include "host/virtual/VirtualClock.h"

namespace tovik::host {

/// A step takes no time: it lets the other timers run that are due now.
class VirtualPump final : public MessagePump {
public:
    VirtualPump(VirtualClock& clock, Closing& closing) : clock_(clock), closing_(closing) {}

    [[nodiscard]] bool Step() override;

    [[nodiscard]] bool stepping() const override { return depth_ > 0; }

private:
    VirtualClock& clock_;
    Closing& closing_;
    int depth_ = 0;
};

} // namespace tovik::host
