// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/BesideJob.h"

#include "base/Mutex.h"

#include <chrono>
#include <exception>
#include <memory>
#include <thread>
#include <utility>

namespace tovik::host {

namespace {

/// What is done by then needs no step, and nothing changes under who waits for it. No longer than
/// two frames, so that nobody sees the window stand still.
constexpr std::chrono::milliseconds kMoment{33};

constexpr std::chrono::milliseconds kBetweenSteps{1};

constexpr std::chrono::minutes kLongest{1}; ///< in one go

class Outcome {
public:
    void finish(std::exception_ptr error) {
        const base::MutexLock lock(mutex_);
        error_ = std::move(error);
        done_ = true;
        changed_.notifyAll();
    }

    [[nodiscard]] bool waitFor(std::chrono::milliseconds time) {
        const auto end = std::chrono::steady_clock::now() + time;
        const base::MutexLock lock(mutex_);
        while (!done_ && changed_.waitUntil(mutex_, end)) {
        }
        return done_;
    }

    void wait() {
        while (!waitFor(kLongest)) {
        }
    }

    /// Only once it is done.
    void raise() {
        const base::MutexLock lock(mutex_);
        if (error_) {
            std::rethrow_exception(error_);
        }
    }

private:
    base::Mutex mutex_;
    base::Condition changed_;
    bool done_ TOVIK_GUARDED_BY(mutex_) = false;
    std::exception_ptr error_ TOVIK_GUARDED_BY(mutex_);
};

} // namespace

bool runBeside(MessagePump& pump, std::function<void()> job, AtEnd atEnd) {
    const auto outcome = std::make_shared<Outcome>();
    std::thread([outcome, job = std::move(job)]() mutable {
        std::exception_ptr error;
        try {
            job();
        } catch (...) {
            error = std::current_exception();
        }
        job = nullptr; // what it holds goes before the other thread goes on
        outcome->finish(std::move(error));
    }).detach();
    try {
        for (bool done = outcome->waitFor(kMoment); !done; done = outcome->waitFor(kBetweenSteps)) {
            if (!pump.Step()) {
                if (atEnd == AtEnd::leave) {
                    return false;
                }
                break;
            }
        }
    } catch (...) {
        if (atEnd == AtEnd::finish) {
            outcome->wait(); // the job may work on what the caller holds
        }
        throw;
    }
    outcome->wait();
    outcome->raise();
    return true;
}

} // namespace tovik::host
