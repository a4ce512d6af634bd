// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/system/FileLock.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace tovik::host {

FileLock::FileLock(std::string path) : path_(std::move(path)) {}

FileLock::~FileLock() {
    release();
}

bool FileLock::hold() {
    if (descriptor_ >= 0) {
        return true;
    }
    constexpr mode_t kMode = 0600;
    const int descriptor = ::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kMode);
    if (descriptor < 0) {
        return true; // no lock can be kept here
    }
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        const bool taken = errno == EWOULDBLOCK;
        ::close(descriptor);
        return !taken;
    }
    descriptor_ = descriptor;
    return true;
}

void FileLock::release() {
    if (descriptor_ >= 0) {
        ::close(std::exchange(descriptor_, -1));
    }
}

} // namespace tovik::host
