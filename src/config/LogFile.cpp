// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/LogFile.h"

#include "base/AtomicFile.h"
#include "base/FileErrors.h"
#include "base/RegularFile.h"
#include "config/WriteFailure.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tovik::config {

namespace {

constexpr mode_t kNewFileMode = 0666; // cut down by the process's mask

/// The number with zeros before it.
std::string padded(int number, std::size_t width) {
    std::string digits = std::to_string(number);
    return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

} // namespace

LogFile::LogFile(std::string path)
    : path_(std::move(path)),
      descriptor_(::open(path_.c_str(),
                         O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NOCTTY | O_NONBLOCK,
                         kNewFileMode)) {

    struct stat facts {};

    std::error_code failure;
    if (descriptor_ < 0 || ::fstat(descriptor_, &facts) != 0) {
        failure = base::lastSystemError();
    } else if (!S_ISREG(facts.st_mode)) {
        failure = std::make_error_code(std::errc::invalid_seek); // a pipe would swallow or block
    }
    if (failure) {
        if (descriptor_ >= 0) {
            ::close(descriptor_);
        }
        raiseWriteFailure(failure, path_);
    }
}

LogFile::~LogFile() {
    ::close(descriptor_);
}

void LogFile::append(std::string_view line) {
    const std::string whole = std::string(line) + "\r\n"; // in one call, so that lines do not mix
    std::string_view rest = whole;
    while (!rest.empty()) {
        const ssize_t written = ::write(descriptor_, rest.data(), rest.size());
        if (written >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            raiseWriteFailure(base::lastSystemError(), path_);
        }
    }
}

void cutLog(const std::string& path, std::int64_t most, std::size_t line) {
    constexpr std::size_t kLineEnd = 2;
    std::string rest;
    {
        const base::RegularFile log(path, base::RegularFile::Access::Read);
        if (log.failure() || log.size() + static_cast<std::int64_t>(line + kLineEnd) <= most) {
            return;
        }
        const std::int64_t kept = std::min(most / 2, log.size());
        if (log.readAt(log.size() - kept, static_cast<std::size_t>(kept), rest)) {
            return;
        }
    }
    rest.erase(0, std::min(rest.find('\n'), rest.size() - 1) + 1);
    static_cast<void>(base::replaceFile(path, rest, base::Flush::No));
}

std::string logDate(const host::LocalTime& time) {
    return padded(time.day, 2) + "." + padded(time.month, 2) + "." + padded(time.year, 4);
}

std::string isoDate(const host::LocalTime& time) {
    return padded(time.year, 4) + "-" + padded(time.month, 2) + "-" + padded(time.day, 2);
}

std::string logTime(const host::LocalTime& time) {
    return padded(time.hour, 2) + ":" + padded(time.minute, 2) + ":" + padded(time.second, 2);
}

} // namespace tovik::config
