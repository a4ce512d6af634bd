// SPDX-License-Identifier: GPL-3.0-or-later
// The queue of a simulated device that mixes ahead, and what of it is heard. Used with the device
// locked, by one thread at a time.
#pragma once

#include "sound/output/AheadMix.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tovik::sound {

/// How a device queues; all in frames.
struct QueueSettings {
    std::size_t length = 0;  ///< of the queue; 0: the device does not mix ahead
    std::size_t request = 0; ///< taken once so many were heard
    std::size_t margin = 0;  ///< what is heard within this time cannot be changed any more
};

class SimulatedQueue final : private FrameQueue {
public:
    SimulatedQueue(const QueueSettings& settings, MixSource& source, bool decodesAhead);

    /// Taking begins, or goes on.
    void begin();

    /// Taking ends; what was not heard yet is taken back.
    void end();

    /// Something may have changed.
    void change();

    /// Fills the queue, then hears up to `frames` and returns them; valid until the next call.
    [[nodiscard]] std::span<const float> hear(std::size_t frames);

    /// The source's clock that is heard.
    [[nodiscard]] std::int64_t heardClock() const noexcept { return ahead_.clockAt(heard_); }

private:
    std::span<float> room(std::size_t frames) noexcept override;
    void put(std::int64_t frame, std::span<const float> samples) noexcept override;

    const QueueSettings settings_;
    MixSource& source_;
    const bool decodesAhead_;
    AheadMix ahead_;
    std::vector<float> samples_; ///< a ring
    std::vector<float> block_;
    std::vector<float> heardSamples_;
    std::int64_t heard_ = 0;
};

} // namespace tovik::sound
