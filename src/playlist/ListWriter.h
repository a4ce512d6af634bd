// SPDX-License-Identifier: GPL-3.0-or-later
// Writes files, over and over, on a thread of its own. Used from one thread.
#pragma once

#include "base/Mutex.h"

#include <deque>
#include <functional>
#include <string>
#include <system_error>
#include <thread>

namespace tovik::playlist {

/// Replaces a file whole each time. Of texts for the same file that come faster than they are
/// written only the newest counts. The thread begins with the first text.
class ListWriter {
public:
    /// Told on the writer's thread how a write went; of texts that are not written nobody hears.
    using Done = std::function<void(std::error_code failure)>;

    ListWriter() = default;
    /// Waits for what is being written; what waits behind it is dropped.
    ~ListWriter();
    ListWriter(const ListWriter&) = delete;
    ListWriter& operator=(const ListWriter&) = delete;

    /// Returns at once.
    void write(std::string path, std::string text, Done done = {});

    /// Waits until everything that was given is written or has failed.
    void wait();

private:
    struct Job {
        std::string path;
        std::string text;
        Done done;
    };

    void run();

    base::Mutex mutex_;
    base::Condition changed_;
    std::deque<Job> next_ TOVIK_GUARDED_BY(mutex_);
    bool writing_ TOVIK_GUARDED_BY(mutex_) = false;
    bool ending_ TOVIK_GUARDED_BY(mutex_) = false;
    std::thread thread_;
};

} // namespace tovik::playlist
