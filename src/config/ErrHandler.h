// SPDX-License-Identifier: GPL-3.0-or-later
// The error log "db/err.log". Interface thread.
#pragma once

#include "base/Comfort.h"
#include "host/Clock.h"
#include "host/OperatingSystem.h"
#include "host/Paths.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::config {

/// Appends to the log; nothing is escaped, trimmed or rotated without comfort.
class ErrHandler {
public:
    /// All are kept by reference.
    ErrHandler(const host::Paths& paths, const host::Clock& clock,
               const host::OperatingSystem& system);

    /// What of its behaviour is kinder; outlives this. Nothing is without it: with it a field that
    /// needs it is quoted (RFC 4180, control characters are blanks), and a log that would grow over
    /// `kMostLogBytes` loses its older half, line by line.
    void obey(const base::Comfort& comfort) { comfort_ = &comfort; }

    static constexpr std::int64_t kMostLogBytes = 1'000'000;

    /// Appends one line, ended by CR LF: date/time, description, number, module, procedure,
    /// version, build and version of the system, with "," between them. Version and build are
    /// empty where the settings do not tell them. Raises a new error if the log cannot be
    /// written; it is made if it is missing, its folder is not.
    void SaveLog(std::string_view description, int number, std::string_view module,
                 std::string_view procedure) const;

private:
    const host::Paths& paths_;
    const host::Clock& clock_;
    const host::OperatingSystem& system_;
    const base::Comfort* comfort_;
};

} // namespace tovik::config
