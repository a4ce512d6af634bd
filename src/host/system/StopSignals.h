// SPDX-License-Identifier: GPL-3.0-or-later
// The wish of the system that the program ends, for a program that looks for it now and then. One
// at a time; any thread may ask.
#pragma once

namespace tovik::host {

/// While it lives, the first SIGTERM, SIGINT or SIGHUP is only noted; a second one of the same
/// kind ends the process.
class StopSignals {
public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    /// The number of the signal that came, 0 for none.
    [[nodiscard]] static int arrived() noexcept;
};

} // namespace tovik::host
