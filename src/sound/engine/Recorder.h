// SPDX-License-Identifier: GPL-3.0-or-later
// Hands the mix to a routine while a recording runs. The mixer writes into a ring; a thread of the
// recorder's own, which exists only while there is a routine, takes it from there.
#pragma once

#include "base/Mutex.h"
#include "sound/api/RecordOperations.h"
#include "sound/mix/FrameRing.h"

#include <cstdint>
#include <memory>
#include <thread>
#include <vector>

namespace tovik::sound {

class Recorder {
public:
    /// Begins to deliver what is written to `ring` to `routine`, on the recorder's thread.
    Recorder(Handle handle, RecordRoutine routine, std::uintptr_t user);
    ~Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    /// Where the mixer writes to.
    [[nodiscard]] FrameRing& ring() noexcept { return ring_; }

private:
    void run();
    [[nodiscard]] bool deliver();

    FrameRing ring_;
    const RecordRoutine routine_;
    const std::uintptr_t user_;
    const Handle handle_;
    bool ending_ TOVIK_GUARDED_BY(mutex_) = false;
    std::vector<float> taken_;
    std::vector<std::int16_t> samples_;
    base::Mutex mutex_;
    base::Condition wakeUp_;
    std::thread thread_; ///< last: it starts when all else is there
};

} // namespace tovik::sound
