// SPDX-License-Identifier: GPL-3.0-or-later
// Lets sound and timers of a render go on together. Interface thread.
#pragma once

#include "host/virtual/VirtualClock.h"
#include "sound/output/WavOutput.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace tovik::app {

/// The mix is made exactly up to the next due timer, which then fires.
class RenderLoop {
public:
    /// Both outlive the loop; the clock stands at 0.
    RenderLoop(host::VirtualClock& clock, sound::WavOutput& output)
        : clock_(clock), output_(output) {}

    /// Goes to the next due timer, or to `last` where none is due before it.
    void step(std::int64_t last) {
        const std::int64_t now = std::min(clock_.nextDue().value_or(last), last);
        const std::int64_t frames = now * sound::kMixRate / 1000;
        output_.advance(static_cast<std::size_t>(frames - frames_));
        frames_ = frames;
        clock_.advanceTo(now);
    }

private:
    host::VirtualClock& clock_;
    sound::WavOutput& output_;
    std::int64_t frames_ = 0;
};

} // namespace tovik::app
