// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/FactsDesk.h"

#include "base/Descriptor.h"
#include "base/Mutex.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <deque>
#include <system_error>
#include <thread>

#include <sys/eventfd.h>
#include <unistd.h>

namespace tovik::tags {

namespace {

using Clock = std::chrono::steady_clock;

/// Answers are told together: as many, or after as long.
constexpr std::size_t kBatch = 16;
constexpr std::chrono::milliseconds kSoon{8};

/// For how long the end waits for a file that is being read.
constexpr std::chrono::milliseconds kLastWait{300};

/// As many files are read at once, and as many where somebody waits for one.
constexpr std::ptrdiff_t kAtOnce = 1;
constexpr std::ptrdiff_t kAtOnceUrgent = 2;

/// With as many files that stall, nothing is read any more; the last ones are kept for files that
/// somebody waits for.
constexpr std::size_t kMostThreads = 8;
constexpr std::size_t kMostThreadsAhead = kMostThreads - 2;

} // namespace

/// What desk and threads share. A thread that takes a file leaves another one behind it that waits
/// for the next.
class FactsDesk::Reader : public std::enable_shared_from_this<Reader> {
public:
    Reader(Read read, std::chrono::milliseconds patience)
        : read_(std::move(read)), patience_(patience),
          event_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

    [[nodiscard]] int descriptor() const { return event_.get(); }

    /// False: it waits already, or is being read.
    bool ask(const std::string& path, Urgency urgency) {
        const base::MutexLock lock(mutex_);
        const bool urgent = urgency == Urgency::first;
        if (const auto reading = std::ranges::find(readings_, path, &Reading::path);
            reading != readings_.end()) {
            reading->urgent = reading->urgent || urgent;
            return false;
        }
        const auto waiting = std::ranges::find(jobs_, path, &Job::path);
        const bool isNew = waiting == jobs_.end();
        if (!isNew) {
            if (!urgent) {
                return false;
            }
            jobs_.erase(waiting);
        }
        jobs_.insert(urgent ? jobs_.begin() : jobs_.end(), Job{path, urgent});
        addThread();
        if (urgent || jobs_.size() == 1) { // else all know already that something waits
            changed_.notifyAll();
        }
        return isNew;
    }

    /// What is being read of a file counts no more: it is read once again.
    void outdate(const std::string& path) {
        const base::MutexLock lock(mutex_);
        if (const auto reading = std::ranges::find(readings_, path, &Reading::path);
            reading != readings_.end()) {
            reading->outdated = true;
        }
        const auto ready = std::ranges::find(answers_, path, &Answer::path);
        if (ready != answers_.end()) {
            readAnew(*ready);
            answers_.erase(ready);
            addThread();
            changed_.notifyAll();
        }
    }

    [[nodiscard]] std::deque<Answer> take() {
        std::uint64_t count = 0;
        // Nothing to read is as good: the answers are taken all the same.
        static_cast<void>(::read(event_.get(), &count, sizeof count) == 0);
        const base::MutexLock lock(mutex_);
        told_ = Clock::now();
        return std::exchange(answers_, {});
    }

    void tell() const {
        constexpr std::uint64_t kOne = 1;
        static_cast<void>(::write(event_.get(), &kOne, sizeof kOne) == 0);
    }

    void end() {
        const auto last = Clock::now() + kLastWait;
        const base::MutexLock lock(mutex_);
        ending_ = true;
        changed_.notifyAll();
        while (threads_ > 0 && changed_.waitUntil(mutex_, last)) {
        }
    }

private:
    struct Job {
        std::string path;
        bool urgent;
    };

    struct Reading {
        std::string path;
        bool urgent; ///< somebody waits for it
        bool outdated;
        Clock::time_point begun;
    };

    void addThread() TOVIK_REQUIRES(mutex_) {
        if (threads_ > readings_.size() || threads_ >= kMostThreads) {
            return; // one waits already
        }
        try {
            std::thread([self = shared_from_this()] { self->run(); }).detach();
            ++threads_;
        } catch (const std::system_error&) { // NOLINT(bugprone-empty-catch)
            // Those that are there have to do, and the next question tries again.
        }
    }

    void run() {
        const base::MutexLock lock(mutex_);
        while (!ending_) {
            if (jobs_.empty() || (!jobs_.front().urgent && readings_.size() >= kMostThreadsAhead)) {
                changed_.wait(mutex_);
            } else if (const auto turn = turnOf(jobs_.front()); turn > Clock::now()) {
                static_cast<void>(changed_.waitUntil(mutex_, turn));
            } else {
                readNext();
            }
        }
        --threads_;
        changed_.notifyAll();
    }

    void readAnew(const Answer& answer) TOVIK_REQUIRES(mutex_) {
        jobs_.insert(answer.urgent ? jobs_.begin() : jobs_.end(), Job{answer.path, answer.urgent});
    }

    /// When a job may be begun, as it stands: a file that does not come counts no more then.
    [[nodiscard]] Clock::time_point turnOf(const Job& job) const TOVIK_REQUIRES(mutex_) {
        const auto stalledSince = Clock::now() - patience_;
        const auto counts = [stalledSince](const Reading& one) { return one.begun > stalledSince; };
        if (std::ranges::count_if(readings_, counts) < (job.urgent ? kAtOnceUrgent : kAtOnce)) {
            return Clock::time_point::min();
        }
        const auto oldest = std::ranges::find_if(readings_, counts);
        return oldest == readings_.end() ? Clock::time_point::min() : oldest->begun + patience_;
    }

    void readNext() TOVIK_REQUIRES(mutex_) {
        const Job job = std::move(jobs_.front());
        jobs_.pop_front();
        const auto reading = readings_.insert(
            readings_.end(),
            {.path = job.path, .urgent = job.urgent, .outdated = false, .begun = Clock::now()});
        addThread();
        Answer answer{.path = job.path, .facts = {}, .urgent = false};
        {
            const base::MutexUnlock unlock(mutex_);
            answer.facts = read_(answer.path);
        }
        answer.urgent = reading->urgent;
        const bool outdated = reading->outdated;
        readings_.erase(reading);
        if (readings_.size() + 1 == kMostThreadsAhead) {
            changed_.notifyAll(); // what is read ahead may go on
        }
        if (outdated) {
            readAnew(answer);
            return;
        }
        const bool tells = answer.urgent || jobs_.empty();
        answers_.push_back(std::move(answer));
        if (tells || answers_.size() >= kBatch || Clock::now() - told_ >= kSoon) {
            tell();
        }
    }

    Read read_;
    std::chrono::milliseconds patience_;
    base::Descriptor event_; ///< readable while there are answers to be taken
    base::Mutex mutex_;
    base::Condition changed_;
    std::deque<Job> jobs_ TOVIK_GUARDED_BY(mutex_);
    std::deque<Answer> answers_ TOVIK_GUARDED_BY(mutex_);
    std::list<Reading> readings_ TOVIK_GUARDED_BY(mutex_); ///< the oldest in front
    std::size_t threads_ TOVIK_GUARDED_BY(mutex_) = 0;
    Clock::time_point told_ TOVIK_GUARDED_BY(mutex_){};
    bool ending_ TOVIK_GUARDED_BY(mutex_) = false;
};

FactsDesk::FactsDesk(host::Watches& watches, Read read, std::chrono::milliseconds patience)
    : watches_(watches), read_(std::move(read)), patience_(patience) {}

FactsDesk::~FactsDesk() {
    watch_.reset();
    if (reader_) {
        reader_->end();
    }
}

void FactsDesk::begin() {
    if (!reader_) {
        reader_ = std::make_shared<Reader>(read_, patience_);
        watch_ = watches_.watch(reader_->descriptor(), [this] { takeAnswers(); });
    }
}

void FactsDesk::ask(const std::string& path, Urgency urgency) {
    if (watches_.watchesNothing()) {
        take({.path = path, .facts = read_(path), .urgent = urgency == Urgency::first});
        return;
    }
    begin();
    if (reader_->ask(path, urgency)) {
        ++waiting_;
    }
}

void FactsDesk::callLater(std::function<void()> call) {
    if (watches_.watchesNothing()) {
        call();
        return;
    }
    begin();
    later_.push_back(std::move(call));
    reader_->tell();
}

void FactsDesk::takeAnswers() {
    for (const Answer& answer : reader_->take()) {
        --waiting_;
        take(answer);
    }
    for (const auto& call : std::exchange(later_, {})) {
        call();
    }
}

void FactsDesk::take(const Answer& answer) {
    if (answer.urgent) {
        keep(answer);
    }
    std::erase_if(takers_, [](const auto& taker) { return taker.expired(); });
    // NOLINTNEXTLINE(modernize-loop-convert): a taker may bring another one
    for (std::size_t i = 0; i < takers_.size(); ++i) {
        if (const auto taker = takers_.at(i).lock()) {
            (*taker)(answer.path, answer.facts);
        }
    }
}

FactsDesk::Taking FactsDesk::addTaker(Taker taker) {
    auto taking = std::make_shared<const Taker>(std::move(taker));
    takers_.emplace_back(taking);
    return taking;
}

void FactsDesk::forget(const std::string& path) {
    if (reader_) {
        reader_->outdate(path);
    }
    drop(path);
}

void FactsDesk::drop(const std::string& path) {
    if (const auto place = places_.find(path); place != places_.end()) {
        kept_.erase(place->second);
        places_.erase(place);
    }
}

void FactsDesk::keep(const Answer& answer) {
    drop(answer.path);
    kept_.push_front(answer);
    places_.emplace(kept_.front().path, kept_.begin());
    if (kept_.size() > kKept) {
        places_.erase(kept_.back().path);
        kept_.pop_back();
    }
}

const FileFacts* FactsDesk::known(const std::string& path) {
    const auto place = places_.find(path);
    if (place == places_.end()) {
        return nullptr;
    }
    kept_.splice(kept_.begin(), kept_, place->second);
    return &place->second->facts;
}

} // namespace tovik::tags
