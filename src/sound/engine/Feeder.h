// SPDX-License-Identifier: GPL-3.0-or-later
// Opens sources, keeps their feeds full, and finds exact lengths meanwhile. It has threads for that
// (Readers), or none: then whoever mixes offline calls `fillTo` before each block. Interface
// thread, except where told.
#pragma once

#include "base/Mutex.h"
#include "sound/engine/Readers.h"
#include "sound/engine/Source.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tovik::sound {

enum class FeederMode {
    ownThread, ///< open and decode ahead of a device that runs in real time, a thread a source
    inCaller,  ///< open in `add`, decode in `fillTo` alone
};

class Feeder {
public:
    /// `filled` is called on a thread of the feeder's after a feed has got more samples.
    explicit Feeder(FeederMode mode, std::function<void()> filled = {});

    [[nodiscard]] FeederMode mode() const noexcept { return mode_; }

    /// Begins `source` and keeps its feed full. With threads it returns at once.
    void add(std::shared_ptr<Source> source);

    /// Nobody will use `source` again: what its feed needs to fade out is seen to, then the source
    /// goes. With threads that is where it happens, and what is still being opened is called off.
    void retire(std::shared_ptr<Source> source);

    /// Ends the threads; nothing is filled or called any more. Waits for a second at most.
    void stop();

    /// `source` was asked for a new feed.
    void wake(const Source& source);

    /// Tells whether the device takes samples; while it does not, a full feed stays full and the
    /// threads sleep until they are told otherwise.
    void setRunning(bool running);

    /// Decodes until every source has `frames` frames ready or has ended. The thread that mixes
    /// offline.
    void fillTo(std::size_t frames);

private:
    const FeederMode mode_;
    std::optional<Readers> readers_; ///< exactly with threads
    base::Mutex mutex_;
    std::vector<std::shared_ptr<Source>> sources_ TOVIK_GUARDED_BY(mutex_); ///< without threads
};

} // namespace tovik::sound
