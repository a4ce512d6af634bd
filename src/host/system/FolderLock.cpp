// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/system/FolderLock.h"

#include <cerrno>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace tovik::host {

FolderLock::FolderLock(const std::string& folder, std::chrono::milliseconds longestWait)
    : descriptor_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    constexpr std::chrono::milliseconds kStep{5};
    const auto end = std::chrono::steady_clock::now() + longestWait;
    while (descriptor_ >= 0 && !held_) {
        held_ = ::flock(descriptor_, LOCK_EX | LOCK_NB) == 0;
        if (!held_ && (errno != EWOULDBLOCK || std::chrono::steady_clock::now() >= end)) {
            return;
        }
        if (!held_) {
            std::this_thread::sleep_for(kStep);
        }
    }
}

FolderLock::~FolderLock() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

} // namespace tovik::host
