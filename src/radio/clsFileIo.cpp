// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/clsFileIo.h"

#include "base/FileErrors.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tovik::radio {

namespace {

constexpr std::byte kSync{0xFF};
constexpr std::byte kLayer{0xFB};
constexpr mode_t kMode = 0666;

/// The byte behind the first sync pair.
std::optional<std::byte> behindSync(std::span<const std::byte> block) {
    for (std::size_t i = 0; i + 2 < block.size(); ++i) {
        if (block[i] == kSync && block[i + 1] == kLayer) {
            return block[i + 2];
        }
    }
    return std::nullopt;
}

} // namespace

bool clsFileIo::OpenFile(const std::string& name, SongFile how) {
    CloseFile();
    name_ = name;
    bytesWritten_ = 0;
    lastResult_ = {};
    // Whatever stands there: nothing outside is reached by a link, and no pipe is waited for.
    const int descriptor = ::open(
        name.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, kMode);
    return take(descriptor, how);
}

bool clsFileIo::take(int descriptor, SongFile how) {
    if (descriptor < 0) {
        lastResult_ = base::lastSystemError();
        return false;
    }

    struct stat status {};

    if (::fstat(descriptor, &status) != 0 ||
        (how == SongFile::anew && S_ISREG(status.st_mode) && ::ftruncate(descriptor, 0) != 0)) {
        lastResult_ = base::lastSystemError();
    } else if (!S_ISREG(status.st_mode)) {
        lastResult_ = std::make_error_code(std::errc::permission_denied);
    }
    if (lastResult_) {
        ::close(descriptor);
        return false;
    }
    descriptor_ = descriptor;
    return true;
}

bool clsFileIo::CloseFile() {
    if (descriptor_ >= 0) {
        ::close(std::exchange(descriptor_, -1));
    }
    return !std::exchange(name_, {}).empty();
}

bool clsFileIo::WriteBytes(std::span<const std::byte> buffer, bool& synced) {
    if (name_.empty() || descriptor_ < 0) {
        return true;
    }
    if (!synced) {
        const auto third = behindSync(buffer);
        if (!third) {
            return true;
        }
        const std::array head = {kSync, kLayer, *third, std::byte{0}};
        if (!write(head)) {
            return false;
        }
        synced = true;
    }
    return write(buffer);
}

bool clsFileIo::write(std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
        if (written < 0) {
            if (errno == EINTR) {
                continue;
            }
            lastResult_ = base::lastSystemError();
            return false;
        }
        bytesWritten_ += static_cast<std::uint64_t>(written);
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace tovik::radio
