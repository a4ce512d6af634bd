// SPDX-License-Identifier: GPL-3.0-or-later
// What somebody waits for that a drive's thread has still to do. Shared by the two: who does not
// wait any longer leaves it to the other. Any thread.
#pragma once

#include "base/Mutex.h"

#include <memory>
#include <optional>
#include <stop_token>
#include <utility>

namespace tovik::sound {

template <typename Value>
class DriveAnswer {
public:
    /// Who holds it is to answer; when it goes without having done so, there is none.
    class Pledge {
    public:
        explicit Pledge(std::shared_ptr<DriveAnswer> answer) : answer_(std::move(answer)) {}

        ~Pledge() { answer_->settle(); }

        Pledge(const Pledge&) = delete;
        Pledge& operator=(const Pledge&) = delete;

        void give(Value value) { answer_->give(std::move(value)); }

    private:
        const std::shared_ptr<DriveAnswer> answer_;
    };

    /// Nothing when there is none, and when a stop is requested first.
    [[nodiscard]] std::optional<Value> wait(const std::stop_token& calledOff) {
        const std::stop_callback wake(calledOff, [this] { settle(); });
        const base::MutexLock lock(mutex_);
        while (!settled_) {
            changed_.wait(mutex_);
        }
        return std::move(value_);
    }

private:
    void give(Value value) {
        const base::MutexLock lock(mutex_);
        value_ = std::move(value);
    }

    void settle() {
        const base::MutexLock lock(mutex_);
        settled_ = true;
        changed_.notifyAll();
    }

    base::Mutex mutex_;
    base::Condition changed_;
    std::optional<Value> value_ TOVIK_GUARDED_BY(mutex_);
    bool settled_ TOVIK_GUARDED_BY(mutex_) = false; ///< with or without a value
};

} // namespace tovik::sound
