// SPDX-License-Identifier: GPL-3.0-or-later
// A text file that only grows. Interface thread.
#pragma once

#include "host/Clock.h"

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

/// "dd.MM.yyyy"
[[nodiscard]] std::string logDate(const host::LocalTime& time);

/// "yyyy-MM-dd"
[[nodiscard]] std::string isoDate(const host::LocalTime& time);

/// "HH:mm:ss"
[[nodiscard]] std::string logTime(const host::LocalTime& time);

} // namespace tovik::config
