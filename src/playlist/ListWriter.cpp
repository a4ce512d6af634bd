// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/ListWriter.h"

#include "base/AtomicFile.h"

#include <utility>

namespace tovik::playlist {

ListWriter::~ListWriter() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable()) {
        thread_.join();
    }
}

void ListWriter::write(std::string path, std::string text) {
    {
        const std::lock_guard lock(mutex_);
        next_ = Job{std::move(path), std::move(text)};
    }
    if (!thread_.joinable()) {
        thread_ = std::thread([this] { run(); });
    }
    changed_.notify_all();
}

void ListWriter::wait() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !next_ && !writing_; });
}

void ListWriter::run() {
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return next_ || ending_; });
        if (ending_) {
            return;
        }
        const Job job = *std::exchange(next_, std::nullopt);
        writing_ = true;
        lock.unlock();
        static_cast<void>(base::replaceFile(job.path, job.text, base::Flush::Yes));
        lock.lock();
        writing_ = false;
        changed_.notify_all();
    }
}

} // namespace tovik::playlist
