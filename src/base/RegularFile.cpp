// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/RegularFile.h"

#include "base/FileErrors.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tovik::base {

namespace {

std::error_code refusal(mode_t mode) {
    return std::make_error_code(S_ISDIR(mode) ? std::errc::is_a_directory
                                              : std::errc::invalid_seek);
}

} // namespace

RegularFile::RegularFile(const std::string& path, Access access)
    : descriptor_(::open(path.c_str(), (access == Access::Read ? O_RDONLY : O_RDWR) | O_CLOEXEC |
                                           O_NOCTTY | O_NONBLOCK)) {
    struct stat facts {};

    if (descriptor_ < 0 || ::fstat(descriptor_, &facts) != 0) {
        failure_ = lastSystemError();
    } else if (!S_ISREG(facts.st_mode)) {
        failure_ = refusal(facts.st_mode);
    }
    size_ = facts.st_size;
}

RegularFile::~RegularFile() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

std::error_code RegularFile::readAt(std::int64_t offset, std::size_t count,
                                    std::string& bytes) const {
    bytes.resize(count);
    std::size_t done = 0;
    while (done < count) {
        const ssize_t got = ::pread(descriptor_, bytes.data() + done, count - done,
                                    offset + static_cast<std::int64_t>(done));
        if (got == 0) {
            break;
        }
        if (got > 0) {
            done += static_cast<std::size_t>(got);
        } else if (errno != EINTR) {
            const std::error_code failure = lastSystemError();
            bytes.clear();
            return failure;
        }
    }
    bytes.resize(done);
    return {};
}

// Not const although only the descriptor is used: the file changes.
// NOLINTNEXTLINE(readability-make-member-function-const)
std::error_code RegularFile::writeAt(std::int64_t offset, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::pwrite(descriptor_, bytes.data(), bytes.size(), offset);
        if (written >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
            offset += written;
        } else if (errno != EINTR) {
            return lastSystemError();
        }
    }
    return {};
}

// NOLINTNEXTLINE(readability-make-member-function-const): as above
std::error_code RegularFile::resize(std::int64_t size) {
    return ::ftruncate(descriptor_, size) == 0 ? std::error_code() : lastSystemError();
}

std::error_code readWholeFile(const std::string& path, std::string& bytes, std::int64_t mostBytes) {
    bytes.clear();
    const RegularFile file(path, RegularFile::Access::Read);
    if (file.failure()) {
        return file.failure();
    }
    if (file.size() > mostBytes) {
        return std::make_error_code(std::errc::not_enough_memory);
    }
    return file.readAt(0, static_cast<std::size_t>(file.size()), bytes);
}

} // namespace tovik::base
