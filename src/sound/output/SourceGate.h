// SPDX-License-Identifier: GPL-3.0-or-later
// Stands between a system's audio thread and the mix, so that the mix can be taken away for certain
// although that thread may still be running, or hang in the system.
#pragma once

#include "sound/output/OutputDevice.h"

#include <atomic>

namespace tovik::sound {

class SourceGate {
public:
    /// From now on `take` fills from `source`.
    void open(MixSource& source) noexcept { source_.store(&source); }

    /// From now on `take` gives silence, except one that has begun already. Any thread.
    void shut() noexcept { source_.store(nullptr); }

    /// Shuts, and waits for a `take` that has begun: afterwards the source is not used any more.
    void shutAndWait() noexcept;

    /// Fills `interleaved` from the source, or with silence. By one thread at a time, real-time
    /// safe.
    void take(std::span<float> interleaved) noexcept;

private:
    static_assert(std::atomic<MixSource*>::is_always_lock_free);
    static_assert(std::atomic<bool>::is_always_lock_free);

    std::atomic<MixSource*> source_ = nullptr;
    std::atomic<bool> taking_ = false;
};

} // namespace tovik::sound
