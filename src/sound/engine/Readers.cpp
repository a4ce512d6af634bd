// SPDX-License-Identifier: GPL-3.0-or-later
// A thread that reads may block on a slow disk or network. It holds no lock of what is here while
// it does so, and speaks to the mixer only through the feed. It sleeps until its feed has run down
// to the half, which it can compute, so it wakes about once a second while its track plays and not
// at all while that does not.
#include "sound/engine/Readers.h"

#include "base/Mutex.h"

#include <pthread.h>

#include <algorithm>
#include <deque>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace tovik::sound {

namespace {

constexpr std::chrono::milliseconds kScanSlice(20);

/// A feed that is short but has no room waits for the device.
constexpr std::chrono::milliseconds kShortestSleep(10);

/// Threads that are kept ready: for the track that starts next, and one beside it that fades.
constexpr std::size_t kMostReady = 2;

} // namespace

/// What the threads share. It lives as long as the last of them.
class Readers::Work {
public:
    explicit Work(std::function<void()> filled) : filled_(std::move(filled)) {}

    /// Counts a thread that is about to run `serveAll`, or that could not be made after all; the
    /// source that waits for it is refused then.
    void expectThread();
    void noThread();

    /// False when there must be one more thread for it.
    [[nodiscard]] bool take(std::shared_ptr<Source> source);

    void retire(const Source& source);
    void wake(const Source& source);
    void setRunning(bool running);
    void stop(std::chrono::milliseconds patience);

    /// A thread's life: one source after the other.
    void serveAll();

private:
    /// One source and what its thread is to know of it.
    struct Task {
        std::shared_ptr<Source> source;
        bool stirred = false; ///< look again before you sleep
        bool retired = false;
        base::Condition changed;
    };

    using TaskPointer = std::shared_ptr<Task>;

    [[nodiscard]] TaskPointer find(const Source& source) TOVIK_REQUIRES(mutex_);
    void serve(Task& task) TOVIK_REQUIRES(mutex_);
    [[nodiscard]] bool workOn(Source& source);
    void sleep(Task& task, std::optional<std::chrono::milliseconds> refill) TOVIK_REQUIRES(mutex_);
    void tellFilled();

    base::Mutex mutex_; ///< never held while a source is read or `filled_` is called
    std::vector<TaskPointer> tasks_ TOVIK_GUARDED_BY(mutex_);  ///< not ended yet
    std::deque<TaskPointer> waiting_ TOVIK_GUARDED_BY(mutex_); ///< for a thread, among the tasks
    std::size_t ready_ TOVIK_GUARDED_BY(mutex_) = 0;           ///< threads that have no task
    std::size_t threads_ TOVIK_GUARDED_BY(mutex_) = 0;
    bool running_ TOVIK_GUARDED_BY(mutex_) = true;
    bool ending_ TOVIK_GUARDED_BY(mutex_) = false;
    base::Condition waitingChanged_;
    base::Condition threadEnded_;

    base::Mutex filledMutex_;                                     ///< held while it is called
    std::function<void()> filled_ TOVIK_GUARDED_BY(filledMutex_); ///< empty after `stop`
};

void Readers::Work::expectThread() {
    const base::MutexLock lock(mutex_);
    ++threads_;
    ++ready_;
}

void Readers::Work::noThread() {
    const base::MutexLock lock(mutex_);
    --threads_;
    --ready_;
    if (waiting_.size() > ready_) {
        const TaskPointer task = std::move(waiting_.back());
        waiting_.pop_back();
        std::erase(tasks_, task);
        task->source->refuse();
    }
}

bool Readers::Work::take(std::shared_ptr<Source> source) {
    const base::MutexLock lock(mutex_);
    auto task = std::make_shared<Task>();
    task->source = std::move(source);
    tasks_.push_back(task);
    waiting_.push_back(std::move(task));
    waitingChanged_.notifyOne();
    return waiting_.size() <= ready_;
}

Readers::Work::TaskPointer Readers::Work::find(const Source& source) {
    const auto found = std::ranges::find_if(
        tasks_, [&](const TaskPointer& task) { return task->source.get() == &source; });
    return found != tasks_.end() ? *found : nullptr;
}

void Readers::Work::retire(const Source& source) {
    const base::MutexLock lock(mutex_);
    if (const TaskPointer task = find(source); task != nullptr) {
        task->source->callOff();
        task->retired = true;
        task->changed.notifyOne();
    }
}

void Readers::Work::wake(const Source& source) {
    const base::MutexLock lock(mutex_);
    if (const TaskPointer task = find(source); task != nullptr) {
        task->stirred = true;
        task->changed.notifyOne();
    }
}

void Readers::Work::setRunning(bool running) {
    const base::MutexLock lock(mutex_);
    if (std::exchange(running_, running) == running) {
        return;
    }
    for (const TaskPointer& task : tasks_) {
        task->stirred = true;
        task->changed.notifyOne();
    }
}

void Readers::Work::stop(std::chrono::milliseconds patience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    {
        const base::MutexLock lock(mutex_);
        if (std::exchange(ending_, true)) {
            return; // and what was left alone is not waited for once more
        }
        waiting_.clear();
        for (const TaskPointer& task : tasks_) {
            task->source->callOff();
            task->changed.notifyOne();
        }
        waitingChanged_.notifyAll();
        while (threads_ > 0 && threadEnded_.waitUntil(mutex_, deadline)) {
        }
    }
    const base::MutexLock lock(filledMutex_);
    filled_ = nullptr;
}

void Readers::Work::serveAll() {
    ::pthread_setname_np(::pthread_self(), "reader");
    const base::MutexLock lock(mutex_);
    while (!ending_ && (!waiting_.empty() || ready_ <= kMostReady)) {
        if (waiting_.empty()) {
            waitingChanged_.wait(mutex_);
            continue;
        }
        --ready_;
        TaskPointer task = std::move(waiting_.front());
        waiting_.pop_front();
        if (!task->retired) {
            serve(*task);
        }
        std::erase(tasks_, task);
        {
            const base::MutexUnlock unlock(mutex_);
            task.reset(); // and the source, if its channel was freed
        }
        ++ready_;
    }
    --ready_;
    --threads_;
    threadEnded_.notifyAll();
}

void Readers::Work::serve(Task& task) {
    Source& source = *task.source;
    {
        const base::MutexUnlock unlock(mutex_);
        source.begin();
        tellFilled();
    }
    while (!task.retired && !ending_) {
        task.stirred = false;
        bool busy = false;
        bool done = false;
        std::optional<std::chrono::milliseconds> refill;
        {
            const base::MutexUnlock unlock(mutex_);
            busy = workOn(source);
            done = !busy && source.needsNoThread();
            refill = source.timeToRefill();
        }
        if (done) {
            return;
        }
        if (!busy) {
            sleep(task, refill);
        }
    }
    if (!ending_) {
        const base::MutexUnlock unlock(mutex_);
        source.prepareFade();
    }
}

/// One slice of what there is to do with a source; false when there is nothing.
bool Readers::Work::workOn(Source& source) {
    if (source.fillSlice()) {
        tellFilled();
        return true;
    }
    if (source.lengthIsEstimate()) {
        source.scan(kScanSlice);
        return true;
    }
    return false;
}

void Readers::Work::sleep(Task& task, std::optional<std::chrono::milliseconds> refill) {
    const auto now = std::chrono::steady_clock::now();
    while (!task.stirred && !task.retired && !ending_) {
        if (!refill || !running_) {
            task.changed.wait(mutex_);
        } else if (!task.changed.waitUntil(mutex_, now + std::max(*refill, kShortestSleep))) {
            return;
        }
    }
}

void Readers::Work::tellFilled() {
    const base::MutexLock lock(filledMutex_);
    if (filled_) {
        filled_();
    }
}

Readers::Readers(std::function<void()> filled) : work_(std::make_shared<Work>(std::move(filled))) {
    makeThread(); // so that the first track finds it ready
}

Readers::~Readers() {
    stop();
}

void Readers::makeThread() {
    work_->expectThread();
    try {
        // Never joined: it counts itself out, and one that hangs in a read is left alone.
        std::thread([work = work_] { work->serveAll(); }).detach();
    } catch (const std::system_error&) {
        work_->noThread();
    }
}

void Readers::add(std::shared_ptr<Source> source) {
    if (!work_->take(std::move(source))) {
        makeThread();
    }
}

void Readers::retire(const Source& source) {
    work_->retire(source);
}

void Readers::wake(const Source& source) {
    work_->wake(source);
}

void Readers::setRunning(bool running) {
    work_->setRunning(running);
}

void Readers::stop(std::chrono::milliseconds patience) {
    work_->stop(patience);
}

} // namespace tovik::sound
