// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/FactsDesk.h"

#include "base/Descriptor.h"
#include "base/Mutex.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <deque>
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
constexpr std::chrono::milliseconds kPatience{300};

} // namespace

/// What desk and thread share.
class FactsDesk::Reader {
public:
    explicit Reader(Read read)
        : read_(std::move(read)), event_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

    [[nodiscard]] int descriptor() const { return event_.get(); }

    /// False: it waits already, or is being read.
    bool ask(const std::string& path, Urgency urgency) {
        const base::MutexLock lock(mutex_);
        const bool urgent = urgency == Urgency::first;
        if (path == reading_) {
            urgent_ = urgent_ || urgent;
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
        changed_.notifyAll();
        return isNew;
    }

    [[nodiscard]] std::deque<Answer> take() {
        std::uint64_t count = 0;
        // Nothing to read is as good: the answers are taken all the same.
        static_cast<void>(!::read(event_.get(), &count, sizeof count));
        const base::MutexLock lock(mutex_);
        told_ = Clock::now();
        return std::exchange(answers_, {});
    }

    void tell() const {
        constexpr std::uint64_t kOne = 1;
        static_cast<void>(!::write(event_.get(), &kOne, sizeof kOne));
    }

    void run() {
        const base::MutexLock lock(mutex_);
        while (!ending_) {
            if (jobs_.empty()) {
                changed_.wait(mutex_);
                continue;
            }
            readNext();
        }
        ended_ = true;
        changed_.notifyAll();
    }

    void end() {
        const auto last = Clock::now() + kPatience;
        const base::MutexLock lock(mutex_);
        ending_ = true;
        changed_.notifyAll();
        while (!ended_ && changed_.waitUntil(mutex_, last)) {
        }
    }

private:
    struct Job {
        std::string path;
        bool urgent;
    };

    void readNext() TOVIK_REQUIRES(mutex_) {
        Job job = std::move(jobs_.front());
        jobs_.pop_front();
        reading_ = job.path;
        urgent_ = job.urgent;
        Answer answer{.path = std::move(job.path), .facts = {}, .urgent = false};
        {
            const base::MutexUnlock unlock(mutex_);
            answer.facts = read_(answer.path);
        }
        reading_.clear();
        answer.urgent = urgent_;
        answers_.push_back(std::move(answer));
        if (urgent_ || jobs_.empty() || answers_.size() >= kBatch ||
            Clock::now() - told_ >= kSoon) {
            tell();
        }
    }

    Read read_;
    base::Descriptor event_; ///< readable while there are answers to be taken
    base::Mutex mutex_;
    base::Condition changed_;
    std::deque<Job> jobs_ TOVIK_GUARDED_BY(mutex_);
    std::deque<Answer> answers_ TOVIK_GUARDED_BY(mutex_);
    std::string reading_ TOVIK_GUARDED_BY(mutex_);
    bool urgent_ TOVIK_GUARDED_BY(mutex_) = false; ///< somebody waits for what is being read
    Clock::time_point told_ TOVIK_GUARDED_BY(mutex_){};
    bool ending_ TOVIK_GUARDED_BY(mutex_) = false;
    bool ended_ TOVIK_GUARDED_BY(mutex_) = false;
};

FactsDesk::FactsDesk(host::Watches& watches, Read read)
    : watches_(watches), read_(std::move(read)) {}

FactsDesk::~FactsDesk() {
    watch_.reset();
    if (reader_) {
        reader_->end();
    }
}

void FactsDesk::begin() {
    if (!reader_) {
        reader_ = std::make_shared<Reader>(read_);
        watch_ = watches_.watch(reader_->descriptor(), [this] { takeAnswers(); });
        std::thread([reader = reader_] { reader->run(); }).detach();
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
    for (const Taker& taker : takers_) {
        taker(answer.path, answer.facts);
    }
}

void FactsDesk::forget(const std::string& path) {
    if (const auto place = places_.find(path); place != places_.end()) {
        kept_.erase(place->second);
        places_.erase(place);
    }
}

void FactsDesk::keep(const Answer& answer) {
    forget(answer.path);
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
