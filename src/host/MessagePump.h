// SPDX-License-Identifier: GPL-3.0-or-later
// How a long loop on the interface thread gives way to the rest of the program.
#pragma once

namespace tovik::host {

/// Lets waiting events run in the middle of a handler.
class MessagePump {
public:
    virtual ~MessagePump() = default;

    /// Gives way once. False when the program is ending: the caller's loop must return. Anything
    /// may have changed in between, so no reference into a model may be kept across a step.
    [[nodiscard]] virtual bool Step() = 0;

    /// Whether a step is being taken just now: who asks was called from one, and a long loop is
    /// not at its end yet.
    [[nodiscard]] virtual bool stepping() const { return false; }
};

} // namespace tovik::host
