// SPDX-License-Identifier: GPL-3.0-or-later
// A text file that grows. Interface thread.
#pragma once

#include "host/Clock.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::config {

/// Opened for appending, and made if it is missing; closed with the object. Every operation raises
/// what fails. Only a file is one: a pipe or a device is refused, and opening never waits.
class LogFile {
public:
    explicit LogFile(std::string path);
    ~LogFile();
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    /// Appends the line and CR LF.
    void append(std::string_view line);

private:
    std::string path_;
    int descriptor_;
};

/// Makes room for a line of so many bytes: a log that would have more than `most` bytes with it
/// keeps the last half of that, from the beginning of a line on. One that cannot be read or
/// written, or is no file, stays as it is.
void cutLog(const std::string& path, std::int64_t most, std::size_t line);

/// "dd.MM.yyyy"
[[nodiscard]] std::string logDate(const host::LocalTime& time);

/// "yyyy-MM-dd"
[[nodiscard]] std::string isoDate(const host::LocalTime& time);

/// "HH:mm:ss"
[[nodiscard]] std::string logTime(const host::LocalTime& time);

} // namespace tovik::config
