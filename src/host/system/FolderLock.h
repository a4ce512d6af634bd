// SPDX-License-Identifier: GPL-3.0-or-later
// One process at a time makes a data folder ready. Called at the start, on any thread.
#pragma once

#include <chrono>
#include <string>

namespace tovik::host {

/// Holds an advisory lock on a folder itself, so that nothing is left in it; the kernel takes it
/// back when the process ends. Waits for whoever holds it, but not for ever: a process that was
/// stopped half way must not keep every later one from starting. A folder that is missing or
/// cannot be locked is not waited for.
class FolderLock {
public:
    static constexpr std::chrono::milliseconds kLongestWait{5000};

    explicit FolderLock(const std::string& folder,
                        std::chrono::milliseconds longestWait = kLongestWait);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    [[nodiscard]] bool held() const { return held_; }

private:
    int descriptor_ = -1;
    bool held_ = false;
};

} // namespace tovik::host
