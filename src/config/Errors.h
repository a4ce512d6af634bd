// SPDX-License-Identifier: GPL-3.0-or-later
// What a procedure does with its own failures. Interface thread.
#pragma once

#include "base/RuntimeError.h"
#include "config/ErrHandler.h"
#include "config/Procedures.h"
#include "host/Dialogs.h"

#include <string>

namespace tovik::config {

/// The log and the box, in this order.
class Errors {
public:
    /// Both are kept by reference.
    Errors(const ErrHandler& log, host::Dialogs& dialogs);

    /// Logs the error and, if the procedure has a title for it, shows the description in a box.
    /// A log that cannot be written changes nothing about the box; the first error that it lost
    /// is shown even where the procedure only logs.
    void report(const base::RuntimeError& error, const Procedure& procedure) const;

    /// The same, but the user is told whatever the procedure does; not a second time, if the last
    /// box told just this.
    void reportAndTell(const base::RuntimeError& error, const Procedure& procedure) const;

    /// For an error that no procedure took: logs and shows it.
    void reportUnguarded(const base::RuntimeError& error) const noexcept;

    /// Only writes the line. Returns false if the log cannot be written.
    bool log(const base::RuntimeError& error, const Procedure& procedure) const;

    /// Only shows the description. Raises nothing.
    void tell(const base::RuntimeError& error) const { show(error, {}); }

    /// From now on errors are only logged: the program ends because of a signal or because the
    /// session does, and nobody would answer a box.
    void showNoMoreBoxes() { boxes_ = false; }

    [[nodiscard]] bool showsBoxes() const { return boxes_; }

private:
    void show(const base::RuntimeError& error, const Procedure& procedure) const;

    const ErrHandler& log_;
    host::Dialogs& dialogs_;
    bool boxes_ = true;
    mutable bool lostOne_ = false;    ///< an error went into no log
    mutable std::string lastShown_{}; ///< the text of the last box
};

/// The exception in flight as a run-time error: lack of memory is number 7, any other exception
/// number 51 with its text. To be called in a handler only.
[[nodiscard]] base::RuntimeError currentError();

/// Runs the body of a procedure. On an error in it the procedure ends there, the error is reported
/// under the procedure's words, and the program goes on. Returns whether the body ran to its end.
template <typename Body>
bool guard(const Errors& errors, const Procedure& procedure, Body&& body) {
    try {
        body();
        return true;
    } catch (...) {
        errors.report(currentError(), procedure);
        return false;
    }
}

} // namespace tovik::config
