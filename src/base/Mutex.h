// SPDX-License-Identifier: GPL-3.0-or-later
// A mutex, what holds it and what waits under it, annotated so that clang proves which members are
// touched only while it is held (-Wthread-safety; to other compilers the annotations are nothing).
// Any thread.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

#if defined(__clang__)
#define TOVIK_ANALYSED(attribute) __attribute__((attribute))
#else
#define TOVIK_ANALYSED(attribute)
#endif

/// Of a member: touched only by who holds the mutex.
#define TOVIK_GUARDED_BY(mutex) TOVIK_ANALYSED(guarded_by(mutex))

/// Of a function: called only by who holds the mutex, and holds it when it returns.
#define TOVIK_REQUIRES(mutex) TOVIK_ANALYSED(requires_capability(mutex))

/// Of a function: not called by who holds the mutex.
#define TOVIK_EXCLUDES(mutex) TOVIK_ANALYSED(locks_excluded(mutex))

namespace tovik::base {

class TOVIK_ANALYSED(capability("mutex")) Mutex {
public:
    void lock() TOVIK_ANALYSED(acquire_capability()) { mutex_.lock(); }

    void unlock() TOVIK_ANALYSED(release_capability()) { mutex_.unlock(); }

private:
    friend class Condition;

    std::mutex mutex_;
};

/// Holds a mutex as long as it lives.
class TOVIK_ANALYSED(scoped_lockable) MutexLock {
public:
    explicit MutexLock(Mutex& mutex) TOVIK_ANALYSED(acquire_capability(mutex)) : mutex_(mutex) {
        mutex_.lock();
    }

    ~MutexLock() TOVIK_ANALYSED(release_capability()) { mutex_.unlock(); }

    MutexLock(const MutexLock&) = delete;
    MutexLock& operator=(const MutexLock&) = delete;

private:
    Mutex& mutex_;
};

/// Lets go of a mutex that is held, and holds it again when it dies.
class TOVIK_ANALYSED(scoped_lockable) MutexUnlock {
public:
    explicit MutexUnlock(Mutex& mutex) TOVIK_ANALYSED(release_capability(mutex)) : mutex_(mutex) {
        mutex_.unlock();
    }

    ~MutexUnlock() TOVIK_ANALYSED(release_capability()) { mutex_.lock(); }

    MutexUnlock(const MutexUnlock&) = delete;
    MutexUnlock& operator=(const MutexUnlock&) = delete;

private:
    Mutex& mutex_;
};

/// A condition variable. What is waited for is a loop of the caller's, where clang sees that the
/// mutex is held: `while (!done_) { changed_.wait(mutex_); }`. It may wake without a reason.
class Condition {
public:
    void notifyOne() noexcept { condition_.notify_one(); }

    void notifyAll() noexcept { condition_.notify_all(); }

    void wait(Mutex& mutex) TOVIK_REQUIRES(mutex) {
        std::unique_lock lock(mutex.mutex_, std::adopt_lock);
        condition_.wait(lock);
        lock.release();
    }

    /// False once `time` has come.
    [[nodiscard]] bool waitUntil(Mutex& mutex, std::chrono::steady_clock::time_point time)
        TOVIK_REQUIRES(mutex) {
        std::unique_lock lock(mutex.mutex_, std::adopt_lock);
        const bool inTime = condition_.wait_until(lock, time) == std::cv_status::no_timeout;
        lock.release();
        return inTime;
    }

private:
    std::condition_variable condition_;
};

} // namespace tovik::base
