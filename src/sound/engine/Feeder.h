// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the feeds of all playing sources full, and finds exact lengths meanwhile. It has a thread
// of its own, or none: then whoever mixes offline calls `fillTo` before each block.
#pragma once

#include "sound/engine/Source.h"

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace tovik::sound {

enum class FeederMode {
    ownThread, ///< decode ahead of a device that runs in real time
    inCaller,  ///< decode only in `fillTo`
};

class Feeder {
public:
    /// `filled` is called on the feeder's thread after each round that has filled something.
    explicit Feeder(FeederMode mode, std::function<void()> filled = {});

    /// Calls `stop`.
    ~Feeder();
    Feeder(const Feeder&) = delete;
    Feeder& operator=(const Feeder&) = delete;

    [[nodiscard]] FeederMode mode() const noexcept { return mode_; }

    // Interface thread ----------------------------------------------------------------------

    void add(std::shared_ptr<Source> source);

    /// Nobody will use `source` again: what its feed needs to fade out is seen to, then the source
    /// goes. With a thread of its own that is where it happens.
    void retire(std::shared_ptr<Source> source);

    /// Ends the thread; nothing is filled or called any more.
    void stop();

    /// A source has a new feed.
    void wake();

    /// Tells whether the device takes samples; while it does not, a full feed stays full and the
    /// thread sleeps until it is told otherwise.
    void setRunning(bool running);

    // The thread that mixes offline -----------------------------------------------------------

    /// Decodes until every source has `frames` frames ready or has ended.
    void fillTo(std::size_t frames);

private:
    using Sources = std::vector<std::shared_ptr<Source>>;

    void run();
    void sleep(std::unique_lock<std::mutex>& lock, const Sources& sources);
    [[nodiscard]] static bool fillOnce(const Sources& sources);
    [[nodiscard]] static bool scanOnce(const Sources& sources);

    const FeederMode mode_;
    const std::function<void()> filled_;
    std::mutex mutex_; ///< guards the members below
    std::condition_variable wakeUp_;
    Sources sources_;
    Sources retired_;
    bool running_ = true;
    bool changed_ = false;
    bool ending_ = false;

    std::thread thread_; ///< last: it starts when all else is there
};

} // namespace tovik::sound
