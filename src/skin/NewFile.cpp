// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/NewFile.h"

#include "base/FileErrors.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace tovik::skin {

namespace {

constexpr int kHow = O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
constexpr mode_t kMode = 0666; // less what the user's mask takes away

} // namespace

NewFile::NewFile(const std::string& path) : descriptor_(::open(path.c_str(), kHow, kMode)) {
    if (descriptor_ < 0) {
        base::raiseFailure(base::lastSystemError());
    }
}

NewFile::~NewFile() {
    ::close(descriptor_);
}

void NewFile::write(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
        if (written >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            base::raiseFailure(base::lastSystemError());
        }
    }
}

} // namespace tovik::skin
