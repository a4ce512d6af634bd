// SPDX-License-Identifier: GPL-3.0-or-later
// The message pump of the desktop's event loop. Interface thread.
#pragma once

#include "host/Clock.h"
#include "host/Closing.h"
#include "host/MessagePump.h"

#include <cstdint>

namespace tovik::host {

/// A step leaves through the closing operation if the user asked for it. Else it looks for events,
/// no oftener than once a millisecond; if there were some it sleeps 10 ms and looks again.
class QtMessagePump final : public MessagePump {
public:
    /// Both must outlive the pump.
    QtMessagePump(const Clock& clock, Closing& closing) : clock_(clock), closing_(closing) {}

    [[nodiscard]] bool Step() override;

    [[nodiscard]] bool stepping() const override { return depth_ > 0; }

private:
    const Clock& clock_;
    Closing& closing_;
    std::int64_t lastLookMs_ = -1;
    int depth_ = 0; ///< a step may be taken within another one
};

} // namespace tovik::host
