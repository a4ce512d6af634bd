// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/ListWriter.h"

#include "base/AtomicFile.h"

#include <algorithm>
#include <utility>

namespace tovik::playlist {

ListWriter::~ListWriter() {
    {
        const base::MutexLock lock(mutex_);
        ending_ = true;
    }
    changed_.notifyAll();
    if (thread_.joinable()) {
        thread_.join();
    }
}

void ListWriter::write(std::string path, std::string text, Done done) {
    {
        const base::MutexLock lock(mutex_);
        const auto waiting = std::ranges::find(next_, path, &Job::path);
        if (waiting != next_.end()) {
            waiting->text = std::move(text);
            waiting->done = std::move(done);
        } else {
            next_.push_back({std::move(path), std::move(text), std::move(done)});
        }
    }
    if (!thread_.joinable()) {
        thread_ = std::thread([this] { run(); });
    }
    changed_.notifyAll();
}

void ListWriter::wait() {
    const base::MutexLock lock(mutex_);
    while (!next_.empty() || writing_) {
        changed_.wait(mutex_);
    }
}

void ListWriter::run() {
    const base::MutexLock lock(mutex_);
    while (true) {
        while (next_.empty() && !ending_) {
            changed_.wait(mutex_);
        }
        if (ending_) {
            return;
        }
        const Job job = std::move(next_.front());
        next_.pop_front();
        writing_ = true;
        {
            const base::MutexUnlock unlock(mutex_);
            const std::error_code failure = base::replaceFile(job.path, job.text, base::Flush::Yes);
            if (job.done) {
                job.done(failure);
            }
        }
        writing_ = false;
        changed_.notifyAll();
    }
}

} // namespace tovik::playlist
