// SPDX-License-Identifier: GPL-3.0-or-later
// The error log "db/err.log". Interface thread.
#pragma once

#include "host/Clock.h"
#include "host/OperatingSystem.h"
#include "host/Paths.h"

#include <string>
#include <string_view>

namespace tovik::config {

/// Appends to the log; nothing is escaped, trimmed or rotated.
class ErrHandler {
public:
    /// All are kept by reference.
    ErrHandler(const host::Paths& paths, const host::Clock& clock,
               const host::OperatingSystem& system);

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
};

} // namespace tovik::config
