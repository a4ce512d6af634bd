// SPDX-License-Identifier: GPL-3.0-or-later
// The threads that read. Each source has one to itself from its opening to its end, so that one
// that waits for a disk or the network holds up no other; a thread whose source is gone is kept
// ready for the next. Interface thread.
#pragma once

#include "sound/engine/Source.h"

#include <chrono>
#include <functional>
#include <memory>

namespace tovik::sound {

class Readers {
public:
    /// `filled` is called on the threads, one at a time, when a feed has got more samples. It does
    /// not wait for the interface thread.
    explicit Readers(std::function<void()> filled);

    /// Calls `stop`.
    ~Readers();
    Readers(const Readers&) = delete;
    Readers& operator=(const Readers&) = delete;

    /// A thread begins `source`, keeps its feed full and finds its exact length. Where the system
    /// has no more threads the source is refused.
    void add(std::shared_ptr<Source> source);

    /// Nobody will use `source` again: it is called off, its feed gets what it needs to fade out,
    /// and its thread lets it go.
    void retire(const Source& source);

    /// `source` was asked for a new feed.
    void wake(const Source& source);

    /// Tells whether the device takes samples; while it does not, a full feed stays full and all
    /// threads sleep until they are told otherwise.
    void setRunning(bool running);

    /// Ends the threads; `filled` is not called any more. A thread whose read does not return
    /// within `patience` is left alone with what it owns, and ends once it does.
    void stop(std::chrono::milliseconds patience = kPatience);

private:
    static constexpr std::chrono::milliseconds kPatience{1000};

    class Work;

    void makeThread();

    const std::shared_ptr<Work> work_; ///< shared with each thread
};

} // namespace tovik::sound
