// SPDX-License-Identifier: GPL-3.0-or-later
// Wakes a thread that waits for descriptors. `raise` on any thread, never waits.
#pragma once

namespace tovik::sound {

class WakeEvent {
public:
    WakeEvent() noexcept;
    ~WakeEvent();

    WakeEvent(const WakeEvent&) = delete;
    WakeEvent& operator=(const WakeEvent&) = delete;

    /// Readable from `raise` until `take`.
    [[nodiscard]] int descriptor() const noexcept { return descriptor_; }

    void raise() noexcept;
    void take() noexcept;

private:
    int descriptor_;
};

} // namespace tovik::sound
