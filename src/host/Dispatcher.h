// SPDX-License-Identifier: GPL-3.0-or-later
// The one gate between the outside (windows, timers, sockets) and the program's own handlers.
// Interface thread.
#pragma once

#include "base/RuntimeError.h"

#include <functional>

namespace tovik::host {

/// Runs handlers so that no exception leaves them: what none of the program's own procedures took
/// is reported, and the program goes on.
class Dispatcher {
public:
    using Report = std::function<void(const base::RuntimeError&)>;

    /// Until `reportTo` is called, reports go to the standard error stream.
    Dispatcher();

    void reportTo(Report report);

    /// Runs the handler. A `RuntimeError` is reported as it is, lack of memory as number 7, any
    /// other exception as number 51 with its text. An error inside the report itself is dropped.
    void run(const std::function<void()>& handler) const noexcept;

private:
    void report(const base::RuntimeError& error) const noexcept;

    Report report_;
};

} // namespace tovik::host
