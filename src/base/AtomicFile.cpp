// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/AtomicFile.h"

#include "base/FileErrors.h"

#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tovik::base {

namespace {

// The names of files being written: the mark, the process, a count, the ending.
constexpr std::string_view kMark = ".tovik-";
constexpr std::string_view kEnding = ".new";

constexpr mode_t kNewFileMode = 0666; // cut down by the process's mask
constexpr mode_t kModeBits = 07777;

/// The file behind symbolic links; the name itself where there is no file yet.
std::string resolved(const std::string& path) {
    struct Free {
        void operator()(char* text) const noexcept {
            std::free(text); // NOLINT(cppcoreguidelines-no-malloc): given by realpath
        }
    };

    const std::unique_ptr<char, Free> real(::realpath(path.c_str(), nullptr));
    return real ? std::string(real.get()) : path;
}

/// A short name in the same folder that no other writer of a running process uses.
std::string nameBeside(const std::string& path) {
    static std::atomic<unsigned> counter{0};
    return path.substr(0, path.rfind('/') + 1) + std::string(kMark) + std::to_string(::getpid()) +
           "-" + std::to_string(counter++) + std::string(kEnding);
}

} // namespace

AtomicFile::AtomicFile(const std::string& path)
    : path_(resolved(path)), temporaryPath_(nameBeside(path_)) {
    open();
}

AtomicFile::~AtomicFile() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
        ::unlink(temporaryPath_.c_str());
    }
}

void AtomicFile::open() {
    descriptor_ = ::open(temporaryPath_.c_str(),
                         O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, kNewFileMode);
    if (descriptor_ < 0) {
        fail();
        return;
    }

    struct stat old {};

    struct stat fresh {};

    if (::stat(path_.c_str(), &old) != 0 || ::fstat(descriptor_, &fresh) != 0) {
        return;
    }
    // In this order: a change of the owner may take bits off the mode.
    keepsOwner_ = (old.st_uid == fresh.st_uid && old.st_gid == fresh.st_gid) ||
                  ::fchown(descriptor_, old.st_uid, old.st_gid) == 0;
    if (::fchmod(descriptor_, old.st_mode & kModeBits) != 0) {
        fail();
    }
}

void AtomicFile::fail() {
    failure_ = lastSystemError();
}

std::error_code AtomicFile::write(std::string_view bytes) {
    while (!failure_ && !bytes.empty()) {
        const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
        if (written >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            fail();
        }
    }
    return failure_;
}

std::error_code AtomicFile::commit(Flush flush) {
    if (!failure_ && flush == Flush::Yes && ::fdatasync(descriptor_) != 0) {
        fail();
    }
    if (descriptor_ >= 0 && ::close(std::exchange(descriptor_, -1)) != 0 && !failure_) {
        fail();
    }
    if (!failure_ && std::rename(temporaryPath_.c_str(), path_.c_str()) != 0) {
        fail();
    }
    if (failure_) {
        ::unlink(temporaryPath_.c_str());
    }
    return failure_;
}

std::error_code replaceFile(const std::string& path, std::string_view bytes, Flush flush) {
    AtomicFile file(path);
    file.write(bytes);
    return file.commit(flush);
}

void sweepLeftovers(const std::string& folder) {
    std::error_code failure; // what cannot be looked at or removed stays
    for (std::filesystem::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        const std::string name = entry->path().filename().native();
        if (!name.starts_with(kMark) || !name.ends_with(kEnding)) {
            continue;
        }
        pid_t writer = 0;
        const char* const digits = name.c_str() + kMark.size();
        const auto read = std::from_chars(digits, name.c_str() + name.size(), writer);
        if (read.ec == std::errc() && writer > 0 && ::kill(writer, 0) != 0 && errno == ESRCH) {
            std::filesystem::remove(entry->path(), failure);
        }
    }
}

} // namespace tovik::base
